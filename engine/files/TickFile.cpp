// SPDX-License-Identifier: MIT
#include "engine/files/TickFile.h"

#include "engine/files/CsvReader.h"
#include "engine/files/RowFollower.h"
#include "engine/series/SeriesHead.h"
#include "engine/series/Series.h"
#include "engine/calendar/Times.h"

namespace engine {

namespace {

/// One column that goes into one vector.
struct LevelColumn
{
    std::size_t column;
    std::vector<double>* values;
    double whenEmpty;
};

/// Reads one row after another into the series.
class TickReader
{
public:
    explicit TickReader(CsvReader& csv)
        : m_csv(csv)
        , m_time(csv.require("time_utc"))
        , m_price(csv.require("price"))
        , m_volume(csv.require("volume"))
    {
        addLevel("bid1", m_ticks.bid.price[0], kMissingMarker);
        addLevel("ask1", m_ticks.ask.price[0], kMissingMarker);
        if (!hasAnyDepth())
            return;
        for (std::size_t level = 0; level < kBookLevels; ++level) {
            const std::string number = std::to_string(level + 1);
            if (level > 0) {
                addLevel("bid" + number, m_ticks.bid.price[level], kMissingMarker);
                addLevel("ask" + number, m_ticks.ask.price[level], kMissingMarker);
            }
            addLevel("bidvol" + number, m_ticks.bid.volume[level], 0.0);
            addLevel("askvol" + number, m_ticks.ask.volume[level], 0.0);
        }
    }

    void readRow()
    {
        readTime();
        m_ticks.price.push_back(m_csv.number(m_price));
        m_ticks.volume.push_back(m_csv.number(m_volume));
        for (const LevelColumn& level : m_levels) {
            const bool empty = m_csv.text(level.column).empty();
            level.values->push_back(empty ? level.whenEmpty : m_csv.number(level.column));
        }
    }

    const TickSeries& series() const { return m_ticks; }
    TickSeries take() { return std::move(m_ticks); }

    /// Forgets what was read of a wrong row. The places of the level columns stay.
    void dropBeyond(std::size_t count) { m_ticks = headOf(m_ticks, count); }

private:
    /// Whether the header names any column of the deeper book; then it must name all of them.
    bool hasAnyDepth() const
    {
        for (const char* side : { "bid", "ask", "bidvol", "askvol" }) {
            for (int level = 1; level <= static_cast<int>(kBookLevels); ++level) {
                const std::string name = side + std::to_string(level);
                if (name != "bid1" && name != "ask1" && m_csv.find(name))
                    return true;
            }
        }
        return false;
    }

    void addLevel(const std::string& name, std::vector<double>& values, double whenEmpty)
    {
        m_levels.push_back({ m_csv.require(name), &values, whenEmpty });
    }

    void readTime()
    {
        std::string_view text = m_csv.text(m_time);
        if (!text.empty() && text.back() == 'Z')
            text.remove_suffix(1);
        const std::size_t mark = text.find_first_of("T ");
        CivilTime time;
        if (mark == std::string_view::npos || !readDate(text.substr(0, mark), time)
            || !readTimeOfDay(text.substr(mark + 1), time))
            return m_csv.fail("\"" + std::string(m_csv.text(m_time).substr(0, 40)) + "\" is not a time");
        const std::int64_t msecs = utcMs(time);
        if (!m_ticks.timeMs.empty() && msecs < m_ticks.timeMs.back())
            return m_csv.fail("the time is before the one before");
        m_ticks.timeMs.push_back(msecs);
    }

    CsvReader& m_csv;
    TickSeries m_ticks;
    std::size_t m_time, m_price, m_volume;
    std::vector<LevelColumn> m_levels;
};

} // namespace

std::optional<TickSeries> readTicks(const std::string& path, std::string& failure)
{
    CsvReader csv(path);
    if (csv.readHeader()) {
        TickReader reader(csv);
        while (csv.nextRow())
            reader.readRow();
        TickSeries ticks = reader.take();
        if (ticks.size() == 0)
            csv.fail("the file has a header and no trades");
        if (!csv.failed())
            return ticks;
    }
    failure = csv.failure();
    return std::nullopt;
}

class TickFollower::Worker : public RowFollower<TickReader>
{
public:
    using RowFollower::RowFollower;
};

TickFollower::TickFollower(const std::string& path)
    : m_worker(std::make_unique<Worker>(path))
{
}

TickFollower::~TickFollower() = default;

std::size_t TickFollower::read()
{
    return m_worker->read();
}

const TickSeries& TickFollower::ticks() const
{
    static const TickSeries none;
    return m_worker->reader() ? m_worker->reader()->series() : none;
}

const std::string& TickFollower::failure() const
{
    return m_worker->failure();
}

} // namespace engine
