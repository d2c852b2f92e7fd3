// SPDX-License-Identifier: MIT
#pragma once
/// @file The basket page: stocks with weights from files and the clipboard.

#include <QStringList>
#include <QWidget>

#include <atomic>
#include <memory>

class QComboBox;
class QLabel;
class QPushButton;

namespace TC {
class CParserStockExeclTable;
}

namespace client {

class WeightTable;

/// The weight table with what surrounds it: import by menu, drop and paste, the weight rule, a filter, a
/// read-only switch, export, and a line that says what an import found. A rule that would overwrite weights
/// that were typed or imported asks first; an import without weights offers equal ones. GUI thread only.
class BasketPanel : public QWidget
{
    Q_OBJECT

public:
    explicit BasketPanel(QWidget* parent = nullptr);
    ~BasketPanel() override;

    TC::CParserStockExeclTable* table();

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

public Q_SLOTS:
    /// Imports the clipboard's text.
    void slotPaste();

private Q_SLOTS:
    void slotFilter(const QString& text);

private:
    struct Import;

    QWidget* buildBar();
    QWidget* buildReport();
    /// Changes the weight rule, unless the user wants to keep the weights that it would overwrite.
    void chooseRule(int rule);
    void chooseFile();
    void startImport(const QString& path);
    void startNext();
    void add(Import import, const QString& source);
    void tellHowExportsEnd();
    void tell(const QString& line);

    WeightTable* m_table;
    QComboBox* m_rule;
    QLabel* m_report;
    QPushButton* m_offer;                           ///< of equal weights, while an import has brought none
    QStringList m_waiting;                          ///< files behind the one that is being read
    std::shared_ptr<std::atomic<bool>> m_cancelled; ///< of the import under way; null without one
};

} // namespace client
