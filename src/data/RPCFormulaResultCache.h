// SPDX-License-Identifier: MIT
#pragma once
/// @file A formula's description and its computed series, kept together.

#include "host/se/RPCFormulaMetaResult.h"
#include "host/se/RPCFormulaResult.h"

#include <cstdint>

namespace TC {

/// Latest result of one formula instance. A plain value: copies are deep.
struct RPCFormulaResultCache
{
    se::RPCFormulaMetaResult meta; ///< what the outputs are
    se::RPCFormulaResult result;   ///< what was computed
    std::uint64_t extra1 = 0;      ///< carried for the host, bit for bit; the library never looks at it
    std::uint64_t extra2 = 0;      ///< as extra1
};

} // namespace TC
