// SPDX-License-Identifier: MIT
#pragma once
/// @file Painting whose texts are places of an axis, painted as the values that stand there.

#include "apps/chart/ValueAxis.h"

#include <QPaintDevice>

#include <memory>

class QPainter;

namespace chart {

/// A device that hands everything on to a painter, in the coordinates that the painter has now, except that
/// texts which are numbers are taken as places of the axis and handed on as their values. So the price labels
/// of candles that stand on a logarithmic axis say prices.
class AxisTexts : public QPaintDevice
{
public:
    /// @param painter  not owned; in use as long as this device is painted on.
    /// @param decimals  of the values.
    AxisTexts(QPainter* painter, const ValueAxis& axis, int decimals);
    ~AxisTexts() override;

    QPaintEngine* paintEngine() const override;

protected:
    int metric(PaintDeviceMetric metric) const override;

private:
    class Engine;
    QPainter* m_painter;
    std::unique_ptr<Engine> m_engine;
};

} // namespace chart
