#include "engine/formulas/BuiltIns.h"

namespace engine {

namespace {

constexpr int kBuyColor = 0x003C3CE6;  // red: 0x00BBGGRR
constexpr int kSellColor = 0x0050AA28; // green

constexpr double kRectangle = 0.0, kEllipse = 1.0; // shapes of an icon

/// One of the two signals: where it stands and how it looks.
struct Signal
{
    const char* textName;
    const char* iconName;
    const char* text;
    double direction; ///< 1: the fast average rises through the slow one and the marks stand below the candle
    int color;
    double shape;
    double textDistance; ///< from the candle, in usual heights of a candle
};

constexpr double kIconDistance = 0.4; // as textDistance

// The painter centres a text by its baseline, so that the glyphs stand above the point: below the candle the
// text needs more distance than above it.
constexpr Signal kSignals[] = { { "买点", "金叉", "买", 1.0, kBuyColor, kEllipse, 1.4 },
                                { "卖点", "死叉", "卖", -1.0, kSellColor, kRectangle, 0.75 } };

/// The series of one signal that text and icon are drawn from.
struct Marks
{
    int condition, textPrice, iconPrice, text, shape;
};

/// @param reach  usual height of a candle; the marks keep their distance in it.
Marks addMarks(const Signal& signal, const Series& crossings, const Series& reach, const BarSeries& bars,
               RecordBuilder& records)
{
    const std::size_t count = bars.size();
    Series condition(count, 0.0), textPrice(count, kMissing), iconPrice(count, kMissing);
    std::vector<std::string> texts(count);
    for (std::size_t bar = 0; bar < count; ++bar) {
        const double edge = signal.direction > 0.0 ? bars.low[bar] : bars.high[bar];
        if (crossings[bar] != signal.direction || !isValue(edge))
            continue;
        const double distance = isValue(reach[bar]) ? reach[bar] * signal.direction : 0.0;
        condition[bar] = 1.0;
        iconPrice[bar] = valueOrMissing(edge - kIconDistance * distance);
        textPrice[bar] = valueOrMissing(edge - signal.textDistance * distance);
        texts[bar] = signal.text;
    }
    return { records.series(std::move(condition)), records.series(std::move(textPrice)),
             records.series(std::move(iconPrice)), records.texts(std::move(texts)),
             records.series(Series(count, signal.shape)) };
}

/// CROSSSIGNAL: 买 below the candle where MA(N1) rises through MA(N2) (golden cross), 卖 above it where it
/// falls through (death cross), each with a mark beside the candle. It belongs over the candles.
void compute(const FormulaInput& input, RecordBuilder& records)
{
    const BarSeries& bars = input.bars;
    const int slow = input.period(1);
    const Series crossings =
        crossingsOf(movingAverage(bars.close, input.period(0)), movingAverage(bars.close, slow));
    if (input.cancelled())
        return;
    const Series reach =
        movingAverage(combine(bars.high, bars.low, [](double a, double b) { return a - b; }), slow);
    std::vector<Marks> marks;
    for (const Signal& signal : kSignals)
        marks.push_back(addMarks(signal, crossings, reach, bars, records));

    for (std::size_t side = 0; side < marks.size(); ++side) {
        records.output(kSignals[side].textName, kText).color(kSignals[side].color).position(kCentred);
        records.column(marks[side].condition, Axis::No).column(marks[side].textPrice, Axis::Yes);
        records.textColumn(marks[side].text);
    }
    for (std::size_t side = 0; side < marks.size(); ++side) {
        records.output(kSignals[side].iconName, kIcon).color(kSignals[side].color).position(kCentred);
        records.column(marks[side].condition, Axis::No).column(marks[side].iconPrice, Axis::Yes);
        records.column(marks[side].shape, Axis::No);
    }
}

} // namespace

BuiltIn crossSignalFormula()
{
    return { { "CROSSSIGNAL", "CROSSSIGNAL", 1, { periodParameter("N1", 5), periodParameter("N2", 20) } },
             compute };
}

} // namespace engine
