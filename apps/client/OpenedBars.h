#pragma once
/// @file A bars file with the instrument that it belongs to.

#include "apps/client/ChartState.h"

#include <QString>

namespace client {

/// Bars and their instrument.
struct OpenedBars
{
    ChartState::Instrument instrument;
    ChartState::Bars bars;
};

/// Reads a bars file. Its base name is the instrument's key; an instrument that the database does not know is
/// made up from it, with the price tick that the prices suggest.
/// @param[out] opened  written only on success.
/// @return empty on success, else one line "FILE:LINE: reason".
QString openBarsFile(const QString& path, OpenedBars& opened);

} // namespace client
