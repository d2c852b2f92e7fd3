#pragma once
/// @file What the embedded formula manager holds.

#include "host/TC/CFormulaOperateManager.h"

#include <boost/shared_ptr.hpp>

#include <vector>

namespace TC {

/// Formulas in the order in which they were added; names are unique by display name.
struct CFormulaOperateManager::Private
{
    std::vector<boost::shared_ptr<CFormulaDetail>> formulas;
};

} // namespace TC
