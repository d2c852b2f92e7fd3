// SPDX-License-Identifier: MIT
#pragma once
/// @file Calls that leave arguments to the language.

#include "engine/language/BuiltDrawings.h"

namespace engine::language {

/// The arguments of BETA(N), which compares the moves of the close with those of the second instrument's, in
/// full; all others as they are.
std::vector<NodeId> fullArguments(const Function& function, const std::vector<NodeId>& arguments,
                                  const NodeMaker& make);

} // namespace engine::language
