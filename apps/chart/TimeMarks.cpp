// SPDX-License-Identifier: MIT
#include "apps/chart/TimeMarks.h"

#include <QDateTime>

#include <functional>

namespace chart {

namespace {

/// A way of cutting time into pieces; a mark stands where the piece changes.
struct Division
{
    std::function<qint64(const QDateTime&)> piece;
    QString format;
};

qint64 monthNumber(const QDate& date)
{
    return date.year() * 12LL + date.month() - 1;
}

qint64 minuteNumber(const QDateTime& time)
{
    return time.date().toJulianDay() * 1440 + qint64 { time.time().hour() } * 60 + time.time().minute();
}

const std::vector<Division>& divisions()
{
    const auto minutes = [](qint64 n) {
        return Division { [n](const QDateTime& t) { return minuteNumber(t) / n; }, QStringLiteral("HH:mm") };
    };
    const auto months = [](qint64 n, const QString& format) {
        return Division { [n](const QDateTime& t) { return monthNumber(t.date()) / n; }, format };
    };
    static const std::vector<Division> all = {
        minutes(1),
        minutes(5),
        minutes(15),
        minutes(30),
        minutes(60),
        minutes(120),
        { [](const QDateTime& t) { return t.date().toJulianDay(); }, QStringLiteral("MM-dd") },
        { [](const QDateTime& t) { return t.date().toJulianDay() / 7; }, QStringLiteral("MM-dd") },
        months(1, QStringLiteral("yyyy-MM")),
        months(3, QStringLiteral("yyyy-MM")),
        months(6, QStringLiteral("yyyy-MM")),
        months(12, QStringLiteral("yyyy")),
        months(24, QStringLiteral("yyyy")),
        months(60, QStringLiteral("yyyy")),
        months(120, QStringLiteral("yyyy")),
        months(600, QStringLiteral("yyyy")),
    };
    return all;
}

QDateTime localTime(const std::vector<std::int64_t>& times, int bar)
{
    return QDateTime::fromMSecsSinceEpoch(times[static_cast<std::size_t>(bar)]);
}

/// Marks of one division; empty when two of them come closer than `spacing`.
std::vector<TimeMark> marksOf(const Division& division, const std::vector<QDateTime>& shown,
                              const BarView& view, int spacing)
{
    std::vector<TimeMark> marks;
    int lastColumn = -spacing;
    for (std::size_t i = 1; i < shown.size(); ++i) {
        if (division.piece(shown[i]) == division.piece(shown[i - 1]))
            continue;
        const int bar = view.first + static_cast<int>(i);
        if (view.centre(bar) - lastColumn < spacing)
            return {};
        lastColumn = view.centre(bar);
        marks.push_back({ bar, shown[i].toString(division.format) });
    }
    return marks;
}

} // namespace

std::vector<TimeMark> timeMarks(const std::vector<std::int64_t>& times, const BarView& view, int spacing)
{
    std::vector<QDateTime> shown;
    for (int bar = std::max(0, view.first); bar <= view.last && bar < static_cast<int>(times.size()); ++bar)
        shown.push_back(localTime(times, bar));
    for (const Division& division : divisions()) {
        std::vector<TimeMark> marks = marksOf(division, shown, view, spacing);
        if (!marks.empty())
            return marks;
    }
    return {};
}

QString timeText(const std::vector<std::int64_t>& times, int bar)
{
    if (bar < 0 || bar >= static_cast<int>(times.size()))
        return QString();
    const QDateTime time = localTime(times, bar);
    return time.toString(time.time() == QTime(0, 0) ? QStringLiteral("yyyy-MM-dd")
                                                    : QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

} // namespace chart
