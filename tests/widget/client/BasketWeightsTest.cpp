// SPDX-License-Identifier: MIT
/// @file Where the weights of the basket come from, and what overwrites them.

#include "apps/client/basket/BasketPanel.h"
#include "host/WB/TableEvents.h"
#include "host/TC/CStockManager.h"
#include "host/embedded/InstrumentSetup.h"
#include "host/embedded/ReadingSetup.h"
#include "stocklist/CParserStockExeclTable.h"
#include "tests/support/Workbooks.h"
#include "tests/widget/client/ClientWindow.h"

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTimer>

using test::ClientWindow;

namespace {

class BasketWeights : public ClientWindow
{
protected:
    client::BasketPanel* panel() { return m_window->basket(); }
    TC::CParserStockExeclTable* table() { return panel()->table(); }
    QComboBox* rule() { return panel()->findChild<QComboBox*>(); }
    QPushButton* offer()
    {
        for (auto* button : panel()->findChildren<QPushButton*>()) {
            if (button->text() == QStringLiteral("改用等权"))
                return button;
        }
        return nullptr;
    }
    void paste(const char* text)
    {
        QApplication::clipboard()->setText(QString::fromUtf8(text));
        panel()->slotPaste();
    }
    void type(int row, int weight)
    {
        table()->handleEvent(WB::ETableEvent_IntegerEdited, table()->rowID(row), 3, QString::number(weight),
                             &weight);
    }
    QString cells(int column)
    {
        QStringList texts;
        for (int row = 0; row < table()->rowCount(); ++row)
            texts << table()->cellText(table()->rowID(row), column);
        return texts.join(QLatin1Char('|'));
    }
    /// Chooses a rule as the user does. @return the question's text; empty when none was asked.
    QString chooseRule(int index, const char* answer)
    {
        QString asked;
        QTimer answering; // goes with this call, whether anything was asked or not
        answering.setSingleShot(true);
        QObject::connect(&answering, &QTimer::timeout, [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box)
                return;
            asked = box->text();
            EXPECT_EQ(box->defaultButton()->text(), QStringLiteral("取消"));
            for (QAbstractButton* button : box->buttons()) {
                if (button->text() == QString::fromUtf8(answer))
                    button->click();
            }
        });
        answering.start(0);
        rule()->setCurrentIndex(index);
        return asked;
    }
};

constexpr int kEqual = 0, kAsEntered = 1, kFloatingValue = 2, kAbsoluteAsEntered = 4;

} // namespace

TEST_F(BasketWeights, ByMarketValueSayInCellsAndHeadersThatTheFiguresAreInvented)
{
    paste("600000\n600036\n");
    rule()->setCurrentIndex(kFloatingValue);
    for (int column : { 3, 4 }) {
        for (const QString& cell : cells(column).split(QLatin1Char('|')))
            EXPECT_TRUE(cell.startsWith(QStringLiteral("虚构 "))) << cell.toStdString();
        EXPECT_TRUE(table()->columnHeader(column).contains(QStringLiteral("虚构")));
    }
    rule()->setCurrentIndex(kEqual);
    EXPECT_EQ(cells(3), QStringLiteral("1|1"));
    EXPECT_FALSE(table()->columnHeader(3).contains(QStringLiteral("虚构")));
}

TEST_F(BasketWeights, ByMarketValueOfFiguresThatWereReplacedStandAsTheyAre)
{
    for (const char* code : { "600000", "600036" }) {
        ttservice::CInstrumentDetail known =
            *utils::CSingletonT<TC::CStockManager>::instance()->getInstrumentDetail(
                QString::fromLatin1(code));
        known.figures = { { 3015, 300.0 }, { 3016, 900.0 } };
        TC::embedded::setInstrument(known);
    }
    paste("600000\n600036\n");
    rule()->setCurrentIndex(kFloatingValue);
    EXPECT_EQ(cells(3), QStringLiteral("3|3"));
    EXPECT_EQ(cells(4), QStringLiteral("50|50"));
    EXPECT_EQ(table()->columnHeader(3), QStringLiteral("相对权重"));
}

TEST_F(BasketWeights, ByMarketValueOfAStockWithoutFiguresAreLeftOutWithTheReason)
{
    ttservice::CInstrumentDetail known =
        *utils::CSingletonT<TC::CStockManager>::instance()->getInstrumentDetail(QStringLiteral("600000"));
    known.figures.clear();
    TC::embedded::setInstrument(known);
    paste("600000\n600036\n");
    rule()->setCurrentIndex(kFloatingValue);
    EXPECT_TRUE(cells(3).startsWith(QStringLiteral("无市值数据|虚构 "))) << cells(3).toStdString();
}

TEST_F(BasketWeights, OfAnImportWithoutAnyAreSaidToBeMissingAndEqualOnesAreOffered)
{
    QSignalSpy messages(panel(), &client::BasketPanel::sigMessage);
    paste("600000\n600036\n");
    EXPECT_TRUE(messages.last().first().toString().contains(QStringLiteral("没有读到权重")));
    ASSERT_TRUE(offer() && offer()->isVisibleTo(panel()));
    offer()->click();
    EXPECT_EQ(rule()->currentIndex(), kEqual);
    EXPECT_EQ(cells(4), QStringLiteral("50|50"));
    EXPECT_FALSE(offer()->isVisibleTo(panel()));
}

TEST_F(BasketWeights, ThatWereTypedAreOverwrittenOnlyWhenTheUserSaysSo)
{
    paste("600000\n600036\n");
    type(0, 3);
    type(1, 1);
    EXPECT_EQ(cells(4), QStringLiteral("75|25"));
    EXPECT_TRUE(chooseRule(kEqual, "取消").contains(QStringLiteral("覆盖")));
    EXPECT_EQ(rule()->currentIndex(), kAsEntered);
    EXPECT_EQ(cells(3), QStringLiteral("3|1"));
    EXPECT_EQ(chooseRule(kAbsoluteAsEntered, "取消"), QString()); // keeps them
    EXPECT_EQ(cells(3), QStringLiteral("3|1"));
    EXPECT_FALSE(chooseRule(kEqual, "覆盖").isEmpty());
    EXPECT_EQ(cells(3), QStringLiteral("1|1"));
    EXPECT_EQ(chooseRule(kAsEntered, "取消"), QString()); // nothing is left to lose
}

TEST_F(BasketWeights, InPercentAsTypedAreOverwrittenOnlyWhenTheUserSaysSo)
{
    paste("600000\n600036\n");
    rule()->setCurrentIndex(kAbsoluteAsEntered);
    WB::TableCellEdit edit { 4, QStringLiteral("0.4") };
    table()->handleEvent(WB::ETableEvent_CellEdited, table()->rowID(0), 4, edit.text, &edit);
    EXPECT_FALSE(chooseRule(kAsEntered, "取消").isEmpty());
    EXPECT_EQ(rule()->currentIndex(), kAbsoluteAsEntered);
    EXPECT_TRUE(cells(4).startsWith(QStringLiteral("40|"))) << cells(4).toStdString();
}

TEST_F(BasketWeights, ThatAWorkbookBroughtAreAskedForAsTypedOnesAre)
{
    const QString path = test::writeXlsx(m_folder.filePath(QStringLiteral("weights.xlsx")),
                                         { { QStringLiteral("600000"), QStringLiteral("a"), 3 },
                                           { QStringLiteral("600036"), QStringLiteral("b"), 1 } });
    QSignalSpy ended(panel(), &client::BasketPanel::sigImportEnded);
    panel()->importFile(path);
    ASSERT_TRUE(QTest::qWaitFor([&] { return ended.count() == 1; }));
    EXPECT_EQ(cells(4), QStringLiteral("75|25"));
    EXPECT_FALSE(offer()->isVisibleTo(panel()));
    EXPECT_FALSE(chooseRule(kEqual, "取消").isEmpty());
    EXPECT_EQ(cells(4), QStringLiteral("75|25"));
}

TEST_F(BasketWeights, OfAWorkbookLeaveNoReaderBehindInTheThreadThatReadIt)
{
    const int before = TC::embedded::excelReaderCount();
    QSignalSpy ended(panel(), &client::BasketPanel::sigImportEnded);
    panel()->importFile(
        test::writeXlsx(m_folder.filePath(QStringLiteral("one.xlsx")), { { QStringLiteral("600000") } }));
    ASSERT_TRUE(QTest::qWaitFor([&] { return ended.count() == 1; }));
    EXPECT_EQ(TC::embedded::excelReaderCount(), before);
}

TEST_F(BasketWeights, OfAPastedListGoToTheBasketThatIsInFrontWhereverTheFocusIs)
{
    const auto paste = [&] {
        for (QAction* action : m_window->findChildren<QAction*>()) {
            if (action->shortcut() == QKeySequence(QKeySequence::Paste))
                action->trigger();
        }
    };
    QApplication::clipboard()->setText(QStringLiteral("600000\n"));
    m_window->docks()->dock(QStringLiteral("indexMainPanel"))->setAsCurrentTab();
    paste();
    EXPECT_TRUE(table()->getAllStock().isEmpty());
    m_window->docks()->dock(QStringLiteral("tradeBaskets"))->setAsCurrentTab();
    chart()->setFocus();
    paste();
    EXPECT_EQ(table()->getAllStock(), QVector<QString> { QStringLiteral("SH600000") });
}

TEST_F(BasketWeights, ThatTheRuleComputesCannotBeTyped)
{
    paste("600000\n");
    EXPECT_TRUE(table()->cellEditable(table()->rowID(0), 3));
    rule()->setCurrentIndex(kEqual);
    EXPECT_FALSE(table()->cellEditable(table()->rowID(0), 3));
}
