// SPDX-License-Identifier: MIT
#include "host/TC/CFormulaOperateManager.h"

#include "host/TC/Folders.h"
#include "host/embedded/FormulaSetup.h"
#include "host/embedded/formulas/KnownFormulas.h"
#include "host/embedded/text/OneLine.h"
#include "host/embedded/text/OrdinaryFile.h"
#include "host/se/LoadConfig.h"

#include "engine/Formulas.h"

#include <boost/make_shared.hpp>

#include <QDir>
#include <QFile>

#include <algorithm>

namespace {

using TC::CFormulaDetail;
using TC::embedded::KnownFormula;

using Formulas = std::vector<KnownFormula>;

bool s_isFilled = false; ///< the built-in and the user's formulas have been added

/// In the order in which they were added; display names are unique.
Formulas& addedFormulas()
{
    static Formulas formulas;
    return formulas;
}

TC::embedded::ReloadReceiver& reloadReceiver()
{
    static TC::embedded::ReloadReceiver receiver;
    return receiver;
}

KnownFormula known(const QString& name, const std::shared_ptr<const engine::Formula>& formula,
                   const QString& base, KnownFormula::Origin origin)
{
    KnownFormula entry { boost::make_shared<CFormulaDetail>(), {}, origin };
    entry.detail->displayName = entry.detail->realName = name;
    entry.detail->kind = formula->kind();
    for (const engine::Parameter& parameter : formula->parameters())
        entry.detail->numberParams << parameter.value;
    entry.recipe = { formula, base, entry.detail->numberParams, {} };
    return entry;
}

/// Adds a formula, or replaces the one of the same display name.
void put(Formulas& formulas, KnownFormula added)
{
    const auto found = std::find_if(formulas.begin(), formulas.end(), [&](const KnownFormula& formula) {
        return formula.detail->displayName == added.detail->displayName;
    });
    if (found != formulas.end())
        *found = std::move(added);
    else
        formulas.push_back(std::move(added));
}

/// Names that are taken by formulas which are not the user's.
QStringList takenNames(const Formulas& formulas)
{
    QStringList taken;
    for (const KnownFormula& formula : formulas) {
        if (formula.origin != KnownFormula::User)
            taken << formula.detail->realName << formula.detail->displayName;
    }
    return taken;
}

/// Replaces the user's formulas by those of the file.
QStringList readUserFormulas(Formulas& formulas)
{
    constexpr int largestFile = 16 * 1024 * 1024; // bytes
    const QString path = QDir(TC::getUserRootDir()).filePath(QStringLiteral("configFormula"));
    Formulas own;
    QStringList problems;
    if (QFile::exists(path)) {
        QByteArray json;
        const QString failure = TC::embedded::readOrdinaryFile(path, largestFile, json);
        if (!failure.isEmpty())
            return { TC::embedded::oneLine(QStringLiteral("%1:1:1: %2").arg(path, failure)) };
        if (!TC::embedded::parseFormulas(json, path, takenNames(formulas), own, problems))
            return problems;
    }
    formulas.erase(std::remove_if(formulas.begin(), formulas.end(),
                                  [](const KnownFormula& f) { return f.origin == KnownFormula::User; }),
                   formulas.end());
    std::move(own.begin(), own.end(), std::back_inserter(formulas));
    return problems;
}

/// All formulas, with everything that is known by default.
Formulas& knownFormulas()
{
    Formulas& formulas = addedFormulas();
    if (!s_isFilled) {
        s_isFilled = true;
        for (const engine::BuiltInFormula& builtIn : engine::builtInFormulas()) {
            const QString name = QString::fromStdString(builtIn.name);
            formulas.push_back(known(name, builtIn.formula, name, KnownFormula::BuiltIn));
        }
        readUserFormulas(formulas);
    }
    return formulas;
}

const KnownFormula* findBy(const Formulas& formulas, QString CFormulaDetail::*field, const QString& name)
{
    const auto found = std::find_if(formulas.begin(), formulas.end(), [&](const KnownFormula& formula) {
        return (*formula.detail).*field == name;
    });
    return found == formulas.end() ? nullptr : &*found;
}

boost::shared_ptr<CFormulaDetail> detailOf(const KnownFormula* formula)
{
    return formula ? formula->detail : nullptr;
}

} // namespace

namespace TC {

boost::shared_ptr<CFormulaDetail> CFormulaOperateManager::getFormula(const QString& name) const
{
    return detailOf(findBy(knownFormulas(), &CFormulaDetail::displayName, name));
}

boost::shared_ptr<CFormulaDetail> CFormulaOperateManager::getFormulaByRealName(const QString& name) const
{
    return detailOf(findBy(knownFormulas(), &CFormulaDetail::realName, name));
}

bool CFormulaOperateManager::isGroupModelExist(const QString& name) const
{
    const auto formula = getFormula(name);
    return formula && formula->groupModel;
}

bool CFormulaOperateManager::isPythonIndex(const QString& name) const
{
    const auto formula = getFormula(name);
    return formula && formula->script;
}

namespace embedded {

void setFormula(const CFormulaDetail& formula)
{
    KnownFormula added { boost::make_shared<CFormulaDetail>(formula), {}, KnownFormula::Set };
    if (const engine::BuiltInFormula* builtIn = engine::findBuiltIn(formula.realName.toStdString()))
        added.recipe = { builtIn->formula, formula.realName, formula.numberParams, {} };
    put(knownFormulas(), std::move(added));
}

void setTextFormula(const QString& displayName, const std::shared_ptr<const engine::Formula>& formula)
{
    put(knownFormulas(), known(displayName, formula, QString(), KnownFormula::Set));
}

QStringList formulaNames()
{
    QStringList names;
    for (const KnownFormula& formula : knownFormulas())
        names << formula.detail->displayName;
    return names;
}

void clearFormulas()
{
    s_isFilled = true;
    addedFormulas().clear();
}

void restoreFormulas()
{
    s_isFilled = false;
    addedFormulas().clear();
}

QStringList loadFormulas()
{
    return readUserFormulas(knownFormulas());
}

std::optional<FormulaRecipe> resolveFormula(const QString& name)
{
    const Formulas& formulas = knownFormulas();
    const KnownFormula* formula = findBy(formulas, &CFormulaDetail::displayName, name);
    if (!formula)
        formula = findBy(formulas, &CFormulaDetail::realName, name);
    if (!formula || !formula->recipe.formula)
        return std::nullopt;
    return formula->recipe;
}

void applyColors(const FormulaRecipe& recipe, se::RPCFormulaMetaResult& meta)
{
    const std::size_t outputs = std::min(meta.color.size(), meta.colorSet.size());
    for (std::size_t output = 0; output < outputs && output < static_cast<std::size_t>(recipe.colors.size());
         ++output) {
        const QColor& color = recipe.colors[static_cast<int>(output)];
        if (!color.isValid())
            continue;
        meta.color[output] = color.red() | color.green() << 8 | color.blue() << 16;
        meta.colorSet[output] = 1;
    }
}

void setReloadReceiver(ReloadReceiver receiver)
{
    reloadReceiver() = std::move(receiver);
}

} // namespace embedded
} // namespace TC

int se::loadConfig(const std::string& folder, const std::string& file, const std::string& section)
{
    const bool isKnown = folder == "root" && file == "configFormula";
    const bool isGood = isKnown && TC::embedded::loadFormulas().isEmpty();
    const TC::embedded::ReloadReceiver receiver = reloadReceiver(); // the receiver may replace itself
    if (receiver)
        receiver(folder, file, section);
    return isGood ? 0 : 1;
}
