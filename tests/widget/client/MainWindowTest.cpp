// SPDX-License-Identifier: MIT
/// @file The reference client as a whole, in a real window of the offscreen platform.

#include "apps/client/basket/BasketPanel.h"
#include "apps/client/chart/ChartView.h"
#include "apps/client/MainWindow.h"
#include "apps/chart/ChartMeasures.h"
#include "apps/client/chart/PlotWidget.h"
#include "apps/client/chart/TickView.h"
#include "draw/CDrawStyle.h"
#include "host/TC/Folders.h"
#include "host/WB/CPushButton.h"
#include "host/WB/CUiResource.h"
#include "host/embedded/EmbeddedHost.h"
#include "host/se/LoadConfig.h"
#include "host/utils/CSingletonT.h"
#include "recovery/CRecoveryVersionManager.h"
#include "stocklist/CParserStockExeclTable.h"
#include "tests/support/Trace.h"
#include "tests/widget/client/ClientWindow.h"
#include "title/CIndexTitleWidget.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QAction>
#include <QTimer>
#include <QLineEdit>
#include <QLabel>
#include <QFileDialog>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest/QTest>

#include <gtest/gtest.h>

using test::ClientWindow;
using test::sample;

TEST_F(ClientWindow, ComparesWithTheIndexThatTheUserChoosesAndKeepsItForTheNextRun)
{
    const auto indexName = [&] { return m_window->findChild<QLabel*>(QStringLiteral("comparedIndex")); };
    const auto trigger = [&](const QString& entry) {
        for (QAction* action : m_window->findChildren<QAction*>()) {
            if (action->text() == entry)
                action->trigger();
        }
    };
    openShare();
    chart()->state()->show(100, 200);
    EXPECT_FALSE(indexName()->isVisible());
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(sample("bars/SH000001.csv"));
        QMetaObject::invokeMethod(dialog, "accept");
    });
    trigger(QStringLiteral("对照指数…"));
    EXPECT_EQ(indexName()->text(), QStringLiteral("对照指数：SH000001 上证指数"));
    EXPECT_TRUE(indexName()->isVisible());
    EXPECT_EQ(chart()->state()->first(), 100);
    ASSERT_TRUE(chart()->state()->bars()->index);
    EXPECT_EQ(chart()->state()->bars()->index->size(), 8709u);

    EXPECT_FALSE(m_window->compareWith(QStringLiteral("none.csv")).isGood());
    EXPECT_TRUE(chart()->state()->bars()->index) << "a file that cannot be opened changes nothing";

    m_window->close();
    m_window = std::make_unique<client::MainWindow>();
    showSettled(*m_window);
    EXPECT_EQ(indexName()->text(), QStringLiteral("对照指数：SH000001 上证指数"));
    openShare();
    EXPECT_TRUE(chart()->state()->bars()->index);
    trigger(QStringLiteral("取消对照指数"));
    EXPECT_FALSE(indexName()->isVisible());
    EXPECT_FALSE(chart()->state()->bars()->index);
}

TEST_F(ClientWindow, OpensBarsWithCandlesVolumeAndMacd)
{
    openShare();
    ASSERT_EQ(panes().size(), 3u);
    EXPECT_EQ(chart()->state()->last(), chart()->state()->barTotal() - 1);
    EXPECT_EQ(panes()[0]->data()->getMainGraph(), QStringLiteral("KLINE"));
    EXPECT_EQ(panes()[0]->getMarket(), QStringLiteral("SH"));
    EXPECT_EQ(panes()[0]->getStock(), QStringLiteral("600030"));
}

TEST_F(ClientWindow, ShowsWhatIsWrongWithAFileAndKeepsTheChart)
{
    openShare();
    const int bars = chart()->state()->barTotal();
    EXPECT_TRUE(m_window->openBars(sample("README.md")).reason().contains(QStringLiteral("README.md")));
    EXPECT_TRUE(m_window->openBars(sample("none.csv")).reason().contains(QStringLiteral("none.csv")));
    EXPECT_EQ(chart()->state()->barTotal(), bars);
}

TEST_F(ClientWindow, ZoomsAndMovesByKeys)
{
    openShare();
    client::ChartState* state = chart()->state();
    const int count = state->last() - state->first() + 1;
    QTest::keyClick(chart(), Qt::Key_Up);
    EXPECT_LT(state->last() - state->first() + 1, count);
    QTest::keyClick(chart(), Qt::Key_Left, Qt::ControlModifier);
    EXPECT_LT(state->last(), state->barTotal() - 1);
    QTest::keyClick(chart(), Qt::Key_Home);
    EXPECT_EQ(state->first(), 0);
    QTest::keyClick(chart(), Qt::Key_End);
    EXPECT_EQ(state->last(), state->barTotal() - 1);
    QTest::keyClick(chart(), Qt::Key_Down);
    EXPECT_GE(state->last() - state->first() + 1, count);
}

TEST_F(ClientWindow, MovesByDragging)
{
    openShare();
    client::ChartState* state = chart()->state();
    const int last = state->last();
    const auto send = [&](QEvent::Type type, int column, Qt::MouseButtons held) {
        const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, QPointF(column, 30), button, held, Qt::NoModifier);
        QApplication::sendEvent(plot(0), &event);
    };
    send(QEvent::MouseButtonPress, 100, Qt::LeftButton);
    send(QEvent::MouseMove, 200, Qt::LeftButton);
    EXPECT_LT(state->last(), last); // 100 pixels to the right: older bars come in
    send(QEvent::MouseButtonRelease, 200, Qt::NoButton);
    const int moved = state->last();
    send(QEvent::MouseMove, 120, Qt::NoButton); // the button is up
    EXPECT_EQ(state->last(), moved);
}

TEST_F(ClientWindow, FollowsTheCrosshairInEveryPane)
{
    openShare();
    QMouseEvent move(QEvent::MouseMove, QPointF(60, 30), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(plot(0), &move);
    EXPECT_EQ(chart()->state()->crosshairBar(),
              chart()->state()->view(plot(0)->width() - chart::kAxisWidth).barAt(60));
    const QImage before = panes()[1]->title()->grab().toImage();
    chart()->state()->setCrosshairBar(chart()->state()->first());
    EXPECT_NE(panes()[1]->title()->grab().toImage(), before); // its legend shows another bar
}

TEST_F(ClientWindow, ClosesAPaneByItsButtonButNeverTheMainOne)
{
    openShare();
    ASSERT_NE(panes()[1]->title()->closeButton(), nullptr);
    EXPECT_EQ(panes()[0]->title()->closeButton(), nullptr);
    QTest::mouseClick(panes()[1]->title()->closeButton(), Qt::LeftButton);
    EXPECT_EQ(panes().size(), 2u);
    chart()->closePane(panes()[0]);
    EXPECT_EQ(panes().size(), 2u);
    QTest::qWait(1);                      // the closed pane is deleted
    chart()->state()->setCrosshairBar(5); // and hears of nothing any more
}

TEST_F(ClientWindow, GivesAPaneTheWholeHeightOnADoubleClickOfItsLegend)
{
    openShare();
    QTest::mouseDClick(panes()[1]->title(), Qt::LeftButton, Qt::NoModifier, QPoint(30, 5));
    EXPECT_FALSE(panes()[0]->isVisible());
    EXPECT_TRUE(panes()[1]->isVisible());
    QTest::mouseDClick(panes()[1]->title(), Qt::LeftButton, Qt::NoModifier, QPoint(30, 5));
    EXPECT_TRUE(panes()[0]->isVisible());
}

TEST_F(ClientWindow, OpensUpToFiveRowsOfLegendUnderARestingPointer)
{
    openShare();
    client::ChartPane* pane = panes()[1];
    pane->data()->setFormulas({ QStringLiteral("MACD"), QStringLiteral("KDJ"), QStringLiteral("RSI"),
                                QStringLiteral("BOLL"), QStringLiteral("MA"), QStringLiteral("VOL") });
    ASSERT_TRUE(QTest::qWaitFor([&] { return pane->data()->getData().size() == 6; }));
    m_window->resize(700, 700);
    const int row = pane->title()->titleHeight();
    ASSERT_TRUE(QTest::qWaitFor([&] { return pane->title()->height() == 2 * row; }));
    QEnterEvent enter({}, {}, {});
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(pane->title(), &enter);
    EXPECT_TRUE(QTest::qWaitFor([&] { return pane->title()->height() > 2 * row; }));
    EXPECT_LE(pane->title()->height(), 5 * row);
    QApplication::sendEvent(pane->title(), &leave);
    EXPECT_TRUE(QTest::qWaitFor([&] { return pane->title()->height() == 2 * row; }));
}

TEST_F(ClientWindow, DropsTheResultOfASupersededRequest)
{
    openShare();
    client::PaneData* data = panes()[1]->data();
    data->setFormulas({ QStringLiteral("MACD") });
    data->setFormulas({ QStringLiteral("KDJ") });
    ASSERT_TRUE(QTest::qWaitFor([&] { return data->hasData(); }));
    QTest::qWait(50);
    ASSERT_EQ(data->getData().size(), 1);
    EXPECT_EQ(data->getData().firstKey().formulaName, QStringLiteral("KDJ"));
}

TEST_F(ClientWindow, OverlaysAnotherInstrumentOnTheSameAxis)
{
    openShare();
    ASSERT_TRUE(m_window->overlayBars(sample("bars/SH510050.csv")).isGood());
    client::PaneData* data = panes()[0]->data();
    ASSERT_TRUE(QTest::qWaitFor([&] { return data->getData().size() == 3; }));
    const chart::PaneContent content = data->content();
    ASSERT_TRUE(content.formulas.back().overlaid);
    const auto& own = content.formulas.front().records->result.numberSeries[3];
    const auto& other = content.formulas.back().records->result.numberSeries[3];
    const auto first = static_cast<std::size_t>(chart()->state()->first());
    EXPECT_EQ(own.size(), other.size());
    EXPECT_NEAR(other[first] * static_cast<double>(content.formulas.back().scale), own[first],
                own[first] * 1e-5);
    m_window->clearOverlays();
    EXPECT_EQ(data->getData().size(), 2);
}

TEST_F(ClientWindow, ShowsTheDemoAccountOnlyWhenItIsOn)
{
    openShare();
    const QImage off = panes()[0]->title()->grab().toImage();
    m_window->setDemoAccount(true);
    EXPECT_NE(panes()[0]->title()->grab().toImage(), off);
    m_window->setDemoAccount(false);
    EXPECT_EQ(panes()[0]->title()->grab().toImage(), off);
}

TEST_F(ClientWindow, RepaintsInAnotherSkin)
{
    openShare();
    const QImage dark = m_window->grab().toImage();
    ASSERT_EQ(TC::embedded::loadSkin(QStringLiteral("light")), QString());
    EXPECT_NE(m_window->grab().toImage(), dark);
}

TEST_F(ClientWindow, GivesEveryListAndTableTheColoursOfAnotherSkin)
{
    const auto bringToFront = [&](const char* id) {
        ads::CDockWidget* dock = m_window->docks()->dock(QString::fromLatin1(id));
        dock->setAsCurrentTab();
        QTest::qWait(20);
        return dock;
    };
    bringToFront("tradeBaskets");
    ASSERT_EQ(TC::embedded::loadSkin(QStringLiteral("light")), QString());
    const QColor ground =
        *utils::CSingletonT<WB::CUiResource>::instance()->getColor(QStringLiteral("ic_clr_graph_kline_bg"));
    bringToFront("indexMainPanel");
    bringToFront("tradeBaskets"); // it is polished anew
    int visible = 0;
    for (const QAbstractItemView* view : m_window->findChildren<QAbstractItemView*>()) {
        if (!view->isVisible())
            continue;
        ++visible;
        EXPECT_EQ(view->palette().color(QPalette::Base), ground) << view->metaObject()->className();
        EXPECT_EQ(view->viewport()->palette().color(QPalette::Base), ground);
    }
    EXPECT_GE(visible, 4); // the basket, instruments, formulas, messages
    const QImage tab =
        m_window->docks()->dock(QStringLiteral("productBaseInfo"))->tabWidget()->grab().toImage();
    EXPECT_GT(tab.pixelColor(4, 4).lightness(), 200);
}

TEST_F(ClientWindow, OverlaidCandlesHaveTheSkinsColourInPaneAndLegend)
{
    openShare();
    ASSERT_TRUE(m_window->overlayBars(sample("bars/SH510050.csv")).isGood());
    client::PaneData* data = panes()[0]->data();
    ASSERT_TRUE(QTest::qWaitFor([&] { return data->getData().size() == 3; }));
    const auto color = [&] { return data->content().formulas.back().records->meta.color.front(); };
    EXPECT_EQ(color(), TC::CDrawStyle::getIndexOutPutColorKey(6, 0, 0));
    const int dark = color();
    ASSERT_EQ(TC::embedded::loadSkin(QStringLiteral("light")), QString());
    EXPECT_EQ(color(), TC::CDrawStyle::getIndexOutPutColorKey(6, 0, 0));
    EXPECT_NE(color(), dark);
}

TEST_F(ClientWindow, NamesThePeriodOfTheBars)
{
    openShare();
    EXPECT_EQ(chart()->state()->period(), TC::EFormulaPeriod_Day);
    auto minutes = std::make_shared<engine::BarSeries>(*chart()->state()->bars());
    for (std::size_t bar = 0; bar < minutes->size(); ++bar)
        minutes->timeMs[bar] = static_cast<std::int64_t>(bar) * 300'000;
    chart()->state()->setBars(chart()->state()->instrument(), minutes);
    EXPECT_EQ(panes()[0]->data()->content().periodSeconds, 300);
    for (client::ChartPane* pane : panes())
        ASSERT_TRUE(QTest::qWaitFor([&] { return pane->data()->hasData(); }));
    QTest::qWait(50);
    const QImage five = panes()[0]->title()->grab().toImage();
    panes()[0]->title()->setPeroid(TC::EFormulaPeriod_Day);
    EXPECT_NE(panes()[0]->title()->grab().toImage(), five);
}

TEST_F(ClientWindow, FollowsTheUsersFormulas)
{
    openShare();
    QFile file(QDir(TC::getUserRootDir()).filePath(QStringLiteral("configFormula")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("{\"formulas\": [{\"name\": \"MINE\", \"base\": \"MA\", \"parameters\": [7]}]}");
    file.close();
    ASSERT_EQ(se::loadConfig("root", "configFormula", ""), 0);
    client::ChartPane* pane = chart()->addPane({ QStringLiteral("MINE") });
    ASSERT_TRUE(QTest::qWaitFor([&] { return pane->data()->hasData(); }));
    EXPECT_EQ(pane->data()->getData().first().meta.outputNames.front(), "MA7");
}

TEST_F(ClientWindow, OpensTradesOnTheTickPage)
{
    ASSERT_TRUE(m_window->openTicks(sample("ticks/VALE3-2025-04-07.csv")).isGood());
    EXPECT_EQ(m_window->ticks()->state()->barTotal(), 7478);
    const QImage byPrice = m_window->ticks()->grab().toImage();
    ASSERT_TRUE(m_window->openTicks(sample("ticks/SYNTHETIC-five-levels.csv")).isGood());
    EXPECT_NE(m_window->ticks()->grab().toImage(), byPrice);
    EXPECT_FALSE(m_window->ticks()->followsBook());
    m_window->ticks()->setFollowsBook(true);
    EXPECT_TRUE(m_window->ticks()->followsBook());
    EXPECT_TRUE(
        m_window->openTicks(sample("bars/DFM00.csv")).reason().contains(QStringLiteral("DFM00.csv:1:")));
}

TEST_F(ClientWindow, ImportsAStockListAndSaysWhatItFound)
{
    const QString path = m_folder.filePath(QStringLiteral("list.csv"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("代码,名称\n600000,浦发银行\n600030,x\nnobody,y\n\n");
    file.close();
    QSignalSpy ended(m_window->basket(), &client::BasketPanel::sigImportEnded);
    QSignalSpy messages(m_window->basket(), &client::BasketPanel::sigMessage);
    m_window->basket()->importFile(path);
    ASSERT_TRUE(QTest::qWaitFor([&] { return ended.count() == 1; }));
    EXPECT_EQ(m_window->basket()->table()->getAllStock(),
              (QVector<QString> { QStringLiteral("SH600000"), QStringLiteral("SH600030") }));
    const QString line = messages.last().first().toString();
    EXPECT_TRUE(line.contains(QStringLiteral("识别 2 行"))) << line.toStdString();
    EXPECT_TRUE(line.contains(QStringLiteral("代码未知 1"))) << line.toStdString();
}

TEST_F(ClientWindow, RefusesStockListsOfUnknownKinds)
{
    QSignalSpy messages(m_window->basket(), &client::BasketPanel::sigMessage);
    m_window->basket()->importFile(QStringLiteral("list.pdf"));
    EXPECT_EQ(messages.count(), 1);
}

TEST_F(ClientWindow, LeavesTheMessagesAFewLinesBelowTheChart)
{
    const ads::CDockWidget* chart = m_window->docks()->dock(QStringLiteral("indexMainPanel"));
    const ads::CDockWidget* messages = m_window->docks()->dock(QStringLiteral("messagePanel"));
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return messages->height() >= 50 && chart->height() >= 6 * messages->height();
    })) << chart->height()
        << " and " << messages->height();
}

TEST_F(ClientWindow, RemembersItsArrangement)
{
    ads::CDockWidget* basket = m_window->docks()->dock(QStringLiteral("tradeBaskets"));
    ASSERT_NE(basket, nullptr);
    EXPECT_EQ(basket->windowTitle(), QStringLiteral("篮子管理"));
    basket->toggleView(false);
    m_window->close();
    m_window = std::make_unique<client::MainWindow>();
    showSettled(*m_window);
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return m_window->docks()->dock(QStringLiteral("tradeBaskets"))->isClosed(); }));
    EXPECT_FALSE(m_window->docks()->dock(QStringLiteral("indexMainPanel"))->isClosed());
}

TEST_F(ClientWindow, MarksItsRunUntilItIsClosed)
{
    const QString marker = QDir(TC::getConfigDir()).filePath(QStringLiteral("out.txt"));
    EXPECT_TRUE(QFile::exists(marker));
    m_window->close();
    EXPECT_FALSE(QFile::exists(marker));
}
