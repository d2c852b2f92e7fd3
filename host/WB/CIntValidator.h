// SPDX-License-Identifier: MIT
#pragma once
/// @file The client's check of whole numbers.

#include "host/HostExport.h"

#include <QIntValidator>

namespace WB {

/// Accepts whole numbers from `bottom` to `top`, both included.
class INDICATORHOST_EXPORT CIntValidator : public QIntValidator
{
    Q_OBJECT

public:
    /// Limits, both included.
    CIntValidator(int bottom, int top, QObject* parent = nullptr);
};

} // namespace WB
