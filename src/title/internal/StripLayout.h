// SPDX-License-Identifier: MIT
#pragma once
/// @file Where everything stands on a legend strip, computed without a painter.

#include "host/TC/Periods.h"
#include "title/internal/LegendRows.h"

#include <QLine>
#include <QRect>
#include <QSize>
#include <QVector>

namespace TC::detail {

/// What the layout depends on; widths in logical pixels.
struct StripContent
{
    QSize size; ///< of the strip
    EIndexDisplayType displayType = EIndexDisplay_Heading;
    EIndexViewType viewType = EIndexView_Module;
    EIndexViewType subViewType = EIndexView_Module;
    int leftOffset = 0;
    int rowHeight = kLegendRowHeight;
    int nameWidth = 0;      ///< of the instrument's name; 0: none
    int periodWidth = 0;    ///< of the wider of period and adjustment name; 0: none
    QSize icon;             ///< instrument-class icon; empty: none
    bool hasButton = false; ///< close button at the right end
    int firstRowWidth = 0;  ///< of the legend's first row
};

/// The strip: name | icon | period over adjustment | legend | button. A column that does not fit is left
/// out with everything behind it; the name alone is shortened. Rectangles of what is left out are empty.
struct StripLayout
{
    QRect name;       ///< text of the name
    QRect icon;       ///< picture
    QRect period;     ///< text of the period
    QRect adjustment; ///< text of the adjustment
    QVector<QLine> separators;
    QRect legend;       ///< area whose pieces show; nothing is painted outside
    QRect rowsRect;     ///< the rectangle to give to CDrawStyle::drawTitle
    int rowsOffset = 0; ///< the left offset to give to it
    QRect button;       ///< empty without a button
};

/// Indent of the strip: the left offset counts in the indented view alone.
int stripIndent(EIndexViewType subViewType, int leftOffset);

/// Width of a heading column that holds a text.
int headingColumnWidth(int textWidth);

/// Place of the close button on a strip of the given width.
QRect closeButtonRect(int stripWidth);

StripLayout layOutStrip(const StripContent& content);

} // namespace TC::detail
