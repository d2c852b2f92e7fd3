#pragma once
/// @file What the embedded instrument look-up holds.

#include "host/TC/CStockManager.h"

#include <QHash>

namespace TC {

struct CStockManager::Private
{
    /// Loads the store at the first call.
    void load();
    /// Adds an instrument, or replaces the one of the same market and code.
    void add(const Detail& detail);

    bool loaded = false;
    QHash<QString, Detail> byKey;
    QHash<QString, QVector<Detail>> byCode; ///< in the order of markets
};

} // namespace TC
