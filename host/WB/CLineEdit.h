// SPDX-License-Identifier: MIT
#pragma once
/// @file The client's line editor.

#include "host/HostExport.h"

#include <QLineEdit>

namespace WB {

/// A line editor without a frame, fit for a table cell.
class INDICATORHOST_EXPORT CLineEdit : public QLineEdit
{
    Q_OBJECT

public:
    /// An empty editor.
    explicit CLineEdit(QWidget* parent = nullptr);
};

} // namespace WB
