// SPDX-License-Identifier: MIT
#pragma once
/// @file The instruments that the look-up knows.

#include "host/TC/CStockManager.h"

#include <QHash>

namespace TC::embedded {

struct InstrumentTable
{
    using Detail = CStockManager::Detail;

    /// Loads the store at the first call.
    void load();
    /// Adds an instrument, or replaces the one of the same market and code.
    void add(const Detail& detail);
    /// Completes what is known by the user's own list, where there is one.
    void readOwnList(const QString& path);

    bool loaded = false;
    QString notice; ///< what came of loading; see instrumentStoreNotice()
    QHash<QString, Detail> byKey;
    QHash<QString, QVector<Detail>> byCode; ///< in the order of markets
};

} // namespace TC::embedded
