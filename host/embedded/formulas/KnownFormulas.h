// SPDX-License-Identifier: MIT
#pragma once
/// @file A formula that the embedded host knows, and how a formula file becomes some.

#include "host/TC/CFormulaDetail.h"
#include "host/embedded/FormulaSetup.h"

#include <boost/shared_ptr.hpp>

#include <QByteArray>

#include <vector>

namespace TC::embedded {

/// One formula and where it came from.
struct KnownFormula
{
    enum Origin { BuiltIn, User, Set };

    boost::shared_ptr<CFormulaDetail> detail;
    FormulaRecipe recipe; ///< without a formula: not computable
    Origin origin = Set;
};

/// Reads the text of a formula file.
/// @param fileName  for the failure lines.
/// @param taken  names that the file must not use again.
/// @param[out] formulas  the good entries; untouched when the text as a whole is unusable.
/// @param[out] problems  one line "FILE:LINE:COLUMN: reason" each.
/// @return false when the text as a whole is unusable.
bool parseFormulas(const QByteArray& json, const QString& fileName, const QStringList& taken,
                   std::vector<KnownFormula>& formulas, QStringList& problems);

} // namespace TC::embedded
