// SPDX-License-Identifier: MIT
#include "host/embedded/reading/program/CellDates.h"

#include <QDate>

#include <cmath>

namespace workbook {

namespace {

constexpr qint64 kSecondsOfDay = 86'400;

DateKind kindOf(bool hasDate, bool hasTime)
{
    if (hasDate)
        return hasTime ? DateKind::DateTime : DateKind::Date;
    return hasTime ? DateKind::Time : DateKind::None;
}

QString dayText(qint64 day, bool is1904)
{
    constexpr int daysTo1904 = 1'462, neverDay = 60;
    if (is1904)
        day += daysTo1904;
    else if (day == neverDay)
        return QStringLiteral("1900-02-29");
    const QDate first = day < neverDay ? QDate(1899, 12, 31) : QDate(1899, 12, 30);
    return first.addDays(day).toString(QStringLiteral("yyyy-MM-dd"));
}

QString timeText(qint64 seconds)
{
    const auto two = [](qint64 number) {
        return QString::number(number).rightJustified(2, QLatin1Char('0'));
    };
    return two(seconds / 3'600) + QLatin1Char(':') + two(seconds / 60 % 60) + QLatin1Char(':')
        + two(seconds % 60);
}

} // namespace

DateKind kindOfBuiltIn(int id)
{
    // 27 to 36 and 50 to 58 are the dates of Chinese, Japanese and Korean workbooks.
    if ((id >= 14 && id <= 17) || (id >= 27 && id <= 31) || id == 36 || (id >= 50 && id <= 54) || id == 57
        || id == 58)
        return DateKind::Date;
    if ((id >= 18 && id <= 21) || (id >= 32 && id <= 35) || (id >= 45 && id <= 47) || id == 55 || id == 56)
        return DateKind::Time;
    return id == 22 ? DateKind::DateTime : DateKind::None;
}

DateKind kindOfCode(const QString& code)
{
    bool hasDate = false, hasTime = false, hasMonthOrMinute = false;
    for (int i = 0; i < code.size() && code[i] != QLatin1Char(';'); ++i) {
        const QChar c = code[i].toLower();
        if (c == QLatin1Char('"')) {
            i = code.indexOf(QLatin1Char('"'), i + 1);
        } else if (c == QLatin1Char('\\') || c == QLatin1Char('_') || c == QLatin1Char('*')) {
            ++i; // the next character is shown, is a width, or fills
        } else if (c == QLatin1Char('[')) {
            const int end = code.indexOf(QLatin1Char(']'), i);
            const QString inside = code.mid(i + 1, end - i - 1).toLower(); // a colour, a condition, [h], ...
            for (const char unit : { 'h', 'm', 's' })
                hasTime |= !inside.isEmpty() && inside.count(QLatin1Char(unit)) == inside.size();
            i = end;
        } else if (QStringView(code).mid(i).startsWith(QLatin1String("General"), Qt::CaseInsensitive)) {
            i += 6;
        } else {
            hasDate |= c == QLatin1Char('y') || c == QLatin1Char('d');
            hasTime |= c == QLatin1Char('h') || c == QLatin1Char('s');
            hasMonthOrMinute |= c == QLatin1Char('m');
        }
        if (i < 0)
            break; // a quotation or a bracket without an end
    }
    return kindOf(hasDate || (hasMonthOrMinute && !hasTime), hasTime);
}

QString dateText(double days, DateKind kind, bool is1904)
{
    constexpr double lastDay = 2'958'465; // the end of the year 9999
    if (kind == DateKind::None || !(days >= 0.0) || days > lastDay)
        return QString();
    const auto seconds = static_cast<qint64>(std::llround(days * kSecondsOfDay));
    switch (kind) {
    case DateKind::Time: return timeText(seconds);
    case DateKind::Date: return dayText(static_cast<qint64>(days), is1904);
    default:
        return dayText(seconds / kSecondsOfDay, is1904) + QLatin1Char(' ')
            + timeText(seconds % kSecondsOfDay);
    }
}

} // namespace workbook
