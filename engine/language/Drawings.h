// SPDX-License-Identifier: MIT
#pragma once
/// @file The drawing statements of the language.

#include "engine/kernels/Function.h"

namespace engine::language {

constexpr int kMaxStacked = 16; ///< columns that STACKVOL takes
constexpr int kMaxRegions = 8;  ///< conditions that FILLRGN and PARTLINE take

/// Their rows of the table of functions; they have no kernels.
std::vector<Function> drawingStatements();

} // namespace engine::language
