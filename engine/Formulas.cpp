#include "engine/Formulas.h"

#include "engine/formulas/BuiltIns.h"

#include <algorithm>
#include <cmath>

namespace engine {

namespace {

const std::vector<BuiltIn>& allFormulas()
{
    static const std::vector<BuiltIn> all = [] {
        std::vector<BuiltIn> formulas;
        for (const auto& family : { priceFormulas, volumeFormulas, oscillatorFormulas, signalFormulas }) {
            for (BuiltIn& formula : family())
                formulas.push_back(std::move(formula));
        }
        return formulas;
    }();
    return all;
}

const BuiltIn* find(const std::string& name)
{
    const auto& all = allFormulas();
    const auto found = std::find_if(all.begin(), all.end(),
                                    [&](const BuiltIn& formula) { return formula.description.name == name; });
    return found == all.end() ? nullptr : &*found;
}

Arguments limited(const std::vector<Parameter>& parameters, const std::vector<double>& given)
{
    Arguments arguments;
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        const bool usable = i < given.size() && !std::isnan(given[i]);
        arguments.push_back(
            std::clamp(usable ? given[i] : parameters[i].value, parameters[i].least, parameters[i].greatest));
    }
    return arguments;
}

} // namespace

const std::vector<FormulaDescription>& builtInFormulas()
{
    static const std::vector<FormulaDescription> descriptions = [] {
        std::vector<FormulaDescription> all;
        for (const BuiltIn& formula : allFormulas())
            all.push_back(formula.description);
        return all;
    }();
    return descriptions;
}

const FormulaDescription* findBuiltIn(const std::string& name)
{
    const BuiltIn* formula = find(name);
    return formula ? &formula->description : nullptr;
}

std::optional<FormulaRecords> computeFormula(const std::string& name, const BarSeries& bars,
                                             const std::vector<double>& parameters,
                                             const std::atomic<bool>* cancelled)
{
    const BuiltIn* formula = find(name);
    if (!formula || (cancelled && *cancelled))
        return std::nullopt;
    FormulaRecords records = formula->compute(bars, limited(formula->description.parameters, parameters));
    if (cancelled && *cancelled)
        return std::nullopt;
    return records;
}

} // namespace engine
