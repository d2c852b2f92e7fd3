// SPDX-License-Identifier: MIT
#pragma once
/// @file The instruments whose bars are at hand.

#include <QWidget>

#include <vector>

class QLineEdit;
class QListWidget;

namespace client {

/// An instrument whose bars stand in a file.
struct ListedInstrument
{
    QString path;
    QString text; ///< key and name, as they are shown

    /// Whether a code, a name or pinyin initials that the user typed mean it.
    bool isMeantBy(const QString& typed) const;
};

/// Bars files of a folder, shown by instrument name, those that the filter leaves. A double click or the
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

    /// Opens the instrument so many places behind the current one among those that the filter leaves; at the
    /// ends nothing.
    void step(int places);

Q_SIGNALS:
    void sigOpen(const QString& path);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void list(const QString& folder);
    void applyFilter();
    /// Row that many visible ones behind the current one; -1 when there is none.
    int rowBehind(int places) const;
    void openCurrent();

    QLineEdit* m_filter;
    QListWidget* m_list;
    std::vector<ListedInstrument> m_instruments;
};

} // namespace client
