// SPDX-License-Identifier: MIT
#include "apps/chart/NamedFormula.h"

#include "host/embedded/FormulaSetup.h"

namespace chart {

std::optional<engine::FormulaRecords> computeNamed(const QString& name, const engine::BarSeries& bars)
{
    const std::optional<TC::embedded::FormulaRecipe> recipe = TC::embedded::resolveFormula(name);
    if (!recipe)
        return std::nullopt;
    const std::vector<double> parameters(recipe->parameters.begin(), recipe->parameters.end());
    std::optional<engine::FormulaRecords> records = engine::computeFormula(recipe->formula, bars, parameters);
    if (records)
        TC::embedded::applyColors(*recipe, records->meta);
    return records;
}

engine::FormulaLookup knownFormulas()
{
    return [](const std::string& name) {
        const auto recipe = TC::embedded::resolveFormula(QString::fromStdString(name));
        return recipe && recipe->formula ? engine::FoundFormula { recipe->formula, {}, {} }
                                         : engine::findBuiltInFormula(name);
    };
}

} // namespace chart
