#pragma once
/// @file Widths of legend texts, measured once: a legend asks for the width of a piece in every step from
/// layout to paint, and most texts stay from one bar to the next.

#include <QFont>
#include <QString>

namespace TC::detail {

/// Advance width of a text in pixels, as WB::CSimpleText::getSize measures it. The widths of the texts and
/// fonts asked for last are kept, a few thousand at most. GUI thread only.
int textWidth(const QString& text, const QFont& font);

/// Drops every kept width: fonts may have come or gone.
void forgetTextWidths();

} // namespace TC::detail
