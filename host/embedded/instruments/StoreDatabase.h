// SPDX-License-Identifier: MIT
#pragma once
/// @file The instrument store as an SQLite database.

#include "host/ttservice/CInstrumentDetail.h"

#include <QString>

#include <vector>

namespace TC::embedded {

using Instruments = std::vector<ttservice::CInstrumentDetail>;

/// What a store was found to hold.
struct StoreContents
{
    enum State {
        Empty,      ///< nothing was ever written to it, or the writing was cut short
        Sound,      ///< `instruments` is all of it
        Damaged,    ///< it contradicts itself, or it is no such store at all
        Unreadable, ///< it may be sound: locked, not permitted, on a failing disk, of a later version
    };

    State state = Unreadable;
    Instruments instruments;
    QString reason; ///< of the last two states
};

/// Checks a store through and reads all of it. A folder, a pipe or a device is Unreadable and is not opened.
StoreContents readStore(const QString& path);

/// Adds instruments with their figures to a store that is Empty or Sound, in one transaction: an end in the
/// middle leaves it as it was. Rows that are there already stay.
/// @return empty on success, else the reason.
QString addToStore(const QString& path, const Instruments& instruments);

} // namespace TC::embedded
