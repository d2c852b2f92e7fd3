// SPDX-License-Identifier: MIT
#pragma once
/// @file One coloured piece of a legend.

#include "indicatorui_export.h"

#include <QColor>
#include <QString>

namespace TC {

/// A short text in one colour, optionally followed by a small arrow.
struct INDICATORUI_EXPORT ArrowColorTextData
{
    QString text;      ///< what is written
    QColor color;      ///< pen of the text
    int arrowType = 0; ///< 1: rise, arrow up; 2: fall, arrow down; any other: no arrow
};

} // namespace TC
