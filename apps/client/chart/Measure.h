// SPDX-License-Identifier: MIT
#pragma once
/// @file What lies between two places of a chart: bars, change, percent.

#include "apps/chart/PaneContent.h"

#include <QString>

class QPainter;
class QPoint;
class QRect;

namespace client {

/// A place of a pane.
struct MeasuredPlace
{
    int bar = 0;
    double value = 0.0; ///< in units of the pane's axis
};

/// Two places of one pane, in the order in which they were chosen.
struct Measure
{
    MeasuredPlace from, to;

    /// "12 根  +1.23  +4.56%"; without percent where the first value is not above 0.
    QString text(const chart::PaneContent& pane, double step) const;
};

/// Paints the stretch of bars that is measured in another pane.
/// @param from,to  columns of the first and the last one, in either order.
void paintMeasuredBars(QPainter& painter, const QRect& plot, int from, int to);

/// Paints a measured rectangle with its text beside the second place.
/// @param plot  that the text stays in.
/// @param rises  whether the second value is not below the first.
void paintMeasure(QPainter& painter, const QRect& plot, const QPoint& from, const QPoint& to,
                  const QString& text, bool rises);

} // namespace client
