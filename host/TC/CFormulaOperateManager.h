// SPDX-License-Identifier: MIT
#pragma once
/// @file The client's formulas by name.

#include "host/HostExport.h"
#include "host/TC/CFormulaDetail.h"

#include <boost/shared_ptr.hpp>

#include <QString>

namespace TC {

/// Look-up of formulas; reached through utils::CSingletonT<CFormulaOperateManager>. GUI thread only.
class INDICATORHOST_EXPORT CFormulaOperateManager
{
public:
    /// The formula of a display name; null when there is none.
    boost::shared_ptr<CFormulaDetail> getFormula(const QString& name) const;
    /// The formula of a real name; null when there is none.
    boost::shared_ptr<CFormulaDetail> getFormulaByRealName(const QString& name) const;
    /// Whether the named formula is a group model; false when unknown.
    bool isGroupModelExist(const QString& name) const;
    /// Whether the named formula is a script indicator; false when unknown.
    bool isPythonIndex(const QString& name) const;
};

} // namespace TC
