// SPDX-License-Identifier: MIT
#pragma once
/// @file Whether a stretch of results is the same.

#include "host/se/RPCFormulaResult.h"

namespace client {

/// Whether two results of one formula differ anywhere in the bars [first, last]; bars that one of them does
/// not have are a difference, those before the first of all are none. Numbers are compared bit for bit.
bool differ(const se::RPCFormulaResult& one, const se::RPCFormulaResult& other, int first, int last);

} // namespace client
