#include "engine/RecordBuilder.h"
#include "engine/formulas/BuiltIns.h"

namespace engine {

namespace {

/// Volume sticks, coloured by open and close, with simple moving averages of the volume.
FormulaRecords volume(const BarSeries& bars, const Arguments& arguments)
{
    constexpr bool offAxis = false;
    RecordBuilder builder(bars.timeMs);
    builder.output("VOL",
                   { builder.column(bars.volume), builder.column(bars.open, offAxis),
                     builder.column(bars.close, offAxis) },
                   { DrawType::Volume });
    for (std::size_t i = 0; i < arguments.size(); ++i)
        builder.line(numbered("MA", wholeNumber(arguments, i)), mean(bars.volume, wholeNumber(arguments, i)));
    return builder.take();
}

} // namespace

std::vector<BuiltIn> volumeFormulas()
{
    return { { { "VOL", "VOL", 0, { { "N1", 5, 1, 9999 }, { "N2", 10, 1, 9999 } } }, volume } };
}

} // namespace engine
