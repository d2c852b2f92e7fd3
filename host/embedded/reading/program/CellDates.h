// SPDX-License-Identifier: MIT
#pragma once
/// @file Numbers that are shown as dates.

#include <QString>

namespace workbook {

/// What a number format shows.
enum class DateKind {
    None, ///< a plain number, a percentage, ...
    Date,
    Time,
    DateTime
};

/// Kind of one of the formats that every workbook has; None for all others.
DateKind kindOfBuiltIn(int formatId);
/// Kind of a format code such as "yyyy\-mm\-dd" or "[h]:mm:ss"; its first section decides.
DateKind kindOfCode(const QString& code);

/// Text of a number of days: "2024-03-09", "2024-03-09 15:30:15" or "09:30:00" (hours go beyond 24).
/// @param days  since the last day of 1899, with the day 29 February 1900 that spreadsheets count though it
///        never was; with `is1904` since the first day of 1904.
/// @return empty when the number is no date: negative, or past the year 9999.
QString dateText(double days, DateKind kind, bool is1904);

} // namespace workbook
