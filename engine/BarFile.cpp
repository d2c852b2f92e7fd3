#include "engine/BarFile.h"

#include "engine/CsvFile.h"

namespace engine {

namespace {

/// Where the columns of a bars file stand; -1 for an optional one that is not there.
struct Columns
{
    explicit Columns(CsvFile& file)
        : date(file.neededColumn("date"))
        , time(file.column("time"))
        , open(file.neededColumn("open"))
        , high(file.neededColumn("high"))
        , low(file.neededColumn("low"))
        , close(file.neededColumn("close"))
        , volume(file.neededColumn("volume"))
        , amount(file.column("amount"))
        , openInterest(file.column("open_interest"))
    {
    }

    int date, time, open, high, low, close, volume, amount, openInterest;
};

/// Start of the bar in a row; the date may carry the time behind a blank.
std::int64_t readTime(CsvFile& file, const Columns& columns)
{
    std::string_view day = file.field(columns.date), clock;
    const std::size_t blank = day.find_first_of(" T");
    if (blank != std::string_view::npos) {
        clock = day.substr(blank + 1);
        day = day.substr(0, blank);
    } else if (columns.time >= 0) {
        clock = file.field(columns.time);
    }
    const std::optional<CalendarDate> date = parseDate(day);
    const std::optional<int> seconds = clock.empty() ? 0 : parseTimeOfDay(clock);
    if (!date)
        file.fail("\"" + std::string(day) + "\" is not a date such as 2024-03-05");
    else if (!seconds)
        file.fail("\"" + std::string(clock) + "\" is not a time such as 09:30");
    else
        return localTimeMs(date->year, date->month, date->day, *seconds / 3600, *seconds / 60 % 60,
                           *seconds % 60);
    return 0;
}

} // namespace

std::optional<BarSeries> readBars(const std::string& path, std::string& failure)
{
    CsvFile file(path);
    const Columns columns(file);
    BarSeries bars;
    while (file.next()) {
        const std::int64_t time = readTime(file, columns);
        if (file.failure().empty() && !bars.timeMs.empty() && time <= bars.timeMs.back())
            file.fail("the date is not after the one before");
        const double open = file.number(columns.open), high = file.number(columns.high),
                     low = file.number(columns.low), close = file.number(columns.close);
        if (high < low) // published opens and closes may lie a little outside; they are kept
            file.fail("the high is below the low");
        bars.timeMs.push_back(time);
        bars.open.push_back(open);
        bars.high.push_back(high);
        bars.low.push_back(low);
        bars.close.push_back(close);
        bars.volume.push_back(file.number(columns.volume));
        if (columns.amount >= 0)
            bars.amount.push_back(file.number(columns.amount));
        if (columns.openInterest >= 0)
            bars.openInterest.push_back(file.number(columns.openInterest));
    }
    if (bars.size() == 0)
        file.fail("there is no bar");
    if (file.failure().empty())
        return bars;
    failure = file.failure();
    return std::nullopt;
}

} // namespace engine
