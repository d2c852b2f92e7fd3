// SPDX-License-Identifier: MIT
#pragma once
/// @file Opening the instrument store, whatever became of it.

#include "host/embedded/instruments/StoreDatabase.h"

namespace TC::embedded {

/// What came of opening the store.
struct LoadedStore
{
    Instruments instruments; ///< every one of the compiled-in list, and those that the store has besides
    QString notice;          ///< one line for the user, in Chinese; empty when all is well
};

/// Opens the store at `path`, and makes, completes or replaces it where it must.
LoadedStore loadInstrumentStore(const QString& path);

/// The compiled-in list with its synthetic figures.
Instruments listedInstruments();

} // namespace TC::embedded
