// SPDX-License-Identifier: MIT
#pragma once
/// @file The user's own formulas as they stand in their file; docs/configFormula.md describes it.

#include "apps/base/Result.h"

#include <QCoreApplication>
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
    bool isDraft = false;       ///< unfinished: kept, and computed by nobody

    QString shownName() const { return displayName.isEmpty() ? name : displayName; }
    bool operator==(const OwnFormula& other) const
    {
        return name == other.name && displayName == other.displayName && base == other.base
            && source == other.source && parameters == other.parameters && isDraft == other.isDraft;
    }
};

/// Reads and changes the file of the user's formulas. Every call reads the file anew, and nobody else changes
/// it meanwhile, so that a change made by another client in between is kept. What the file holds beside the
/// formula in question stays: other formulas, right or wrong, colours and kind of a formula that is replaced,
/// and foreign keys. A file that cannot be read, or is damaged, is left as it is.
class FormulaStore
{
    Q_DECLARE_TR_FUNCTIONS(client::FormulaStore)

public:
    using BeforeChange = std::function<base::Result<void>()>;

    explicit FormulaStore(QString path);

    /// Called right before the file is changed, and only then; a failure stops the change.
    void setBeforeChange(BeforeChange beforeChange) { m_beforeChange = std::move(beforeChange); }

    /// The formulas in the order of the file; entries without a name are passed over.
    base::Result<std::vector<OwnFormula>> read() const;

    /// Puts a formula in the place of the one of a name, or at the end when `replaced` is empty or unknown.
    base::Result<void> save(const OwnFormula& formula, const QString& replaced = QString());

    /// Adds a copy of a formula under a free name, and answers that name.
    base::Result<QString> duplicate(const QString& name);

    base::Result<void> remove(const QString& name);

    /// The first of WORD, WORD2, WORD3, ... that no formula of the file and no built-in one has.
    QString freeName(const QString& word) const;

private:
    struct Content
    {
        QJsonObject root;
        QJsonArray entries;
    };
    using Change = std::function<base::Result<void>(QJsonArray& entries)>;

    base::Result<Content> load() const;
    base::Result<void> change(const Change& change);

    QString m_path;
    BeforeChange m_beforeChange;
};

} // namespace client
