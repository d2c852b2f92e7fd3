// SPDX-License-Identifier: MIT
#pragma once
/// @file Colours of a table, from the skin.

#include <QColor>
#include <QPalette>

namespace TC::embedded {

/// Colours of the current skin; what the skin does not have comes from the given palette.
struct TableColors
{
    explicit TableColors(const QPalette& fallback);

    /// The given palette in these colours, for the view and its scroll bars.
    QPalette applied(QPalette palette) const;

    QColor background, band, header, text, mutedText, grid, border, selection, mark;
};

} // namespace TC::embedded
