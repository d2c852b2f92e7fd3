// SPDX-License-Identifier: MIT
#include "apps/chart/NamedFormula.h"

#include "host/TC/CFormulaOperateManager.h"
#include "host/embedded/FormulaSetup.h"
#include "host/utils/CSingletonT.h"

#include <QHash>
#include <QSet>

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

engine::FormulaLookup knownFormulas(const QString& reader)
{
    QHash<QString, std::shared_ptr<const engine::Formula>> known;
    QSet<QString> own;
    const auto* manager = utils::CSingletonT<TC::CFormulaOperateManager>::instance();
    const QStringList names = TC::embedded::formulaNames();
    for (const QString& name : names) {
        const auto recipe = TC::embedded::resolveFormula(name);
        const auto detail = manager->getFormula(name);
        if (!recipe || !detail)
            continue;
        const QString realName = detail->realName.toCaseFolded();
        known.insert(name.toCaseFolded(), recipe->formula);
        if (!known.contains(realName))
            known.insert(realName, recipe->formula);
        if (!reader.isEmpty() && detail->realName == reader)
            own << realName << name.toCaseFolded();
    }
    return [known, own](const std::string& called) {
        const QString name = QString::fromStdString(called).toCaseFolded();
        if (own.contains(name))
            return engine::FoundFormula { nullptr, "公式调用了自己", "the formula calls itself" };
        const std::shared_ptr<const engine::Formula> formula = known.value(name);
        return formula ? engine::FoundFormula { formula, {}, {} } : engine::findBuiltInFormula(called);
    };
}

} // namespace chart
