#include "host/embedded/FormulaManagerData.h"
#include "host/embedded/FormulaSetup.h"
#include "host/embedded/ResetHooks.h"
#include "host/utils/CSingletonT.h"

#include <boost/make_shared.hpp>

#include <algorithm>

namespace {

using Formulas = std::vector<boost::shared_ptr<TC::CFormulaDetail>>;

Formulas& knownFormulas()
{
    return utils::CSingletonT<TC::CFormulaOperateManager>::instance()->data().formulas;
}

boost::shared_ptr<TC::CFormulaDetail> findBy(const Formulas& formulas, QString TC::CFormulaDetail::*field,
                                             const QString& name)
{
    const auto found = std::find_if(formulas.begin(), formulas.end(),
                                    [&](const auto& formula) { return (*formula).*field == name; });
    return found == formulas.end() ? nullptr : *found;
}

const TC::embedded::ResetHook s_resetFormulas([] { TC::embedded::clearFormulas(); });

} // namespace

namespace TC {

CFormulaOperateManager::CFormulaOperateManager()
    : m_data(std::make_unique<Private>())
{
}

CFormulaOperateManager::~CFormulaOperateManager() = default;

boost::shared_ptr<CFormulaDetail> CFormulaOperateManager::getFormula(const QString& name) const
{
    return findBy(m_data->formulas, &CFormulaDetail::displayName, name);
}

boost::shared_ptr<CFormulaDetail> CFormulaOperateManager::getFormulaByRealName(const QString& name) const
{
    return findBy(m_data->formulas, &CFormulaDetail::realName, name);
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
    Formulas& formulas = knownFormulas();
    const auto known = std::find_if(formulas.begin(), formulas.end(),
                                    [&](const auto& f) { return f->displayName == formula.displayName; });
    if (known != formulas.end())
        *known = boost::make_shared<CFormulaDetail>(formula);
    else
        formulas.push_back(boost::make_shared<CFormulaDetail>(formula));
}

void clearFormulas()
{
    knownFormulas().clear();
}

} // namespace embedded
} // namespace TC
