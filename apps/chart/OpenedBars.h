// SPDX-License-Identifier: MIT
#pragma once
/// @file A data file with the instrument that it belongs to.

#include "apps/base/Result.h"
#include "engine/series/BarSeries.h"
#include "engine/series/TickSeries.h"

#include <QString>

#include <memory>
#include <vector>

namespace ttservice {
class CInstrumentDetail;
}

namespace chart {

using Instrument = std::shared_ptr<ttservice::CInstrumentDetail>;

/// Bars and their instrument.
struct OpenedBars
{
    Instrument instrument;
    std::shared_ptr<engine::BarSeries> bars;
};

/// Trades and their instrument.
struct OpenedTicks
{
    Instrument instrument;
    std::shared_ptr<const engine::TickSeries> ticks;
};

/// Reads a bars file.
/// @param path  any name; see base::nameFromBytes.
/// @param key  key of the instrument ("SH600000"); empty: the file's base name. An instrument that the
///        database does not know is made up from it, with the price tick that the prices suggest.
/// @return on failure one line "FILE:LINE: reason".
base::Result<OpenedBars> openBarsFile(const QString& path, const QString& key = QString());

/// Bars that were read from a file, with the instrument; GUI thread only, while the reading may be on
/// another.
OpenedBars withInstrument(engine::BarSeries bars, const QString& path, const QString& key = QString());

/// Reads a trades file; otherwise as openBarsFile.
base::Result<OpenedTicks> openTicksFile(const QString& path, const QString& key = QString());

/// The instrument of a file, as openBarsFile finds it or makes it up.
/// @param prices  of the file, for the price tick of one that is made up.
Instrument instrumentOfFile(const QString& path, const QString& key, const std::vector<double>& prices);

/// Gives bars the numbers of shares that the instrument database knows.
void takeShares(engine::BarSeries& bars, const Instrument& instrument);

} // namespace chart
