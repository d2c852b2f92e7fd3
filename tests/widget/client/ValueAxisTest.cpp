// SPDX-License-Identifier: MIT
/// @file The value axis: dragged, reset, counted in logarithms, percent and points; the magnetic crosshair.

#include "apps/chart/ChartMeasures.h"
#include "apps/client/output/PageOutput.h"
#include "host/WB/SkinLookup.h"
#include "tests/widget/client/ClientWindow.h"
#include "title/CIndexTitleWidget.h"

#include <QFontMetrics>

#include <algorithm>
#include <cmath>

using test::ClientWindow;
using test::sample;

namespace {

void send(QWidget* widget, QEvent::Type type, const QPoint& place, Qt::MouseButtons held)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, place, button, held, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

QPoint onAxis(const QWidget* plot, int row)
{
    return QPoint(plot->width() - chart::kAxisWidth / 2, row);
}

/// The texts of an axis that are numbers, percent signs taken off.
QVector<double> numbersOf(const QStringList& texts)
{
    QVector<double> numbers;
    for (QString text : texts) {
        bool isNumber = false;
        const double number = text.remove(QLatin1Char('%')).toDouble(&isNumber);
        if (isNumber)
            numbers << number;
    }
    return numbers;
}

double greatest(const QVector<double>& numbers)
{
    return *std::max_element(numbers.begin(), numbers.end());
}

} // namespace

TEST_F(ClientWindow, DraggingAnAxisDownShowsMoreValuesAndADoubleClickTheUsualOnes)
{
    openShare();
    const double before = greatest(numbersOf(textsOf(plot(2))));
    send(plot(2), QEvent::MouseButtonPress, onAxis(plot(2), 20), Qt::LeftButton);
    send(plot(2), QEvent::MouseMove, onAxis(plot(2), 20 + plot(2)->height() / 2), Qt::LeftButton);
    send(plot(2), QEvent::MouseButtonRelease, onAxis(plot(2), 60), Qt::NoButton);
    EXPECT_NEAR(plot(2)->stretch(), std::sqrt(6.0), 0.1);
    EXPECT_NE(greatest(numbersOf(textsOf(plot(2)))), before);
    EXPECT_EQ(plot(0)->stretch(), 1.0) << "each pane has an axis of its own";
    send(plot(2), QEvent::MouseButtonDblClick, onAxis(plot(2), 30), Qt::LeftButton);
    EXPECT_EQ(plot(2)->stretch(), 1.0);
    EXPECT_EQ(greatest(numbersOf(textsOf(plot(2)))), before);
}

TEST_F(ClientWindow, ADragOnTheAxisNeverMovesTheBars)
{
    openShare();
    const int first = chart()->state()->first();
    send(plot(0), QEvent::MouseButtonPress, onAxis(plot(0), 20), Qt::LeftButton);
    send(plot(0), QEvent::MouseMove, QPoint(30, 90), Qt::LeftButton);
    send(plot(0), QEvent::MouseButtonRelease, QPoint(30, 90), Qt::NoButton);
    EXPECT_EQ(chart()->state()->first(), first);
    EXPECT_GT(plot(0)->stretch(), 1.0);
}

TEST_F(ClientWindow, APercentAxisCountsFromTheFirstShownClose)
{
    openShare();
    entry(QStringLiteral("百分比坐标"))->trigger();
    const client::ChartState* state = chart()->state();
    const QStringList texts = textsOf(plot(0));
    EXPECT_TRUE(texts.contains(QStringLiteral("0%"))) << texts.join(QLatin1Char('|')).toStdString();
    const auto& closes = state->bars()->close;
    const double change = (closes.back() / closes[static_cast<std::size_t>(state->first())] - 1.0) * 100.0;
    const QString told =
        (change > 0 ? QStringLiteral("+") : QString()) + QString::number(change, 'f', 2) + QLatin1Char('%');
    EXPECT_TRUE(texts.contains(told))
        << told.toStdString() << " not in " << texts.join(QLatin1Char('|')).toStdString();
    entry(QStringLiteral("指数坐标（起点为100）"))->trigger();
    EXPECT_TRUE(textsOf(plot(0)).contains(QStringLiteral("100")));
    EXPECT_TRUE(textsOf(plot(0)).contains(QString::number(change + 100.0, 'f', 2)));
}

TEST_F(ClientWindow, ALogarithmicAxisGivesEqualRatiosEqualHeights)
{
    ASSERT_TRUE(m_window
                    ->openBars(barsFile("SH600001.csv",
                                        "2024-01-02,10,10,10,10,1\n2024-01-03,20,20,20,20,1\n"
                                        "2024-01-04,40,40,40,40,1\n2024-01-05,80,80,80,80,1\n"))
                    .isGood());
    awaitResults();
    chart()->state()->setMagnetic(true);
    const auto rowsOfCloses = [&] {
        QVector<int> rows;
        for (int bar = 0; bar < 4; ++bar) {
            const chart::BarView view = chart()->state()->view(plot(0)->width() - chart::kAxisWidth);
            moveTo(plot(0), QPoint(view.centre(bar), 5));
            rows << plot(0)->crosshairRow().value_or(-1);
        }
        return rows;
    };
    paintNow(plot(0));
    const QVector<int> linear = rowsOfCloses();
    EXPECT_NEAR(linear[2] - linear[3], 4 * (linear[0] - linear[1]), 6);
    entry(QStringLiteral("对数坐标"))->trigger();
    paintNow(plot(0));
    const QVector<int> rows = rowsOfCloses();
    EXPECT_NEAR(rows[0] - rows[1], rows[1] - rows[2], 2);
    EXPECT_NEAR(rows[1] - rows[2], rows[2] - rows[3], 2);
    EXPECT_GT(rows[0] - rows[1], 20);
}

TEST_F(ClientWindow, ALogarithmicAxisSaysPricesInEveryText)
{
    openShare();
    entry(QStringLiteral("对数坐标"))->trigger();
    chart()->state()->show(0, chart()->state()->barTotal() - 1);
    const auto& bars = *chart()->state()->bars();
    const double highest = *std::max_element(bars.high.begin(), bars.high.end());
    const double lowest = *std::min_element(bars.low.begin(), bars.low.end());
    const QStringList texts = textsOf(plot(0));
    EXPECT_TRUE(texts.contains(QString::number(highest, 'f', 2)))
        << texts.join(QLatin1Char('|')).toStdString();
    EXPECT_TRUE(texts.contains(QString::number(lowest, 'f', 2)))
        << texts.join(QLatin1Char('|')).toStdString();
    const QVector<double> numbers = numbersOf(texts);
    EXPECT_GE(numbers.size(), 6);
    for (double number : numbers) {
        EXPECT_GE(number, lowest / 2);
        EXPECT_LE(number, highest * 2);
    }
}

TEST_F(ClientWindow, TheMagneticCrosshairTellsTheCloseOfItsBar)
{
    openShare();
    entry(QStringLiteral("十字光标吸附收盘价"))->trigger();
    paintNow(plot(0));
    moveTo(plot(0), QPoint(200, 5));
    const auto& closes = chart()->state()->bars()->close;
    const double close = closes[static_cast<std::size_t>(chart()->state()->crosshairBar())];
    paintNow(plot(0));
    const QStringList texts = textsOf(plot(0));
    EXPECT_TRUE(texts.contains(QString::number(close, 'f', 2))) << texts.join(QLatin1Char('|')).toStdString();
    EXPECT_NE(plot(0)->crosshairRow(), 5);
}

TEST_F(ClientWindow, KeepsTheAxesForTheNextRun)
{
    openShare();
    chart()->state()->setAxisKind(chart::AxisKind::Logarithmic);
    chart()->state()->setMagnetic(true);
    plot(1)->setStretch(2.5);
    m_window->close();
    m_window = std::make_unique<client::MainWindow>();
    m_window->show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return chart()->state()->barTotal() > 0; }));
    EXPECT_EQ(chart()->state()->axisKind(), chart::AxisKind::Logarithmic);
    EXPECT_TRUE(chart()->state()->isMagnetic());
    EXPECT_EQ(plot(1)->stretch(), 2.5);
}

TEST_F(ClientWindow, TellsPricesBelowATenThousandthOnAxisTagAndLegend)
{
    QByteArray rows;
    for (int day = 1; day <= 28; ++day) {
        const QByteArray price = QByteArray("0.0000") + QByteArray::number(1000 + 7 * day);
        rows += "2024-02-" + QByteArray::number(day).rightJustified(2, '0') + ',' + price + ',' + price + ','
            + price + ',' + price + ",9\n";
    }
    ASSERT_TRUE(m_window->openBars(barsFile("ABC.csv", rows)).isGood());
    awaitResults();
    paintNow(plot(0));
    moveTo(plot(0), QPoint(100, plot(0)->height() / 2));
    const QStringList texts = textsOf(plot(0));
    const QVector<double> numbers = numbersOf(texts);
    ASSERT_GE(numbers.size(), 4); // three labels and the tag of the crosshair
    for (double number : numbers) {
        EXPECT_GT(number, 0.000009) << texts.join(QLatin1Char(' ')).toStdString();
        EXPECT_LT(number, 0.000013);
    }
    const QFontMetrics metrics(WB::skinFont("fnt_graph_axis_text", plot(0)->font()));
    for (const QString& text : texts)
        EXPECT_LE(metrics.horizontalAdvance(text), chart::kAxisWidth - 2) << text.toStdString();
    const QString legend = textsPainted([&](QPainter& painter) {
                               client::PageOutput(chart()).paint(painter);
                           }).join(QLatin1Char(' '));
    EXPECT_TRUE(legend.contains(QStringLiteral("0.00001196"))) << legend.toStdString();
    EXPECT_TRUE(legend.contains(QStringLiteral("ABC"))) << "a short name is whole";
    EXPECT_FALSE(legend.contains(QStringLiteral("复权"))) << "files do not say whether prices are adjusted";
}

TEST_F(ClientWindow, CountsContractsInWholeNumbers)
{
    QByteArray rows;
    for (int day = 1; day <= 28; ++day)
        rows += "2024-02-" + QByteArray::number(day).rightJustified(2, '0') + ",10,11,9,10,"
            + QByteArray::number(day % 5 + 1) + '\n';
    ASSERT_TRUE(m_window->openBars(barsFile("FEW.csv", rows)).isGood());
    awaitResults();
    paintNow(plot(1));
    moveTo(plot(1), QPoint(100, plot(1)->height() / 2));
    const QStringList texts = textsOf(plot(1));
    ASSERT_GE(texts.size(), 3);
    for (const QString& text : texts)
        EXPECT_FALSE(text.contains(QLatin1Char('.'))) << text.toStdString();
}

TEST_F(ClientWindow, CandlesStandInTheMiddleOfTheirSlotsAtTheClosestZoom)
{
    QByteArray rows;
    for (int day = 1; day <= 28; ++day)
        rows += "2024-02-" + QByteArray::number(day).rightJustified(2, '0') + ",10,12,8,11,9\n";
    ASSERT_TRUE(m_window->openBars(barsFile("MID.csv", rows)).isGood());
    chart()->state()->setMargin(0);
    awaitResults();
    chart()->state()->show(10, 19);
    const QImage picture = plot(0)->grab().toImage();
    const chart::BarView view = chart()->state()->view(plot(0)->width() - chart::kAxisWidth);
    const QRgb rise = WB::skinColor("ic_clr_kline_rise").rgb();
    int left = picture.width(), right = -1;
    const int slot = static_cast<int>(view.slotWidth());
    for (int x = 0; x < slot; ++x) { // the first slot holds one candle
        int inked = 0;
        for (int y = 0; y < picture.height(); ++y)
            inked += picture.pixel(x, y) == rise ? 1 : 0;
        if (inked < 5) // the line of the last price, or inside the body
            continue;
        left = std::min(left, x);
        right = std::max(right, x);
    }
    ASSERT_GT(right - left, slot / 2);
    EXPECT_NEAR(left, slot - 1 - right, 2);
    EXPECT_NEAR(view.centre(10), (left + right) / 2.0, 1.0);
}
