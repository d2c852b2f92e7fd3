// SPDX-License-Identifier: MIT
#pragma once
/// @file Values of a formula on bars of another period.

#include "engine/kernels/PeriodGroups.h"
#include "engine/language/Syntax.h"

#include <memory>

namespace engine::language {

/// A value of a formula on longer bars, as a function of the formula's parameters. Every bar has the value of
/// the longer bar that it is part of, so that it changes until that one is complete.
/// @param formula,value  a formula and one of its values. @param period  one of findPeriod().
std::shared_ptr<const Function> onPeriod(const std::shared_ptr<const Formula>& formula, NodeId value,
                                         const Period& period);

/// Computes a formula of one output on longer bars; its arguments are the parameters.
KernelPointer otherPeriodKernel(const std::shared_ptr<const Formula>& formula, const Period& period);

} // namespace engine::language
