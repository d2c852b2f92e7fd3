// SPDX-License-Identifier: MIT
#include "apps/client/chart/ChartKeys.h"

#include <Qt>

#include <algorithm>

namespace client {

namespace {

constexpr double kZoomStep = 1.25;
constexpr int kMoveShare = 10; // a cursor key moves by this part of the shown bars

} // namespace

bool moveByKey(ChartState& state, int key)
{
    const int step = std::max(1, (state.last() - state.first() + 1) / kMoveShare);
    switch (key) {
    case Qt::Key_Up: state.zoomAtCrosshair(1.0 / kZoomStep); return true;
    case Qt::Key_Down: state.zoomAtCrosshair(kZoomStep); return true;
    case Qt::Key_Left: state.pan(-step); return true;
    case Qt::Key_Right: state.pan(step); return true;
    case Qt::Key_Home: state.showFirst(); return true;
    case Qt::Key_End: state.showLast(); return true;
    default: return false;
    }
}

} // namespace client
