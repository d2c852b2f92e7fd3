// SPDX-License-Identifier: MIT
#pragma once
/// @file Instruments that the embedded host knows.
///
/// The store is the SQLite file "instruments.sqlite" in TC::getUserRootDir(). It is made on first start from
/// the instrument list that is compiled into the host (samples/instruments.csv) and loaded whole at the first
/// look-up, which comes from the GUI thread. It is checked through whenever it is loaded, and every
/// instrument of the list is known whatever became of it:
/// - a damaged store is kept as "instruments.sqlite.damaged-<date>-<time>" and made again from the list;
/// - a sound store that lacks instruments of the list is completed, rows that it has stay as they are;
/// - a store that cannot be looked at (locked, no permission, no ordinary file, of a later version) stays
///   as it is, and the list is used;
/// - where nothing can be written the list is used without a store.
/// instrumentStoreNotice() says which it was. A change of a row's content that leaves the database in
/// agreement with itself (a letter of a name) is no damage: the store is meant to be edited.
///
/// The list has no market values, so the store is filled with synthetic ones for stocks: figure 3016 (total
/// market value, yuan) between 2e9 and 5e11 and figure 3015 (free-float market value) 30 to 100 % of it, both
/// derived from the instrument's key alone, hence the same on every machine. They are no market data: the
/// column "synthetic" of table "figure" marks them. Replace the rows to use real figures.
///
/// The list has no numbers of shares either, and none are made up: synthetic market values are no source for
/// them. Real ones come from "instruments.csv" in TC::getUserRootDir(), a list of the same form with the
/// columns floating_shares (流通股本) and total_shares (总股本). It is read after the store whenever that is
/// loaded; its lines complete what is known, or add instruments, for this run. What is wrong with it stands
/// in instrumentStoreNotice() as well.

#include "host/HostExport.h"
#include "host/ttservice/CInstrumentDetail.h"

#include <QString>
#include <QVector>

namespace TC::embedded {

constexpr int kFreeFloatValueField = 3015;      ///< figure id: free-float market value, yuan
constexpr int kTotalMarketValueField = 3016;    ///< figure id: total market value, yuan
constexpr int kFloatingSharesField = 1'000'001; ///< figure id of this host's own: floating shares
constexpr int kTotalSharesField = 1'000'002;    ///< figure id of this host's own: all shares

/// Whether a figure of the instrument is the synthetic one that its store was filled with, and no market
/// data. False for fields without one and for figures that were replaced.
INDICATORHOST_EXPORT bool isSyntheticFigure(const ttservice::CInstrumentDetail& instrument, int field);

/// Adds an instrument for this run, or replaces the one of the same market and code. The store stays as it
/// is.
INDICATORHOST_EXPORT void setInstrument(const ttservice::CInstrumentDetail& instrument);

/// Lets exactly these instruments be known for this run. The store stays as it is.
INDICATORHOST_EXPORT void setInstruments(const QVector<ttservice::CInstrumentDetail>& instruments);

/// Forgets what is loaded; the next look-up reads the store again.
INDICATORHOST_EXPORT void reloadInstruments();

/// One line for the user, in Chinese, when the store was not as it should be at its last loading; empty when
/// it was. Loads the store when nothing was looked up yet.
INDICATORHOST_EXPORT QString instrumentStoreNotice();

/// Path of the store.
INDICATORHOST_EXPORT QString instrumentStorePath();

} // namespace TC::embedded
