// SPDX-License-Identifier: MIT
#pragma once
/// @file A short text that stands for all that the panes read of a computed formula.

#include "engine/records/FormulaRecords.h"

#include <string>

namespace test {

/// Digest of every output: name, drawing, style, and all values bit for bit, a missing one being the same
/// however it is written. Where a series stands in the record does not matter.
std::string digestOf(const engine::FormulaRecords& records);

} // namespace test
