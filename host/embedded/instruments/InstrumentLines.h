// SPDX-License-Identifier: MIT
#pragma once
/// @file Instruments as lines of text.

#include "host/embedded/instruments/StoreDatabase.h"

#include <QByteArray>
#include <QStringList>

#include <functional>
#include <string>

namespace TC::embedded {

/// What a list of instruments says.
struct InstrumentLines
{
    Instruments instruments;
    QStringList problems; ///< one "FILE:LINE: reason" each; such a line is passed over
};

/// Finds what is known of an instrument before its line is read; null: nothing.
using KnownInstrument =
    std::function<const ttservice::CInstrumentDetail*(const std::string& market, const std::string& code)>;

/// Reads a list of instruments: names of columns in the first line, then a line for each instrument, with
/// commas between the cells, which are not quoted. Columns: market, code, and as wanted name, kind,
/// price_tick, floating_shares (流通股本), total_shares (总股本); others are passed over. An empty cell, or a
/// column that is missing, leaves what is known. Shares are counted one by one, not in lots.
/// @param utf8  the text. @param fileName  for the problems.
InstrumentLines readInstrumentLines(const QByteArray& utf8, const QString& fileName,
                                    const KnownInstrument& known);

} // namespace TC::embedded
