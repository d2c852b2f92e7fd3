// SPDX-License-Identifier: MIT
#pragma once
/// @file How the chart shows whatever is open, as far as the next run shows it so again.

#include "apps/chart/ValueAxis.h"

#include <QJsonObject>
#include <QMap>
#include <QString>
#include <QVector>

namespace client {

/// The user's choices on the chart beside its panes.
struct ChartChoices
{
    QString period; ///< key of chart::offeredPeriods(); empty: as files have their bars
    int margin = 5; ///< empty slots right of the newest bar
    chart::AxisKind axis = chart::AxisKind::Linear; ///< of the main pane
    bool isMagnetic = false;                        ///< the crosshair stands on the close of its bar
    QMap<QString, QVector<double>> priceLines;      ///< horizontal lines by the instrument's key
    QVector<double> stretches; ///< of the panes' axes from top to bottom; 1: as they are by themselves

    QJsonObject toJson() const;
    /// What can be read is taken, and the defaults for the rest.
    static ChartChoices fromJson(const QJsonObject& json);
};

} // namespace client
