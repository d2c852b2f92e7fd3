// SPDX-License-Identifier: MIT
#pragma once
/// @file Bars from a CSV file.

#include "engine/EngineExport.h"
#include "engine/series/BarSeries.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace engine {

/// Told every few thousand rows how much of a file is read, from 0 to 1. @return whether to read on.
using ReadingProgress = std::function<bool(double share)>;

/// Reads bars from a CSV file whose header names its columns, in English or in Chinese (UTF-8 or GB18030):
/// date, optionally time, open, high, low, close, and optionally volume, amount and open_interest; other
/// columns are passed over. A volume that is missing is 0. Forms of dates are those of readBarTime.
/// Without a time a bar starts at midnight. Times must rise from row to row as they are written; what the
/// local zone makes of them is another matter: a time that its clock leaves out is taken as if the clock had
/// not yet been put forward, of one that it shows twice the first. A high must not be below its low; opens
/// and closes outside the two are taken as published. Limits are those of CsvLimits; only ordinary files are
/// read.
/// @param[out] failure  one line "FILE:LINE: reason" when nothing is returned; empty when `progress` ended
/// it.
/// @param progress  called on the reading thread; may be empty.
ENGINE_EXPORT std::optional<BarSeries> readBars(const std::string& path, std::string& failure,
                                                const ReadingProgress& progress = {});

/// The last bars of a file, those in its last 4 KiB, read without a look at the others; otherwise as
/// readBars.
ENGINE_EXPORT std::optional<BarSeries> readLastBars(const std::string& path, std::string& failure);

/// Bars of a file that another program appends to. Only whole lines count: the last one waits for its end. A
/// row with the time of the last bar replaces that bar. Otherwise rows are those of readBars. For one thread
/// at a time.
class ENGINE_EXPORT BarFollower
{
public:
    /// Reads nothing yet. @param path  of the file, which may come later.
    explicit BarFollower(const std::string& path);
    ~BarFollower();

    /// Takes in the rows that stand behind those of the calls before. @return how many; none after a failure.
    std::size_t read();

    /// What has come so far; after a failure the bars before the wrong row.
    const BarSeries& bars() const;
    /// One line "FILE:LINE: reason"; empty while all is well.
    const std::string& failure() const;

private:
    class Worker;

    std::unique_ptr<Worker> m_worker;
};

} // namespace engine
