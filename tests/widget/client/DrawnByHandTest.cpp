// SPDX-License-Identifier: MIT
/// @file What users put onto a chart by hand: price lines, measures, overlaid instruments, the order of
/// panes.

#include "apps/chart/ChartMeasures.h"
#include "apps/chart/PaneScale.h"
#include "tests/widget/client/ClientWindow.h"
#include "title/CIndexTitleWidget.h"

#include <QContextMenuEvent>
#include <QFileInfo>
#include <QMenu>

#include <algorithm>

using test::ClientWindow;
using test::sample;

namespace {

void send(QWidget* widget, QEvent::Type type, const QPoint& place, Qt::MouseButtons held,
          Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, place, widget->mapToGlobal(place), button, held, modifiers);
    QApplication::sendEvent(widget, &event);
}

void drag(QWidget* widget, const QPoint& from, const QPoint& to,
          Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    send(widget, QEvent::MouseButtonPress, from, Qt::LeftButton, modifiers);
    send(widget, QEvent::MouseMove, to, Qt::LeftButton, modifiers);
    send(widget, QEvent::MouseButtonRelease, to, Qt::NoButton, modifiers);
}

/// Opens the context menu of a widget and triggers the first entry that begins with a text, in the menu with
/// the given title or, without one, in any.
void choose(QWidget* widget, const QPoint& place, const QString& begin, const QString& title = QString())
{
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, widget->mapToGlobal(place));
    QApplication::sendEvent(widget, &event);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    bool isFound = false;
    for (QAction* action : menu->findChildren<QAction*>()) {
        auto* owner = qobject_cast<QMenu*>(action->parent());
        if (!action->text().startsWith(begin) || (!title.isEmpty() && (!owner || owner->title() != title)))
            continue;
        isFound = true;
        action->trigger();
        break;
    }
    EXPECT_TRUE(isFound) << begin.toStdString();
    menu->close();
}

QString formulaOf(client::ChartPane* pane)
{
    return pane->data()->getFormulas().value(0);
}

} // namespace

TEST_F(ClientWindow, DrawsAPriceLineWhereTheMenuWasOpened)
{
    openShare();
    paintNow(plot(0));
    const double price = plot(0)->priceAt(100).value_or(0.0);
    choose(plot(0), QPoint(300, 100), QStringLiteral("画价位线"));
    ASSERT_EQ(chart()->state()->priceLines().size(), 1u);
    EXPECT_EQ(chart()->state()->priceLines().front(), price);
    EXPECT_TRUE(textsOf(plot(0)).contains(QString::number(price, 'f', 2)));
}

TEST_F(ClientWindow, TagsOfPricesStandBelowEachOtherFromTheHighest)
{
    openShare();
    const double last = chart()->state()->bars()->close.back();
    chart()->state()->addPriceLine(last + 0.02);
    chart()->state()->addPriceLine(last - 0.02);
    const auto rowOf = [&](const QStringList& lines, double price) {
        const QRegularExpression text(QStringLiteral("^text [^,]+,(-?[\\d.]+) \"%1\"")
                                          .arg(QRegularExpression::escape(QString::number(price, 'f', 2))));
        const QStringList found = lines.filter(text);
        return found.isEmpty() ? 0.0 : text.match(found.first()).captured(1).toDouble();
    };
    constexpr double tagHeight = 18.0;
    for (const int height : { 860, 500 }) { // rows of 0.025 and of 0.1: the prices share one there
        m_window->resize(1400, height);
        const QStringList lines = test::traceOf([&](QPainter& painter) { plot(0)->paintOn(painter); });
        EXPECT_EQ(rowOf(lines, last) - rowOf(lines, last + 0.02), tagHeight) << height;
        EXPECT_EQ(rowOf(lines, last - 0.02) - rowOf(lines, last), tagHeight) << height;
    }
}

TEST_F(ClientWindow, APriceLineIsDraggedAndRemoved)
{
    openShare();
    paintNow(plot(0));
    chart()->state()->addPriceLine(*plot(0)->priceAt(100));
    paintNow(plot(0));
    drag(plot(0), QPoint(300, 100), QPoint(300, 160));
    const std::vector<double> lines = chart()->state()->priceLines();
    ASSERT_EQ(lines.size(), 1u);
    paintNow(plot(0));
    EXPECT_EQ(lines.front(), *plot(0)->priceAt(160));
    choose(plot(0), QPoint(300, 160), QStringLiteral("删除价位线"));
    EXPECT_TRUE(chart()->state()->priceLines().empty());
}

TEST_F(ClientWindow, PriceLinesBelongToTheirInstrumentAndAreKept)
{
    openShare();
    chart()->state()->addPriceLine(26.5);
    chart()->state()->addPriceLine(25.5);
    ASSERT_TRUE(m_window->openBars(sample("bars/SFCU00.csv")).isGood());
    EXPECT_TRUE(chart()->state()->priceLines().empty());
    openShare();
    EXPECT_EQ(chart()->state()->priceLines(), (std::vector<double> { 25.5, 26.5 }));
    m_window->close();
    m_window = std::make_unique<client::MainWindow>();
    m_window->show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return chart()->state()->barTotal() > 0; }));
    EXPECT_EQ(chart()->state()->priceLines(), (std::vector<double> { 25.5, 26.5 }));
    chart()->state()->clearPriceLines();
    EXPECT_TRUE(chart()->state()->priceLines().empty());
}

TEST_F(ClientWindow, MeasuresBarsAndChangeWithShift)
{
    openShare();
    client::ChartState* state = chart()->state();
    const int first = state->first();
    paintNow(plot(0));
    drag(plot(0), QPoint(200, 150), QPoint(420, 60), Qt::ShiftModifier);
    EXPECT_EQ(state->first(), first) << "the bars stay";
    ASSERT_TRUE(plot(0)->measure());
    const chart::BarView view = state->view(plot(0)->width() - chart::kAxisWidth);
    const client::Measure measure = *plot(0)->measure();
    EXPECT_EQ(measure.from.bar, view.barAt(200));
    EXPECT_EQ(measure.to.bar, view.barAt(420));
    EXPECT_NEAR(measure.from.value, *plot(0)->priceAt(150), 0.005001);
    const double change = measure.to.value - measure.from.value;
    EXPECT_GT(change, 0.0);
    const QString told = QStringLiteral("%1 根  +%2  +%3%")
                             .arg(measure.to.bar - measure.from.bar)
                             .arg(change, 0, 'f', 2)
                             .arg(change / measure.from.value * 100.0, 0, 'f', 2);
    const QString texts = textsOf(plot(0)).join(QString()); // a text of two scripts is painted in parts
    EXPECT_TRUE(texts.contains(told)) << texts.toStdString();

    QTest::keyClick(chart(), Qt::Key_Escape);
    EXPECT_FALSE(plot(0)->measure());
}

TEST_F(ClientWindow, AMeasureStaysOnItsBarsUntilTheNextPress)
{
    openShare();
    paintNow(plot(2));
    drag(plot(2), QPoint(200, 20), QPoint(400, 40), Qt::ShiftModifier);
    ASSERT_TRUE(plot(2)->measure());
    const int bar = plot(2)->measure()->from.bar;
    chart()->state()->pan(-20);
    EXPECT_EQ(plot(2)->measure()->from.bar, bar);
    drag(plot(2), QPoint(100, 20), QPoint(101, 20));
    EXPECT_FALSE(plot(2)->measure());
}

TEST_F(ClientWindow, EveryPaneShowsTheBarsThatAreMeasuredInOne)
{
    openShare();
    const auto pictureOf = [&](std::size_t pane) { return plot(pane)->grab().toImage(); };
    const QImage prices = pictureOf(0), volumes = pictureOf(1);
    drag(plot(2), QPoint(200, 20), QPoint(400, 40), Qt::ShiftModifier);
    QTest::qWait(1);
    ASSERT_TRUE(plot(2)->measure());
    EXPECT_FALSE(plot(0)->measure());
    moveTo(plot(2), QPoint(plot(2)->width() - 2, 20)); // no crosshair
    EXPECT_NE(pictureOf(0), prices);
    EXPECT_NE(pictureOf(1), volumes);
    EXPECT_NE(pictureOf(1).pixel(300, 2), volumes.pixel(300, 2));
    EXPECT_EQ(pictureOf(1).pixel(150, 2), volumes.pixel(150, 2)) << "beside the measured bars";

    drag(plot(0), QPoint(100, 20), QPoint(300, 60), Qt::ShiftModifier);
    EXPECT_TRUE(plot(0)->measure());
    EXPECT_FALSE(plot(2)->measure()) << "there is one measure";
    QTest::keyClick(chart(), Qt::Key_Escape);
    moveTo(plot(0), QPoint(plot(0)->width() - 2, 20));
    EXPECT_EQ(pictureOf(1), volumes);
}

TEST_F(ClientWindow, AnOverlayStandsTogetherAtItsOwnPricesOrAsHighAsThePane)
{
    openShare();
    ASSERT_TRUE(m_window->overlayBars(sample("bars/SH510050.csv")).isGood());
    client::PaneData* data = panes()[0]->data();
    ASSERT_TRUE(QTest::qWaitFor([&] { return data->getData().size() == 3; }));
    const chart::BarView view = chart()->state()->view(600);
    const QString title = QStringLiteral("叠加 50ETF");
    const auto rangeAlone = [&](const chart::PaneContent& content) {
        chart::PaneContent alone = content;
        alone.formulas = { content.formulas.back() };
        alone.formulas.front().ownScale = false;
        return chart::visibleRange(alone, view);
    };
    choose(plot(0), QPoint(300, 100), QStringLiteral("同一坐标"), title);
    ASSERT_TRUE(QTest::qWaitFor([&] { return data->getData().size() == 3; }));
    EXPECT_EQ(data->content().formulas.back().scale, 1.0f);
    EXPECT_LT(chart::visibleRange(data->content(), view).second, 5.0) << "the fund stands at about 3 yuan";

    choose(plot(0), QPoint(300, 100), QStringLiteral("独立坐标"), title);
    ASSERT_TRUE(QTest::qWaitFor([&] { return data->getData().size() == 3; }));
    for (const chart::AxisKind kind : { chart::AxisKind::Linear, chart::AxisKind::Logarithmic }) {
        chart()->state()->setAxisKind(kind);
        const chart::PaneContent own = data->content();
        const QPair<double, double> range = chart::visibleRange(own, view);
        EXPECT_NEAR(rangeAlone(own).first, range.first, (range.first - range.second) * 1e-6);
        EXPECT_NEAR(rangeAlone(own).second, range.second, (range.first - range.second) * 1e-6);
    }
    choose(plot(0), QPoint(300, 100), QStringLiteral("移除"), title);
    EXPECT_TRUE(data->overlays().empty());
    EXPECT_EQ(data->getData().size(), 2);
}

TEST_F(ClientWindow, AnOverlayFollowsThePeriod)
{
    openShare();
    ASSERT_TRUE(m_window->overlayBars(sample("bars/SH510050.csv")).isGood());
    client::PaneData* data = panes()[0]->data();
    chart()->state()->setPeriod(QStringLiteral("MONTH"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return data->getData().size() == 3; }));
    const chart::PaneContent content = data->content();
    EXPECT_EQ(content.formulas.back().records->result.barTimes.size(), chart()->state()->bars()->size());
    const auto& own = content.formulas.front().records->result.numberSeries[3];
    const auto& other = content.formulas.back().records->result.numberSeries[3];
    const auto first = static_cast<std::size_t>(chart()->state()->first());
    EXPECT_NEAR(other[first] * static_cast<double>(content.formulas.back().scale), own[first],
                own[first] * 1e-5);
}

TEST_F(ClientWindow, OverlaysAreKeptForTheNextRunWithTheirScales)
{
    openShare();
    ASSERT_TRUE(
        m_window->overlayBars(sample("bars/SH510050.csv"), client::PaneData::OverlayScale::Own).isGood());
    ASSERT_TRUE(m_window->overlayBars(sample("bars/SH000001.csv")).isGood());
    m_window->close();
    m_window = std::make_unique<client::MainWindow>();
    m_window->resize(1400, 860);
    showSettled(*m_window);
    ASSERT_TRUE(QTest::qWaitFor([&] { return panes()[0]->data()->overlays().size() == 2; }));
    const std::vector<client::PaneData::Overlay>& overlays = panes()[0]->data()->overlays();
    EXPECT_EQ(overlays[0].scale, client::PaneData::OverlayScale::Own);
    EXPECT_EQ(overlays[1].scale, client::PaneData::OverlayScale::Together);
    EXPECT_EQ(overlays[0].path, QFileInfo(sample("bars/SH510050.csv")).absoluteFilePath());
}

TEST_F(ClientWindow, AnOverlayThatIsLaidOverAgainTakesThePlaceOfTheFirst)
{
    openShare();
    ASSERT_TRUE(m_window->overlayBars(sample("bars/SH510050.csv")).isGood());
    ASSERT_TRUE(
        m_window->overlayBars(sample("bars/SH510050.csv"), client::PaneData::OverlayScale::Same).isGood());
    ASSERT_EQ(panes()[0]->data()->overlays().size(), 1U);
    EXPECT_EQ(panes()[0]->data()->overlays()[0].scale, client::PaneData::OverlayScale::Same);
}

TEST_F(ClientWindow, DraggingAStripBringsItsPaneToAnotherPlace)
{
    openShare();
    ASSERT_EQ(formulaOf(panes()[1]), QStringLiteral("VOL"));
    QWidget* strip = panes()[2]->title();
    const QPoint inVolumes = strip->mapFromGlobal(panes()[1]->mapToGlobal(QPoint(100, 10)));
    drag(strip, QPoint(100, 5), inVolumes);
    EXPECT_EQ(formulaOf(panes()[1]), QStringLiteral("MACD"));
    EXPECT_EQ(formulaOf(panes()[2]), QStringLiteral("VOL"));
    QTest::qWait(1); // the splitter lays its panes out
    EXPECT_LT(panes()[1]->mapToGlobal(QPoint()).y(), panes()[2]->mapToGlobal(QPoint()).y());

    strip = panes()[1]->title();
    drag(strip, QPoint(100, 5), strip->mapFromGlobal(panes()[0]->mapToGlobal(QPoint(100, 10))));
    EXPECT_TRUE(panes()[0]->isMain()) << "the main pane stays the first";
}
