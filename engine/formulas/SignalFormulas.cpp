#include "engine/RecordBuilder.h"
#include "engine/formulas/BuiltIns.h"

#include <algorithm>

namespace engine {

namespace {

constexpr int kRed = 0x0000FF, kGreen = 0x00FF00; // 0x00BBGGRR
constexpr int kCentred = 0;
constexpr double kEllipse = 1.0, kRectangle = 0.0;

/// 1.0 on bars where `a` rises above `b`: not above at the bar before, above now.
Series crossings(const Series& a, const Series& b)
{
    Series result(std::min(a.size(), b.size()), 0.0);
    for (std::size_t bar = 1; bar < result.size(); ++bar) {
        const bool known =
            !isMissing(a[bar]) && !isMissing(b[bar]) && !isMissing(a[bar - 1]) && !isMissing(b[bar - 1]);
        result[bar] = known && a[bar - 1] <= b[bar - 1] && a[bar] > b[bar] ? 1.0 : 0.0;
    }
    return result;
}

/// One kind of crossing: a text and an icon on the bars where it happens.
void addCrossing(RecordBuilder& builder, const char* name, const char* text, const Series& condition,
                 const Series& price, int color, double shape)
{
    constexpr bool offAxis = false;
    const std::size_t bars = condition.size();
    const int gate = builder.column(condition, offAxis), place = builder.column(price, offAxis);
    OutputStyle style { DrawType::Text, 1, kCentred, 0, color };
    builder.output(std::string(name) + "__noshow",
                   { gate, place, builder.textColumn(std::vector<std::string>(bars, text)) }, style);
    style.drawType = DrawType::Icon;
    builder.output(std::string(name) + "__noshow",
                   { gate, builder.column(price, offAxis), builder.column(Series(bars, shape), offAxis) },
                   style);
}

/// Golden cross (the short average rises above the long one: 买 below the low) and death cross (it falls
/// below: 卖 above the high) of two moving averages of the close.
FormulaRecords crossSignal(const BarSeries& bars, const Arguments& arguments)
{
    const Series fast = mean(bars.close, wholeNumber(arguments, 0)),
                 slow = mean(bars.close, wholeNumber(arguments, 1));
    RecordBuilder builder(bars.timeMs);
    addCrossing(builder, "金叉", "买", crossings(fast, slow), bars.low, kRed, kEllipse);
    addCrossing(builder, "死叉", "卖", crossings(slow, fast), bars.high, kGreen, kRectangle);
    return builder.take();
}

/// Number of days in a row that closed higher than the day before, shown above the high from `least` on.
FormulaRecords risingDays(const BarSeries& bars, const Arguments& arguments)
{
    constexpr bool offAxis = false;
    const Series moves = change(bars.close);
    Series days(bars.size(), 0.0), shown(bars.size(), 0.0);
    for (std::size_t bar = 1; bar < bars.size(); ++bar) {
        days[bar] = !isMissing(moves[bar]) && moves[bar] > 0.0 ? days[bar - 1] + 1.0 : 0.0;
        shown[bar] = days[bar] >= arguments[0] ? 1.0 : 0.0;
    }
    RecordBuilder builder(bars.timeMs);
    builder.output("连涨",
                   { builder.column(shown, offAxis), builder.column(bars.high, offAxis),
                     builder.column(days, offAxis), builder.column(Series(bars.size(), 0.0), offAxis) },
                   { DrawType::Number, 1, kCentred, 0, kRed });
    return builder.take();
}

/// A note at a fixed place of the pane: x and y in per mille of its width and height.
FormulaRecords note(const BarSeries& bars, const Arguments& arguments)
{
    constexpr bool offAxis = false;
    constexpr double perMille = 1.0;
    const std::size_t count = bars.size();
    RecordBuilder builder(bars.timeMs);
    const int condition = builder.column(Series(count, 1.0), offAxis),
              mode = builder.column(Series(count, perMille), offAxis);
    const int x = builder.column(Series(count, arguments[0]), offAxis),
              y = builder.column(Series(count, arguments[1]), offAxis);
    builder.output("注",
                   { condition, mode, x, y,
                     builder.textColumn(std::vector<std::string>(count, "MA5/MA20 金叉买 死叉卖")) },
                   { DrawType::FixedText, 1, kCentred, 0, -1 });
    return builder.take();
}

} // namespace

std::vector<BuiltIn> signalFormulas()
{
    return {
        { { "CROSSSIGNAL", "CROSSSIGNAL", 1, { { "SHORT", 5, 1, 9999 }, { "LONG", 20, 1, 9999 } } },
          crossSignal },
        { { "RISINGDAYS", "RISINGDAYS", 1, { { "LEAST", 3, 1, 9999 } } }, risingDays },
        { { "NOTE", "NOTE", 1, { { "X", 120, 0, 1000 }, { "Y", 60, 0, 1000 } } }, note },
    };
}

} // namespace engine
