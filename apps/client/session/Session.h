// SPDX-License-Identifier: MIT
#pragma once
/// @file What the client shows, so that the next run can show it again.

#include "apps/client/chart/PaneData.h"
#include "apps/client/session/ChartChoices.h"

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

#include <vector>

namespace client {

/// An instrument that was laid over the chart.
struct OverlaidFile
{
    QString path;
    PaneData::OverlayScale scale = PaneData::OverlayScale::Together;
};

/// The user's choices beside the arrangement of the docks, which has a file of its own.
struct Session
{
    QString language;               ///< of offeredLanguages(); empty: the default
    QString skin;                   ///< shipped name or path; empty: the default
    bool isGreenUp = false;         ///< green rises and red falls
    QString bars;                   ///< file of the instrument on the chart; empty: none
    QString ticks;                  ///< file of the tick page; empty: none
    QString filter;                 ///< of the instruments
    QStringList favourites, recent; ///< keys of instruments
    int shown = 0;                  ///< bars in view; 0: as many as is usual
    int behind = 0;                 ///< bars between the last one in view and the last one of all
    bool bookRule = false;
    bool hasTools = true; ///< the toolbar is shown
    ChartChoices chart;
    std::vector<OverlaidFile> overlays;        ///< over the main pane
    std::vector<QStringList> panes;            ///< formulas from top to bottom; empty: the usual ones
    QMap<QString, QVector<double>> parameters; ///< of built-in formulas that were changed, by name

    QByteArray toJson() const;
    /// What can be read is taken, and the defaults for the rest, whatever the bytes are.
    static Session fromJson(const QByteArray& json);

    /// File of the session in the configuration's folder.
    static QString path();
};

} // namespace client
