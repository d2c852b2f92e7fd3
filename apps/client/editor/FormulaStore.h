#pragma once
/// @file The user's own formulas as they stand in their file; docs/configFormula.md describes it.

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QVector>

#include <functional>
#include <utility>
#include <vector>

namespace client {

/// One formula of the user's own.
struct OwnFormula
{
    QString name;
    QString displayName;        ///< empty: the name
    QString base;               ///< the built-in formula it rests on; empty for one with a text of its own
    QString source;             ///< its text; empty with a base
    QVector<double> parameters; ///< those at the end of a shorter list take their defaults

    QString shownName() const { return displayName.isEmpty() ? name : displayName; }
};

/// Reads and changes the file of the user's formulas. Every call reads the file anew, so that a change made
/// by others in between is kept. What the file holds beside the formula in question stays: other formulas,
/// right or wrong, colours and kind of a formula that is replaced, and foreign keys. A file that cannot be
/// read, or is damaged, is left as it is. Functions that return a text return an empty one on success, else
/// one sentence for the user.
class FormulaStore
{
public:
    explicit FormulaStore(QString path);

    /// Called right before the file is changed, and only then.
    void setBeforeChange(std::function<void()> beforeChange) { m_beforeChange = std::move(beforeChange); }

    /// The formulas in the order of the file; entries without a name are passed over.
    QString read(std::vector<OwnFormula>& formulas) const;

    /// Puts a formula in the place of the one of a name, or at the end when `replaced` is empty or unknown.
    QString save(const OwnFormula& formula, const QString& replaced = QString());

    /// Adds a copy of a formula under a free name.
    /// @param[out] copy  name of the copy; written only on success.
    QString duplicate(const QString& name, QString& copy);

    QString remove(const QString& name);

    /// The first of WORD, WORD2, WORD3, ... that no formula of the file and no built-in one has.
    QString freeName(const QString& word) const;

private:
    struct Content
    {
        QJsonObject root;
        QJsonArray entries;
    };

    QString load(Content& content) const;
    QString write(Content& content);

    QString m_path;
    std::function<void()> m_beforeChange;
};

} // namespace client
