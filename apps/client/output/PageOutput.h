// SPDX-License-Identifier: MIT
#pragma once
/// @file The chart's page outside the window.

#include "apps/base/Result.h"

#include <QCoreApplication>
#include <QImage>
#include <QSize>
#include <QString>

class QPainter;
class QPrinter;

namespace client {

class ChartPane;
class ChartView;

/// What the chart shows, or one pane of it, as a picture: legends of the newest bar in view, panes, axes; no
/// crosshair. Painted anew for every output, so that each is as sharp as its form allows. GUI thread only.
class PageOutput
{
    Q_DECLARE_TR_FUNCTIONS(client::PageOutput)

public:
    static constexpr int kLargestFactor = 4;

    /// @param only  the one pane to be shown; null: all of them, as high beside each other as on the page.
    explicit PageOutput(ChartView* chart, ChartPane* only = nullptr);

    /// Logical pixels: as large as it stands in the window, and no smaller than it takes.
    QSize size() const;

    /// @param factor  device pixels per logical pixel, from 1 to kLargestFactor.
    QImage image(double factor) const;
    /// Writes the file whole, in the form that its suffix names: .svg, .pdf, or PNG.
    /// @param factor  of a PNG, as for image().
    /// @return on failure one line in Chinese.
    base::Result<void> save(const QString& path, double factor) const;
    /// Paints on one sheet, as large as fits, in the middle of its width.
    void print(QPrinter& printer) const;
    /// Paints it into (0, 0) to its size.
    void paint(QPainter& painter) const;

private:
    ChartView* m_chart;
    ChartPane* m_only;
};

} // namespace client
