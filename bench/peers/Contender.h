// SPDX-License-Identifier: MIT
#pragma once
/// @file What is measured: one kind of work, painted by us and by everybody else.

#include "bench/RandomWalk.h"

#include <QImage>
#include <QPainter>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace bench {

constexpr int kWidth = 1920, kHeight = 800;

enum class Work { LineWalk, LineNoise, LineWide, Dots, Candles, Volume };

/// The data of one cell of the table.
struct Scene
{
    Scene(Work kind, int barCount);

    bool isLine() const
    {
        return work == Work::LineWalk || work == Work::LineNoise || work == Work::LineWide;
    }
    /// One number a bar, drawn as a line or as dots.
    bool isOfValues() const { return isLine() || work == Work::Dots; }
    int lineWidth() const { return work == Work::LineWide ? 2 : 1; }
    /// Half the width of bodies in pixels.
    int halfWidth() const { return kWidth / bars / 3; }
    static constexpr int kDotSize = 4; ///< pixels

    Work work;
    int bars;
    RandomWalk walk;
    std::vector<double> values;         ///< of the line or the dots
    double lowest = 0.0, highest = 0.0; ///< of the axis
};

/// One library's painter of a scene; pixels are not antialiased.
struct Contender
{
    std::string name;
    std::function<void(QPainter&)> paint; ///< empty: the library has no such painter, or not at this size
};

Contender own(const Scene& scene);
Contender plain(const Scene& scene);
/// One fillRect per upright run of the pixels that `own` leaves.
Contender fillRectFloor(const Scene& scene);
Contender qCustomPlot(const Scene& scene);
Contender qwt(const Scene& scene);
Contender qtCharts(const Scene& scene);
Contender kChart(const Scene& scene);

} // namespace bench
