// SPDX-License-Identifier: MIT
#pragma once
/// @file The instruments whose bars are at hand.

#include <QStringList>
#include <QWidget>

#include <vector>

class QComboBox;
class QLineEdit;
class QListWidget;

namespace client {

/// An instrument whose bars stand in a file.
struct ListedInstrument
{
    QString path;
    QString text; ///< key and name, as they are shown
    QString key;
    QString name;

    /// Whether a code, a name or pinyin initials that the user typed mean it.
    bool isMeantBy(const QString& typed) const;
};

/// Bars files of a folder, shown by instrument name, those that the filter leaves: of all of them, of the
/// user's favourites or of those opened of late. A double click or the
/// Enter key opens one, in the filter as well; cursor and page keys step through them.
class InstrumentList : public QWidget
{
    Q_OBJECT

public:
    explicit InstrumentList(QWidget* parent = nullptr);

    /// Lists the CSV files of a file's folder and makes that file the current one; a file's base name is its
    /// instrument's key. The filter stays.
    void showFile(const QString& path);

    const std::vector<ListedInstrument>& instruments() const { return m_instruments; }
    QString filter() const;
    void setFilter(const QString& text);

    /// Keys of the instruments that the user marked, and of those opened of late, the last one first.
    const QStringList& favourites() const { return m_favourites; }
    const QStringList& recent() const { return m_recent; }
    void setMarks(const QStringList& favourites, const QStringList& recent);
    /// Marks an instrument as a favourite, or takes the mark away.
    void setFavourite(const QString& key, bool on);

    /// Opens the instrument so many places behind the current one among those that the filter leaves; at the
    /// ends nothing.
    void step(int places);

Q_SIGNALS:
    void sigOpen(const QString& path);
    /// Other instruments are listed.
    void sigListed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void list(const QString& folder);
    void applyFilter();
    /// Row that many visible ones behind the current one; -1 when there is none.
    int rowBehind(int places) const;
    void openCurrent();
    bool isShown(const ListedInstrument& instrument) const;
    void showMenu(const QPoint& place);

    QComboBox* m_group;
    QLineEdit* m_filter;
    QListWidget* m_list;
    std::vector<ListedInstrument> m_instruments;
    QStringList m_favourites, m_recent;
};

} // namespace client
