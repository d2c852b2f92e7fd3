// SPDX-License-Identifier: MIT
/// @file Everything that the pointer reaches, by keys.

#include "apps/chart/ChartMeasures.h"
#include "apps/client/PanelIds.h"
#include "apps/client/chart/TickView.h"
#include "apps/client/lists/MessageList.h"
#include "tests/widget/client/ClientWindow.h"

#include <QMenu>

using test::ClientWindow;
using test::sample;

TEST_F(ClientWindow, MovesTheCrosshairByOneBarWithTheCursorKeys)
{
    openShare();
    client::ChartState* state = chart()->state();
    const int newest = state->barTotal() - 1, first = state->first();
    QTest::keyClick(chart(), Qt::Key_Left);
    EXPECT_EQ(state->crosshairBar(), newest) << "it appears on the last bar in view";
    QTest::keyClick(chart(), Qt::Key_Left);
    EXPECT_EQ(state->crosshairBar(), newest - 1);
    QTest::keyClick(chart(), Qt::Key_Right);
    QTest::keyClick(chart(), Qt::Key_Right);
    EXPECT_EQ(state->crosshairBar(), newest) << "there is nothing behind the newest";
    state->setCrosshairBar(first);
    QTest::keyClick(chart(), Qt::Key_Left);
    EXPECT_EQ(state->crosshairBar(), first - 1);
    EXPECT_EQ(state->first(), first - 1) << "the chart follows";
    QTest::keyClick(chart(), Qt::Key_Escape);
    EXPECT_EQ(state->crosshairBar(), -1);
}

TEST_F(ClientWindow, TakesTheCrosshairFromARestingPointerByKeys)
{
    openShare();
    client::ChartState* state = chart()->state();
    moveTo(plot(0), QPoint(300, 40));
    const int pointed = state->crosshairBar();
    ASSERT_GE(pointed, 0);
    QTest::keyClick(chart(), Qt::Key_Left);
    EXPECT_EQ(state->crosshairBar(), pointed - 1);
    for (int times = 0; times < 100; ++times)
        QTest::keyClick(chart(), Qt::Key_Left);
    EXPECT_EQ(state->crosshairBar(), pointed - 101);
    EXPECT_LE(state->first(), state->crosshairBar());
    moveTo(plot(0), QPoint(301, 40));
    EXPECT_EQ(state->crosshairBar(), state->view(plot(0)->width() - chart::kAxisWidth).barAt(301));
}

TEST_F(ClientWindow, ZoomsByPlusAndMinus)
{
    openShare();
    const client::ChartState* state = chart()->state();
    const auto shown = [state] { return state->last() - state->first() + 1; };
    const int before = shown();
    QTest::keyClick(chart(), Qt::Key_Plus);
    EXPECT_LT(shown(), before);
    QTest::keyClick(chart(), Qt::Key_Plus, Qt::ShiftModifier);
    const int nearer = shown();
    QTest::keyClick(chart(), Qt::Key_Minus);
    EXPECT_GT(shown(), nearer);
}

TEST_F(ClientWindow, MovesTheCrosshairOfTheTickPageByKeys)
{
    ASSERT_TRUE(m_window->openTicks(sample("ticks/SYNTHETIC-five-levels.csv")).isGood());
    client::ChartState* state = m_window->ticks()->state();
    QTest::keyClick(m_window->ticks(), Qt::Key_Left);
    QTest::keyClick(m_window->ticks(), Qt::Key_Left);
    EXPECT_EQ(state->crosshairBar(), state->barTotal() - 2);
}

TEST_F(ClientWindow, GoesThroughTheOpenPanelsByF6AndBack)
{
    m_window->activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([this] { return m_window->isActiveWindow(); }));
    chart()->setFocus();
    QStringList visited;
    const auto current = [this]() -> QString {
        for (const QString& id : client::panelIds()) {
            const ads::CDockWidget* dock = m_window->docks()->dock(id);
            if (QApplication::focusWidget() && dock->isAncestorOf(QApplication::focusWidget()))
                return id;
        }
        return QString();
    };
    for (int step = 0; step < client::panelIds().size(); ++step) {
        entry(QStringLiteral("下一面板"))->trigger();
        visited << current();
    }
    QStringList wanted = client::panelIds();
    wanted << wanted.takeFirst();
    EXPECT_EQ(visited, wanted);
    entry(QStringLiteral("上一面板"))->trigger();
    EXPECT_EQ(current(), client::panelIds().back());
}

TEST_F(ClientWindow, OpensTheMenusOfAllPanesByTheMenuKey)
{
    openShare();
    QTest::keyClick(chart(), Qt::Key_Menu);
    QMenu* menu = nullptr;
    ASSERT_TRUE(QTest::qWaitFor([&] {
        menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        return menu != nullptr;
    }));
    QStringList titles;
    for (const QAction* action : menu->actions())
        titles << action->text();
    EXPECT_EQ(titles,
              (QStringList { QStringLiteral("KLINE, MA"), QStringLiteral("VOL"), QStringLiteral("MACD") }));
    menu->close();
}

TEST_F(ClientWindow, LeadsTheTabKeyToEveryFieldAndButtonThatIsShown)
{
    openShare();
    const auto isReached = [](const QWidget* wanted, QWidget* from) {
        for (QWidget* at = from->nextInFocusChain(); at != from; at = at->nextInFocusChain()) {
            const QWidget* proxied = at->focusProxy() ? at->focusProxy() : at;
            if (proxied == wanted && (at->focusPolicy() & Qt::TabFocus))
                return true;
        }
        return false;
    };
    int asked = 0;
    for (QWidget* widget : m_window->findChildren<QWidget*>()) {
        const bool isWorked = widget->inherits("QLineEdit") || widget->inherits("QComboBox")
            || widget->inherits("QPushButton") || widget->inherits("QAbstractItemView");
        if (!isWorked || !widget->isVisible() || widget->inherits("QHeaderView")
            || widget->focusPolicy() == Qt::NoFocus)
            continue;
        ++asked;
        EXPECT_TRUE(isReached(widget, chart())) << widget->metaObject()->className();
    }
    EXPECT_GT(asked, 3);
}

namespace {

/// Of the offscreen platform alone, where a window is active when it says so.
class VisibleFocus : public ClientWindow
{
protected:
    void SetUp() override
    {
        if (QGuiApplication::platformName() != QLatin1String("offscreen"))
            GTEST_SKIP();
        openShare();
    }

    /// Pixels along the widget's upper edge that tell whether it has the keyboard.
    static int toldBy(QWidget* widget)
    {
        widget->window()->activateWindow();
        widget->setFocus(Qt::TabFocusReason);
        EXPECT_TRUE(QTest::qWaitFor([widget] { return widget->hasFocus(); }));
        const QImage with = widget->grab().toImage();
        widget->clearFocus();
        const QImage without = widget->grab().toImage();
        int told = 0;
        for (int x = 0; x < with.width(); ++x)
            told +=
                with.pixel(x, 0) != without.pixel(x, 0) || with.pixel(x, 1) != without.pixel(x, 1) ? 1 : 0;
        return told;
    }

    /// Those that are worked by keys and stand open now.
    static QList<QWidget*> worked()
    {
        QList<QWidget*> found;
        const QWidgetList all = QApplication::allWidgets();
        for (QWidget* widget : all) {
            const bool isWorked = widget->inherits("QLineEdit") || widget->inherits("QAbstractItemView")
                || widget->inherits("QPlainTextEdit");
            if (isWorked && widget->isVisible() && !widget->inherits("QHeaderView")
                && (widget->focusPolicy() & Qt::TabFocus))
                found << widget;
        }
        return found;
    }
};

} // namespace

TEST_F(VisibleFocus, FramesEachFieldListTableAndTextInEverySkin)
{
    entry(QStringLiteral("快捷键…"))->trigger();
    const QStringList skins = TC::embedded::skinNames();
    int asked = 0;
    for (const QString& skin : skins) {
        m_window->chooseSkin(skin);
        for (const QLatin1String panel : { client::kBasketPanel, client::kQuotePanel }) {
            m_window->docks()->dock(panel)->setAsCurrentTab();
            for (QWidget* widget : worked()) {
                ++asked;
                EXPECT_GT(toldBy(widget), widget->width() * 3 / 4)
                    << widget->metaObject()->className() << ' ' << widget->accessibleName().toStdString();
            }
        }
    }
    EXPECT_GT(asked, 30);
    m_window->chooseSkin(skins.front());
}

TEST_F(VisibleFocus, FramesTheChartAndTheTickPageOnAllSides)
{
    ASSERT_TRUE(m_window->openTicks(sample("ticks/VALE3-2025-04-07.csv")).isGood());
    const std::pair<QString, QWidget*> pages[] = { { client::kChartPanel, chart() },
                                                   { client::kTickPanel, m_window->ticks() } };
    for (const auto& [panel, page] : pages) {
        m_window->docks()->dock(panel)->setAsCurrentTab();
        m_window->activateWindow();
        page->setFocus();
        ASSERT_TRUE(QTest::qWaitFor([page = page] { return page->hasFocus(); }));
        const QImage image = page->grab().toImage();
        const QRgb frame = page->palette().color(QPalette::Highlight).rgb();
        for (const QPoint& place :
             { QPoint(image.width() / 2, 0), QPoint(image.width() / 2, image.height() - 1),
               QPoint(0, image.height() / 2), QPoint(image.width() - 1, image.height() / 2) })
            EXPECT_EQ(image.pixelColor(place).rgb(), frame) << place.x() << ' ' << place.y();
    }
}

TEST_F(VisibleFocus, LeavesNoFrameBehindAndFollowsASizeThatChanges)
{
    auto* list = m_window->findChild<client::MessageList*>();
    list->setFocus();
    const auto frameOf = [](const QWidget* area) {
        return area->findChild<QWidget*>(QStringLiteral("focusFrame"), Qt::FindDirectChildrenOnly);
    };
    ASSERT_NE(frameOf(list), nullptr);
    EXPECT_EQ(frameOf(list)->size(), list->size());
    list->resize(list->size() - QSize(20, 10));
    EXPECT_EQ(frameOf(list)->size(), list->size());
    chart()->setFocus();
    EXPECT_EQ(frameOf(list), nullptr);
}
