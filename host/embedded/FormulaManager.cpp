#include "host/TC/Folders.h"
#include "host/embedded/FormulaManagerData.h"
#include "host/embedded/FormulaSetup.h"
#include "host/embedded/ResetHooks.h"
#include "host/se/LoadConfig.h"
#include "host/utils/CSingletonT.h"

#include "engine/Formulas.h"

#include <boost/make_shared.hpp>

#include <QDir>
#include <QFile>

#include <algorithm>

namespace {

using TC::CFormulaDetail;
using TC::embedded::KnownFormula;

using Formulas = std::vector<KnownFormula>;

TC::embedded::ReloadReceiver s_reloadReceiver;

TC::CFormulaOperateManager::Private& manager()
{
    return utils::CSingletonT<TC::CFormulaOperateManager>::instance()->data();
}

KnownFormula builtIn(const engine::BuiltInFormula& known)
{
    KnownFormula formula { boost::make_shared<CFormulaDetail>(), {}, KnownFormula::BuiltIn };
    formula.detail->displayName = formula.detail->realName = QString::fromStdString(known.name);
    formula.detail->kind = known.formula->kind();
    for (const engine::Parameter& parameter : known.formula->parameters())
        formula.detail->numberParams << parameter.value;
    formula.recipe = { known.formula, formula.detail->realName, formula.detail->numberParams, {} };
    return formula;
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
    QFile file(QDir(TC::getUserRootDir()).filePath(QStringLiteral("configFormula")));
    Formulas own;
    QStringList problems;
    if (file.exists()) {
        if (!file.open(QIODevice::ReadOnly))
            return { QStringLiteral("%1:1:1: %2").arg(file.fileName(), file.errorString()) };
        if (!TC::embedded::parseFormulas(file.readAll(), file.fileName(), takenNames(formulas), own,
                                         problems))
            return problems;
    }
    formulas.erase(std::remove_if(formulas.begin(), formulas.end(),
                                  [](const KnownFormula& f) { return f.origin == KnownFormula::User; }),
                   formulas.end());
    std::move(own.begin(), own.end(), std::back_inserter(formulas));
    return problems;
}

/// The manager's formulas, with everything that it knows by default.
Formulas& knownFormulas(TC::CFormulaOperateManager::Private& data)
{
    if (!data.isFilled) {
        data.isFilled = true;
        for (const engine::BuiltInFormula& known : engine::builtInFormulas())
            data.formulas.push_back(builtIn(known));
        readUserFormulas(data.formulas);
    }
    return data.formulas;
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

const TC::embedded::ResetHook s_resetFormulas([] {
    manager().formulas.clear();
    manager().isFilled = false;
    s_reloadReceiver = nullptr;
});

} // namespace

namespace TC {

CFormulaOperateManager::CFormulaOperateManager()
    : m_data(std::make_unique<Private>())
{
}

CFormulaOperateManager::~CFormulaOperateManager() = default;

boost::shared_ptr<CFormulaDetail> CFormulaOperateManager::getFormula(const QString& name) const
{
    return detailOf(findBy(knownFormulas(*m_data), &CFormulaDetail::displayName, name));
}

boost::shared_ptr<CFormulaDetail> CFormulaOperateManager::getFormulaByRealName(const QString& name) const
{
    return detailOf(findBy(knownFormulas(*m_data), &CFormulaDetail::realName, name));
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
    Formulas& formulas = knownFormulas(manager());
    KnownFormula added { boost::make_shared<CFormulaDetail>(formula), {}, KnownFormula::Set };
    if (const engine::BuiltInFormula* known = engine::findBuiltIn(formula.realName.toStdString()))
        added.recipe = { known->formula, formula.realName, formula.numberParams, {} };
    const auto known = std::find_if(formulas.begin(), formulas.end(), [&](const KnownFormula& f) {
        return f.detail->displayName == formula.displayName;
    });
    if (known != formulas.end())
        *known = std::move(added);
    else
        formulas.push_back(std::move(added));
}

QStringList formulaNames()
{
    QStringList names;
    for (const KnownFormula& formula : knownFormulas(manager()))
        names << formula.detail->displayName;
    return names;
}

void clearFormulas()
{
    manager().isFilled = true;
    manager().formulas.clear();
}

QStringList loadFormulas()
{
    return readUserFormulas(knownFormulas(manager()));
}

std::optional<FormulaRecipe> resolveFormula(const QString& name)
{
    const Formulas& formulas = knownFormulas(manager());
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
    s_reloadReceiver = std::move(receiver);
}

} // namespace embedded
} // namespace TC

int se::loadConfig(const std::string& folder, const std::string& file, const std::string& section)
{
    const bool isKnown = folder == "root" && file == "configFormula";
    const bool isGood = isKnown && TC::embedded::loadFormulas().isEmpty();
    const TC::embedded::ReloadReceiver receiver = s_reloadReceiver; // the receiver may replace itself
    if (receiver)
        receiver(folder, file, section);
    return isGood ? 0 : 1;
}
