// SPDX-License-Identifier: MIT
#include "apps/chart/TimeMarks.h"

#include "apps/chart/TimeDivision.h"
#include "host/utils/CivilDate.h"
#include "host/utils/LocalDateTime.h"

#include <QDateTime>

#include <optional>

namespace chart {

namespace {

/// A division is too fine when it has more pieces on an axis, whatever becomes of them.
constexpr int kMostSeen = 1000;

constexpr TimeDivision kDays { TimeDivision::Unit::Day, 1 };

/// A bar that may carry a mark.
struct Candidate
{
    int bar = 0;
    LocalSeconds time = 0;  ///< of the bar
    LocalSeconds shown = 0; ///< the round time that the mark shows
    bool newDay = false;    ///< the bar before belongs to another day
};

/// The shown bars with what every division asks of them.
struct Shown
{
    const std::vector<std::int64_t>& times;
    BarView view;
    int first, last; ///< bars that are shown and have a time
    int spacing;     ///< pixels

    std::optional<LocalSeconds> at(int bar) const
    {
        return localSeconds(times[static_cast<std::size_t>(bar)]);
    }
    bool areApart(const Candidate& left, const Candidate& right) const
    {
        return view.centre(right.bar) - view.centre(left.bar) >= spacing;
    }
    bool isReadable(const Candidate& mark) const { return view.centre(mark.bar) >= spacing / 2; }
};

/// Marks of one division as they come from left to right. Days go before times of day; of two others the one
/// that comes first stays.
class Marking
{
public:
    Marking(const Shown& shown, const TimeDivision& division)
        : m_shown(shown)
        , m_division(division)
    {
    }

    /// @return false when the division is too fine for the axis.
    bool add(const Candidate& mark)
    {
        if (++m_seen > kMostSeen)
            return false;
        if (m_division.isInsideADay() && !mark.newDay && mark.time - mark.shown >= tolerance())
            return true; // the round time has no bar: a break, or bars that stand beside it
        while (m_division.isInsideADay() && mark.newDay && isTooClose(mark) && !m_marks.back().newDay)
            m_marks.pop_back();
        if (!isTooClose(mark)) {
            m_marks.push_back(mark);
            return true;
        }
        if (m_division.isInsideADay() && !mark.newDay && m_marks.back().newDay)
            return true;
        // A short week or month may lie between two others; most must have their room.
        return ++m_dropped <= m_marks.size() / 4 && !(m_division.isInsideADay() && mark.newDay);
    }

    std::vector<Candidate> take() { return std::move(m_marks); }

private:
    bool isTooClose(const Candidate& mark) const
    {
        return !m_marks.empty() && !m_shown.areApart(m_marks.back(), mark);
    }
    /// Seconds that a bar may lie behind the time that it marks: times are shown in minutes, or in seconds.
    LocalSeconds tolerance() const { return m_division.length < 60 ? 1 : 60; }

    const Shown& m_shown;
    TimeDivision m_division;
    std::vector<Candidate> m_marks;
    std::size_t m_dropped = 0;
    int m_seen = 0;
};

/// The marks of a division; nothing when it is too fine for the axis.
std::optional<std::vector<Candidate>> marksOf(const TimeDivision& division, const Shown& shown)
{
    Marking marking(shown, division);
    std::optional<LocalSeconds> before = shown.at(std::max(0, shown.first - 1));
    for (int bar = shown.first; bar <= shown.last && before;) {
        const std::optional<LocalSeconds> time = shown.at(bar);
        if (!time)
            break;
        const LocalSeconds piece = division.pieceOf(*time);
        const bool newDay = kDays.pieceOf(*time) != kDays.pieceOf(*before);
        if (piece != division.pieceOf(*before)
            && !marking.add({ bar, *time, division.isInsideADay() ? piece : *time, newDay }))
            return std::nullopt;
        bar = std::max(bar + 1, firstBarFrom(shown.times, division.nextPiece(piece), bar + 1, shown.last));
        before = shown.at(bar - 1);
    }
    return marking.take();
}

/// Bars at even distances, counted from the first of all so that they move along with the chart.
std::vector<Candidate> evenMarks(const Shown& shown)
{
    const int step = std::max(1, static_cast<int>(std::ceil(shown.spacing / shown.view.slotWidth())));
    std::vector<Candidate> marks;
    for (int bar = (shown.first + step - 1) / step * step; bar <= shown.last; bar += step) {
        const std::optional<LocalSeconds> time = shown.at(bar), before = shown.at(std::max(0, bar - 1));
        if (!time || !before)
            break;
        marks.push_back({ bar, *time, *time, kDays.pieceOf(*time) != kDays.pieceOf(*before) });
        if (marks.size() > 1 && !shown.areApart(marks[marks.size() - 2], marks.back()))
            marks.pop_back(); // slots are no whole pixels
    }
    return marks;
}

QString formatted(LocalSeconds time, const char* format)
{
    // As if it were UTC: the zone is accounted for already.
    return QDateTime::fromSecsSinceEpoch(time, Qt::UTC).toString(QString::fromLatin1(format));
}

/// Texts of marks inside a day: the date where the day changes, else the time.
std::vector<TimeMark> timesOfDay(const std::vector<Candidate>& marks, const Shown& shown)
{
    bool withSeconds = false, isDayTold = false;
    for (const Candidate& mark : marks) {
        withSeconds = withSeconds || mark.shown % 60 != 0;
        isDayTold = isDayTold || (mark.newDay && shown.isReadable(mark));
    }
    std::vector<TimeMark> told;
    std::optional<LocalSeconds> day;
    for (const Candidate& mark : marks) {
        const LocalSeconds itsDay = kDays.pieceOf(mark.time);
        const bool tellsDay =
            day ? *day != itsDay && !mark.newDay : !isDayTold && !mark.newDay && shown.isReadable(mark);
        told.push_back({ mark.bar,
                         mark.newDay       ? formatted(mark.time, "MM-dd")
                             : tellsDay    ? formatted(mark.shown, "MM-dd HH:mm")
                             : withSeconds ? formatted(mark.shown, "HH:mm:ss")
                                           : formatted(mark.shown, "HH:mm") });
        if (day || isDayTold || shown.isReadable(mark))
            day = itsDay;
    }
    return told;
}

/// Texts of marks at days: the year as well where it changes, and on the first one.
std::vector<TimeMark> days(const std::vector<Candidate>& marks, const Shown& shown)
{
    std::vector<TimeMark> told;
    std::optional<std::int64_t> year;
    for (const Candidate& mark : marks) {
        const std::int64_t itsYear =
            utils::civilFromDays(utils::floorDiv(mark.time, utils::kSecondsPerDay)).year;
        told.push_back({ mark.bar, formatted(mark.time, year == itsYear ? "MM-dd" : "yyyy-MM-dd") });
        if (shown.isReadable(mark))
            year = itsYear;
    }
    return told;
}

std::vector<TimeMark> months(const std::vector<Candidate>& marks, int length)
{
    std::vector<TimeMark> told;
    told.reserve(marks.size());
    for (const Candidate& mark : marks)
        told.push_back({ mark.bar, formatted(mark.time, length < 12 ? "yyyy-MM" : "yyyy") });
    return told;
}

/// Whether the marks tell more than a coarser division does, and are two at least.
bool areEnough(const std::vector<Candidate>& marks, const TimeDivision& division, const Shown& shown)
{
    const bool areDays =
        std::all_of(marks.begin(), marks.end(), [](const Candidate& mark) { return mark.newDay; });
    if (division.isInsideADay() && areDays)
        return false;
    return std::count_if(marks.begin(), marks.end(),
                         [&](const Candidate& mark) { return shown.isReadable(mark); })
        >= 2;
}

} // namespace

std::vector<TimeMark> timeMarks(const std::vector<std::int64_t>& times, const BarView& view, int spacing)
{
    const Shown shown { times, view, std::max(0, view.first),
                        std::min(view.last, static_cast<int>(times.size()) - 1), spacing };
    if (shown.first > shown.last || view.width <= 0)
        return {};
    for (const TimeDivision& division : timeDivisions()) {
        const std::optional<std::vector<Candidate>> marks = marksOf(division, shown);
        if (!marks || !areEnough(*marks, division, shown))
            continue;
        if (division.isInsideADay())
            return timesOfDay(*marks, shown);
        return division.unit == TimeDivision::Unit::Month ? months(*marks, division.length)
                                                          : days(*marks, shown);
    }
    const std::vector<Candidate> marks = evenMarks(shown);
    const bool areInsideADay = std::any_of(marks.begin(), marks.end(), [](const Candidate& mark) {
        return mark.time != kDays.pieceOf(mark.time);
    });
    return areInsideADay ? timesOfDay(marks, shown) : days(marks, shown);
}

QString timeText(const std::vector<std::int64_t>& times, int bar)
{
    if (bar < 0 || bar >= static_cast<int>(times.size()))
        return QString();
    const QDateTime time = utils::localDateTime(times[static_cast<std::size_t>(bar)]);
    return time.toString(time.time() == QTime(0, 0) ? QStringLiteral("yyyy-MM-dd")
                                                    : QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

} // namespace chart
