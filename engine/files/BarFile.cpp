// SPDX-License-Identifier: MIT
#include "engine/files/BarFile.h"

#include "engine/files/CsvReader.h"
#include "engine/calendar/Times.h"

namespace engine {

namespace {

/// Reads one row after another into the series.
class BarReader
{
public:
    explicit BarReader(CsvReader& csv)
        : m_csv(csv)
        , m_date(csv.require("date"))
        , m_time(csv.find("time"))
        , m_prices { csv.require("open"), csv.require("high"), csv.require("low"), csv.require("close") }
        , m_volume(csv.require("volume"))
        , m_amount(csv.find("amount"))
        , m_openInterest(csv.find("open_interest"))
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
        m_bars.volume.push_back(m_csv.number(m_volume));
        if (m_amount)
            m_bars.amount.push_back(m_csv.number(*m_amount));
        if (m_openInterest)
            m_bars.openInterest.push_back(m_csv.number(*m_openInterest));
    }

    BarSeries take() { return std::move(m_bars); }

private:
    static constexpr std::vector<double> BarSeries::*kPrices[] = { &BarSeries::open, &BarSeries::high,
                                                                   &BarSeries::low, &BarSeries::close };

    /// The date, and the time in a column of its own or after a blank in the date's.
    void readTime()
    {
        std::string_view date = m_csv.text(m_date), time = m_time ? m_csv.text(*m_time) : std::string_view();
        if (const std::size_t blank = date.find(' '); blank != std::string_view::npos && time.empty()) {
            time = date.substr(date.find_first_not_of(' ', blank));
            date = date.substr(0, blank);
        }
        CivilTime civil;
        if (!readDate(date, civil))
            return m_csv.fail("\"" + std::string(date.substr(0, 40)) + "\" is not a date");
        if (!time.empty() && !readTimeOfDay(time, civil))
            return m_csv.fail("\"" + std::string(time.substr(0, 40)) + "\" is not a time");
        const std::optional<std::int64_t> msecs = localMs(civil);
        if (!msecs)
            return m_csv.fail("the date is out of range");
        // Where the clock is put forward or back, what was written in order need not lie in order.
        const std::int64_t written = utcMs(civil);
        if (!m_bars.timeMs.empty() && written <= m_lastWritten)
            return m_csv.fail("the date is not after the one before");
        m_lastWritten = written;
        m_bars.timeMs.push_back(*msecs);
    }

    CsvReader& m_csv;
    std::size_t m_date;
    std::optional<std::size_t> m_time;
    std::size_t m_prices[4];
    std::size_t m_volume;
    std::optional<std::size_t> m_amount, m_openInterest;
    std::int64_t m_lastWritten = 0; ///< date and time of the row before as they stand there
    BarSeries m_bars;
};

} // namespace

std::optional<BarSeries> readBars(const std::string& path, std::string& failure)
{
    CsvReader csv(path);
    if (csv.readHeader()) {
        BarReader reader(csv);
        while (csv.nextRow())
            reader.readRow();
        BarSeries bars = reader.take();
        if (bars.size() == 0)
            csv.fail("the file has a header and no bars");
        if (!csv.failed())
            return bars;
    }
    failure = csv.failure();
    return std::nullopt;
}

} // namespace engine
