// SPDX-License-Identifier: MIT
#pragma once
/// @file One outstanding request of a pane.

#include "data/CFormulaKey.h"

namespace TC {

/// A formula instance and the identifier of its request.
struct IndexBaseDataReqItem
{
    CFormulaKey key; ///< of the formula that was asked for
    QString reqId;   ///< as the formula engine issued it
};

} // namespace TC
