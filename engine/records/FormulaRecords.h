// SPDX-License-Identifier: MIT
#pragma once
/// @file What a formula's computation hands to the panes.

#include "host/se/RPCFormulaMetaResult.h"
#include "host/se/RPCFormulaResult.h"

namespace engine {

/// The two records of one computed formula.
struct FormulaRecords
{
    se::RPCFormulaMetaResult meta; ///< what the outputs are
    se::RPCFormulaResult result;   ///< what was computed
};

} // namespace engine
