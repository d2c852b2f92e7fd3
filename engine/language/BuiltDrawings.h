// SPDX-License-Identifier: MIT
#pragma once
/// @file Drawings that are put together from the painters that there are.

#include "engine/language/Syntax.h"

#include <functional>
#include <vector>

namespace engine::language {

/// Makes parts of expressions.
struct NodeMaker
{
    std::function<NodeId(double)> number;
    std::function<NodeId(const Function&, const std::vector<NodeId>&)> call;
    std::function<std::optional<double>(NodeId)> written; ///< a number as it stands in the text
};

/// The outputs of a drawing whose row says that it is built; none when a colour is not written as one.
/// @param named  carries the name and the text.
/// @param arguments  those that are no text, of the kinds that the function takes.
std::vector<Output> builtOutputs(const Function& function, const Output& named,
                                 const std::vector<NodeId>& arguments, const NodeMaker& make);

/// Sticks from zero to the value of an output, in its colour and without a text in the legend.
Output sticksOf(const Output& output, const NodeMaker& make);

} // namespace engine::language
