// SPDX-License-Identifier: MIT
#pragma once
/// @file The basket page: stocks with weights from files and the clipboard.

#include <QStringList>
#include <QWidget>

#include <atomic>
#include <memory>

class QLabel;

namespace TC {
class CParserStockExeclTable;
}

namespace client {

/// The weight table with what surrounds it: import by menu, drop and paste, the weight rule, a filter, a
/// read-only switch, export, and a line that says what an import found. GUI thread only.
class BasketPanel : public QWidget
{
    Q_OBJECT

public:
    explicit BasketPanel(QWidget* parent = nullptr);
    ~BasketPanel() override;

    TC::CParserStockExeclTable* table() { return m_table; }

    /// Imports a .csv, .txt, .xlsx or .xls file in the background, after those that are under way; other
    /// files are refused with a message. Every file ends in one message.
    void importFile(const QString& path);

Q_SIGNALS:
    void sigMessage(const QString& text);
    /// An import has ended, whether it added stocks or not.
    void sigImportEnded();

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private Q_SLOTS:
    void slotPaste();
    void slotFilter(const QString& text);

private:
    struct Import;

    QWidget* buildBar();
    void chooseFile();
    void startImport(const QString& path);
    void startNext();
    void add(Import import, const QString& source);
    void tellHowExportsEnd();
    void tell(const QString& line);

    TC::CParserStockExeclTable* m_table;
    QLabel* m_report;
    QStringList m_waiting;                          ///< files behind the one that is being read
    std::shared_ptr<std::atomic<bool>> m_cancelled; ///< of the import under way; null without one
};

} // namespace client
