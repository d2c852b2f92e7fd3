// SPDX-License-Identifier: MIT
#include "apps/chart/NamedFormula.h"

#include "host/embedded/FormulaSetup.h"

namespace chart {

namespace {

std::unique_ptr<engine::FormulaEvaluation> evaluationOf(const TC::embedded::FormulaRecipe& recipe)
{
    const std::vector<double> parameters(recipe.parameters.begin(), recipe.parameters.end());
    return std::make_unique<engine::FormulaEvaluation>(recipe.formula, parameters,
                                                       engine::FormulaEvaluation::Mode::Once);
}

} // namespace

std::optional<engine::FormulaRecords> computeNamed(const QString& name, const engine::BarSeries& bars,
                                                   std::size_t first, std::size_t end)
{
    const std::optional<TC::embedded::FormulaRecipe> recipe = TC::embedded::resolveFormula(name);
    if (!recipe || !recipe->formula)
        return std::nullopt;
    const std::unique_ptr<engine::FormulaEvaluation> evaluation = evaluationOf(*recipe);
    if (!evaluation->advance(bars, first, end))
        return std::nullopt;
    engine::FormulaRecords records = evaluation->take();
    TC::embedded::applyColors(*recipe, records.meta);
    return records;
}

std::unique_ptr<engine::FormulaEvaluation> evaluationOfNamed(const QString& name)
{
    const std::optional<TC::embedded::FormulaRecipe> recipe = TC::embedded::resolveFormula(name);
    return recipe && recipe->formula ? evaluationOf(*recipe) : nullptr;
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
