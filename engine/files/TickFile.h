// SPDX-License-Identifier: MIT
#pragma once
/// @file Trades from a CSV file.

#include "engine/EngineExport.h"
#include "engine/series/TickSeries.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

namespace engine {

/// Reads trades from a UTF-8 CSV file whose header names its columns: time_utc, price, volume, bid1, ask1,
/// and for a book of five levels, all of them or none, bid2 to bid5, ask2 to ask5, bidvol1 to bidvol5 and
/// askvol1 to askvol5; other columns are passed over. Times are UTC, 2025-04-07T13:08:42.034 (a blank instead
/// of the T and a Z at the end are accepted); they must not fall from row to row. An empty bid or ask means
/// that nobody quotes there, an empty level volume means 0. Limits are those of CsvLimits; only ordinary
/// files are read.
/// @param[out] failure  one line "FILE:LINE: reason" when nothing is returned.
ENGINE_EXPORT std::optional<TickSeries> readTicks(const std::string& path, std::string& failure);

/// Trades of a file that another program appends to. Only whole lines count: the last one waits for its end.
/// Otherwise rows are those of readTicks. For one thread at a time.
class ENGINE_EXPORT TickFollower
{
public:
    /// Reads nothing yet. @param path  of the file, which may come later.
    explicit TickFollower(const std::string& path);
    ~TickFollower();

    /// Takes in the rows that stand behind those of the calls before. @return how many; none after a failure.
    std::size_t read();

    /// What has come so far; after a failure the trades before the wrong row.
    const TickSeries& ticks() const;
    /// One line "FILE:LINE: reason"; empty while all is well.
    const std::string& failure() const;

private:
    class Worker;

    std::unique_ptr<Worker> m_worker;
};

} // namespace engine
