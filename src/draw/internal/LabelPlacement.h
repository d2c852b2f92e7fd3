// SPDX-License-Identifier: MIT
#pragma once
/// @file Where position codes put texts and icons, decided without a painter.

#include "draw/internal/Layout.h"

#include <QPoint>
#include <QSize>

#include <optional>

namespace TC::detail {

/// Side of an icon's square in pixels.
constexpr int kIconSize = 6;

/// Whether a bar asks for its label: by any number but 0.0, however small. A missing number asks for
/// nothing.
inline bool asksForLabel(const std::optional<double>& condition)
{
    return condition && *condition != 0.0 && !isMissing(*condition);
}

/// Row of a price; empty where the scale has none for it.
inline std::optional<int> rowOf(const ValueScale& scale, double price)
{
    return hasPixel(scale.at(price)) ? std::optional<int>(scale.row(price)) : std::nullopt;
}

/// Baseline start of a text.
/// @param code  0 centred on the point, 1 at the point, 2 ending at the point, 3 middle of the pane,
///        4 top of the pane, 5 bottom of the pane; any other as 1. Codes 3 to 5 centre the text on `x`.
/// @param text  width and height of the text in pixels.
/// @param x  pixel column of the bar.
/// @param row  pixel row of the price; empty where it has none.
/// @return empty when the code needs the row and there is none. Saturates at the int limits.
std::optional<QPoint> textPoint(int code, const QRect& pane, QSize text, int x, std::optional<int> row);

/// Top row of an icon: codes as above, the icon centred on the row (0), below it (1), above it (2), or in
/// the middle, at the top or at the bottom of the pane. Row 0 under any other code.
/// @return empty when the code needs the row and there is none. Saturates at the int limits.
std::optional<int> iconTop(int code, const QRect& pane, std::optional<int> row);

} // namespace TC::detail
