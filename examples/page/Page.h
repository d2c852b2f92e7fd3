// SPDX-License-Identifier: MIT
#pragma once
/// @file Panes of one instrument under one another, over the same bars.

#include "page/Pane.h"

#include <vector>

namespace example {

/// Prices with averages, volumes, and an oscillator; crosshair and legends follow the mouse together.
class Page : public QWidget
{
public:
    Page(const QString& instrument, const engine::BarSeries& bars);

    void pointAt(int bar);

private:
    std::vector<Pane*> m_panes; ///< children
};

} // namespace example
