#pragma once
/// @file Writes the records of a formula output by output.

#include "engine/records/FormulaRecords.h"
#include "engine/series/Series.h"

#include <string>
#include <utility>

namespace engine {

/// Drawing methods, as the client's panes know them.
enum DrawType : int {
    kLine = 0,
    kSegment = 1,
    kColorStick = 2,
    kTick = 3,
    kTickVolume = 4,
    kPointDot = 10,
    kCircleDot = 11,
    kCandles = 12,
    kText = 13,
    kIcon = 19,
    kNumber = 26,
    kVolume = 27,
    kStickLine = 28,
    kFixedText = 31,
    kVerticalLine = 34,
    kStep = 37,
    kStackedVolume = 42
};

/// Kinds of values in the legend.
enum ValueKind : int { kNumberValue = 0, kIntegerValue = 1, kSignalValue = 2, kTextValue = 3 };

/// Where texts and icons stand.
enum Position : int { kAtPoint = 1, kAbovePoint = 2, kCentred = 0 };

/// Whether a column's values count for the value axis.
enum class Axis { No, Yes };

/// Builds records whose vectors all have their full length. Outputs start as solid lines of width 1 in the
/// palette's colour; setters act on the output that was added last.
class RecordBuilder
{
public:
    /// Adds trades: a trade carries data where it has a price.
    void setBars(const std::vector<std::int64_t>& timeMs, const Series& price);

    /// Adds a number series that columns may name; @return its index.
    int series(Series values);
    /// Adds a text series; @return its index among the texts.
    int texts(std::vector<std::string> values);

    RecordBuilder& output(const std::string& name, int drawType);
    /// One more column of the last output, over a number series.
    RecordBuilder& column(int series, Axis axis);
    /// One more column of the last output, over a text series.
    RecordBuilder& textColumn(int texts);
    /// An output that the legend shows and nothing paints.
    RecordBuilder& legendOnly(const std::string& name, int series);

    /// Makes the last column one of flags, 0 or 1.
    RecordBuilder& flags();

    RecordBuilder& width(int pixels);
    /// 0 solid, 15 dots, 16 dashes and dots, 17 dashes and two dots.
    RecordBuilder& style(int code);
    /// 0x00BBGGRR instead of the palette's colour.
    RecordBuilder& color(int packed);
    RecordBuilder& position(int code);
    RecordBuilder& valueKind(int kind);

    FormulaRecords take() { return std::move(m_records); }

private:
    FormulaRecords m_records;
};

} // namespace engine
