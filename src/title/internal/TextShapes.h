// SPDX-License-Identifier: MIT
#pragma once
/// @file Legend texts measured and painted without laying each one out: what stands before a number seldom
/// changes, and the number is put together from glyphs that are known.

#include <QFont>
#include <QString>

class QPainter;
class QRect;

namespace TC::detail {

/// Advance width of a text in pixels, as WB::CSimpleText::getSize measures it. What the texts and fonts asked
/// for last are made of is kept, a few thousand texts at most. GUI thread only.
int textWidth(const QString& text, const QFont& font);

/// Whether a text is certain to be shown whole in so many pixels, where QFontMetrics::elidedText might
/// shorten it.
bool isWithin(int pixels, const QString& text, const QFont& font);

/// Paints a text in one line, in the painter's pen and in `font`, which the painter must have got: the same
/// pixels as drawText with `alignment`, Qt::TextDontClip and Qt::TextSingleLine. Where that is not certain,
/// on any paint engine but the raster one for a start, it is that very call. GUI thread only.
/// @param alignment  of the text in `place`, which may be narrower than the text.
void paintLine(QPainter* painter, const QRect& place, int alignment, const QString& text, const QFont& font);

/// Whether what paintLine paints is certain to stay inside `room`.
bool inkStaysIn(const QRect& room, const QPainter& painter, const QRect& place, int alignment,
                const QString& text, const QFont& font);

/// Drops everything kept: fonts may have come or gone.
void forgetTexts();

} // namespace TC::detail
