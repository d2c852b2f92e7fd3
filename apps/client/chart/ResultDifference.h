// SPDX-License-Identifier: MIT
#pragma once
/// @file Whether a stretch of results is the same.

#include "host/se/RPCFormulaMetaResult.h"
#include "host/se/RPCFormulaResult.h"

namespace client {

/// Whether the same outputs of two results are drawn, by the same painters.
bool isDescribedAlike(const se::RPCFormulaMetaResult& one, const se::RPCFormulaMetaResult& other);
/// Whether the columns of two results are the same but for their bars.
bool isDescribedAlike(const se::RPCFormulaResult& one, const se::RPCFormulaResult& other);

/// Whether two results of one formula differ anywhere in the bars [first, last]; bars that one of them does
/// not have are a difference, those before the first of all are none. Numbers are compared bit for bit.
bool differ(const se::RPCFormulaResult& one, const se::RPCFormulaResult& other, int first, int last);

} // namespace client
