// SPDX-License-Identifier: MIT
#include "engine/files/BarFile.h"

#include "engine/files/BarHeader.h"
#include "engine/files/BarTime.h"
#include "engine/files/CsvReader.h"
#include "engine/files/RowFollower.h"
#include "engine/series/SeriesHead.h"

namespace engine {

namespace {

constexpr std::size_t kRowsOfAStep = 4096; // between two words on the progress: about a millisecond

/// Reads one row after another into the series.
class BarReader
{
public:
    explicit BarReader(CsvReader& csv)
        : m_csv(csv)
        , m_date(require("date"))
        , m_time(find("time"))
        , m_prices { require("open"), require("high"), require("low"), require("close") }
        , m_volume(find("volume"))
        , m_amount(find("amount"))
        , m_openInterest(find("open_interest"))
    {
    }

    void readRow()
    {
        readTime();
        for (std::size_t price = 0; price < 4; ++price)
            (m_bars.*kPrices[price]).push_back(m_csv.number(m_prices[price]));
        // Deliberate: only these two are compared. Published opens and closes lie outside high and low now
        // and then, by a rounded digit or for no reason that the source gives.
        if (m_bars.high.back() < m_bars.low.back())
            m_csv.fail("the high " + std::string(m_csv.text(m_prices[1])) + " is below the low "
                       + std::string(m_csv.text(m_prices[2])));
        // A source without volumes, or without that of one bar: nothing was traded as far as it knows.
        const bool hasVolume = m_volume && !m_csv.text(*m_volume).empty();
        m_bars.volume.push_back(hasVolume ? m_csv.number(*m_volume) : 0.0);
        if (m_amount)
            m_bars.amount.push_back(m_csv.number(*m_amount));
        if (m_openInterest)
            m_bars.openInterest.push_back(m_csv.number(*m_openInterest));
        if (m_replaces && !m_csv.failed())
            dropOneBeforeLast();
    }

    const BarSeries& series() const { return m_bars; }
    BarSeries take() { return std::move(m_bars); }

    /// Forgets what was read of a wrong row.
    void dropBeyond(std::size_t count) { m_bars = headOf(m_bars, count); }

    /// From now on a row with the time of the one before replaces it.
    void letRowsReplace() { m_mayReplace = true; }

private:
    static constexpr std::vector<double> BarSeries::*kPrices[] = { &BarSeries::open, &BarSeries::high,
                                                                   &BarSeries::low, &BarSeries::close };

    std::optional<std::size_t> find(std::string_view column) const
    {
        return findBarColumn(m_csv.header(), column);
    }
    std::size_t require(std::string_view column) { return m_csv.require(find(column), column); }

    void readTime()
    {
        std::string failure;
        const std::optional<BarTime> time =
            readBarTime(m_csv.text(m_date), m_time ? m_csv.text(*m_time) : std::string_view(), failure);
        if (!time)
            return m_csv.fail(failure);
        m_replaces = m_mayReplace && !m_bars.timeMs.empty() && time->written == m_lastWritten;
        if (!m_replaces && !m_bars.timeMs.empty() && time->written <= m_lastWritten)
            return m_csv.fail("the date is not after the one before");
        m_lastWritten = time->written;
        m_bars.timeMs.push_back(time->timeMs);
    }

    /// Leaves the row that was read last in the place of the one before it.
    void dropOneBeforeLast()
    {
        const auto drop = [](auto& column) {
            if (!column.empty())
                column.erase(column.end() - 2);
        };
        drop(m_bars.timeMs);
        for (const auto price : kPrices)
            drop(m_bars.*price);
        for (const auto column : { &BarSeries::volume, &BarSeries::amount, &BarSeries::openInterest })
            drop(m_bars.*column);
    }

    CsvReader& m_csv;
    bool m_mayReplace = false;
    bool m_replaces = false; ///< the current row has the time of the one before
    std::size_t m_date;
    std::optional<std::size_t> m_time;
    std::size_t m_prices[4];
    std::optional<std::size_t> m_volume, m_amount, m_openInterest;
    std::int64_t m_lastWritten = 0; ///< date and time of the row before as they stand there
    BarSeries m_bars;
};

/// A reader whose rows may replace the one before.
class GrowingBarReader : public BarReader
{
public:
    explicit GrowingBarReader(CsvReader& csv)
        : BarReader(csv)
    {
        letRowsReplace();
    }
};

/// @param last  bytes at the end of the file that are read; all of them otherwise.
std::optional<BarSeries> readBars(const std::string& path, std::optional<std::int64_t> last,
                                  std::string& failure, const ReadingProgress& progress)
{
    CsvReader csv(path);
    failure.clear();
    if (csv.readHeader()) {
        BarReader reader(csv);
        if (last)
            csv.skipToLast(*last);
        for (std::size_t row = 0; csv.nextRow(); ++row) {
            if (progress && row % kRowsOfAStep == 0 && !progress(csv.share()))
                return std::nullopt;
            reader.readRow();
        }
        BarSeries bars = reader.take();
        if (bars.size() == 0)
            csv.fail("the file has a header and no bars");
        if (!csv.failed())
            return bars;
    }
    failure = csv.failure();
    return std::nullopt;
}

} // namespace

std::optional<BarSeries> readBars(const std::string& path, std::string& failure,
                                  const ReadingProgress& progress)
{
    return readBars(path, std::nullopt, failure, progress);
}

std::optional<BarSeries> readLastBars(const std::string& path, std::string& failure)
{
    constexpr std::int64_t lastBytes = 4096;
    return readBars(path, lastBytes, failure, {});
}

class BarFollower::Worker : public RowFollower<GrowingBarReader>
{
public:
    using RowFollower::RowFollower;
};

BarFollower::BarFollower(const std::string& path)
    : m_worker(std::make_unique<Worker>(path))
{
}

BarFollower::~BarFollower() = default;

std::size_t BarFollower::read()
{
    return m_worker->read();
}

const BarSeries& BarFollower::bars() const
{
    static const BarSeries none;
    return m_worker->reader() ? m_worker->reader()->series() : none;
}

const std::string& BarFollower::failure() const
{
    return m_worker->failure();
}

} // namespace engine
