#include "engine/Formulas.h"

#include "engine/formulas/BuiltIns.h"

#include <algorithm>
#include <cmath>

namespace engine {

namespace {

const std::vector<BuiltIn>& allFormulas()
{
    static const std::vector<BuiltIn> formulas {
        candlesFormula(), movingAverageFormula(), bollingerFormula(),   volumeFormula(),     macdFormula(),
        kdjFormula(),     rsiFormula(),           crossSignalFormula(), risingDaysFormula(), noteFormula()
    };
    return formulas;
}

/// A complete list of parameters, every one within its range.
std::vector<double> soundParameters(const std::vector<Parameter>& asked, const std::vector<double>& given)
{
    std::vector<double> sound;
    for (std::size_t index = 0; index < asked.size(); ++index) {
        const Parameter& parameter = asked[index];
        const bool isGiven = index < given.size() && !std::isnan(given[index]);
        sound.push_back(
            std::clamp(isGiven ? given[index] : parameter.value, parameter.least, parameter.greatest));
    }
    return sound;
}

/// One entry per bar, the marker for everything that is no value.
Series cleaned(const Series& values, std::size_t count)
{
    Series clean(count, kMissing);
    for (std::size_t bar = 0; bar < std::min(count, values.size()); ++bar)
        clean[bar] = valueOrMissing(values[bar]);
    return clean;
}

BarSeries cleaned(const BarSeries& bars)
{
    const std::size_t count = bars.size();
    const auto optional = [&](const Series& values) {
        return values.empty() ? values : cleaned(values, count);
    };
    return { bars.timeMs,
             cleaned(bars.open, count),
             cleaned(bars.high, count),
             cleaned(bars.low, count),
             cleaned(bars.close, count),
             cleaned(bars.volume, count),
             optional(bars.amount),
             optional(bars.openInterest) };
}

const BuiltIn* find(const std::string& name)
{
    const auto found = std::find_if(allFormulas().begin(), allFormulas().end(),
                                    [&](const BuiltIn& formula) { return formula.description.name == name; });
    return found == allFormulas().end() ? nullptr : &*found;
}

} // namespace

Parameter periodParameter(const std::string& name, double value, double least)
{
    return { name, value, least, kLongestPeriod };
}

std::string periodName(const std::string& prefix, int period)
{
    return prefix + std::to_string(period);
}

const std::vector<FormulaDescription>& builtInFormulas()
{
    static const std::vector<FormulaDescription> descriptions = [] {
        std::vector<FormulaDescription> list;
        for (const BuiltIn& formula : allFormulas())
            list.push_back(formula.description);
        return list;
    }();
    return descriptions;
}

const FormulaDescription* findBuiltIn(const std::string& name)
{
    const BuiltIn* formula = find(name);
    return formula ? &builtInFormulas()[static_cast<std::size_t>(formula - allFormulas().data())] : nullptr;
}

std::optional<FormulaRecords> computeFormula(const std::string& name, const BarSeries& bars,
                                             const std::vector<double>& parameters,
                                             const std::atomic<bool>* cancelled)
{
    const BuiltIn* formula = find(name);
    if (!formula)
        return std::nullopt;
    const BarSeries clean = cleaned(bars);
    const std::vector<double> sound = soundParameters(formula->description.parameters, parameters);
    const FormulaInput input { clean, sound, cancelled };
    RecordBuilder records;
    records.setBars(clean);
    formula->compute(input, records);
    if (input.cancelled())
        return std::nullopt;
    return records.take();
}

} // namespace engine
