// SPDX-License-Identifier: MIT
#include "engine/Formulas.h"

#include "engine/evaluation/FormulaEvaluation.h"
#include "engine/language/Lexer.h"

#include <QFile>

#include <algorithm>

/// Makes the texts known that are linked in; the macro must stand outside of any namespace.
static void initFormulaTexts()
{
    Q_INIT_RESOURCE(formulas);
}

namespace engine {

namespace {

constexpr const char* kNames[] = { "KLINE", "MA",  "EXPMA", "BOLL",        "SAR",        "VOL",
                                   "MACD",  "KDJ", "RSI",   "WR",          "BIAS",       "CCI",
                                   "DMI",   "OBV", "TRIX",  "CROSSSIGNAL", "RISINGDAYS", "NOTE" };

std::vector<BuiltInFormula> readTexts()
{
    initFormulaTexts();
    std::vector<BuiltInFormula> formulas;
    for (const char* name : kNames) {
        QFile file(QStringLiteral(":/formulas/%1.txt").arg(QLatin1String(name)));
        file.open(QIODevice::ReadOnly);
        const std::string source = file.readAll().toStdString();
        // They call none another, as none is known before all are read.
        formulas.push_back({ name, source, readFormula(source, {}).formula });
    }
    return formulas;
}

} // namespace

const std::vector<BuiltInFormula>& builtInFormulas()
{
    static const std::vector<BuiltInFormula> formulas = readTexts();
    return formulas;
}

const BuiltInFormula* findBuiltIn(const std::string& name)
{
    const auto& formulas = builtInFormulas();
    const auto found = std::find_if(formulas.begin(), formulas.end(),
                                    [&](const BuiltInFormula& formula) { return formula.name == name; });
    return found == formulas.end() ? nullptr : &*found;
}

FoundFormula findBuiltInFormula(const std::string& name)
{
    const BuiltInFormula* builtIn = findBuiltIn(language::inCapitals(name));
    return { builtIn ? builtIn->formula : nullptr, {}, {} };
}

FormulaReading readFormula(std::string_view utf8)
{
    return readFormula(utf8, findBuiltInFormula);
}

std::optional<FormulaRecords> computeFormula(const std::shared_ptr<const Formula>& formula,
                                             const BarSeries& bars, const std::vector<double>& parameters,
                                             const std::atomic<bool>* cancelled)
{
    if (!formula)
        return std::nullopt;
    FormulaEvaluation evaluation(formula, parameters, FormulaEvaluation::Mode::Once);
    if (!evaluation.update(bars, cancelled))
        return std::nullopt;
    return evaluation.take();
}

std::optional<FormulaRecords> computeFormula(const std::string& name, const BarSeries& bars,
                                             const std::vector<double>& parameters,
                                             const std::atomic<bool>* cancelled)
{
    const BuiltInFormula* builtIn = findBuiltIn(name);
    return builtIn ? computeFormula(builtIn->formula, bars, parameters, cancelled) : std::nullopt;
}

} // namespace engine
