// SPDX-License-Identifier: MIT
#pragma once
/// @file Writes the records of a formula output by output.

#include "engine/records/FormulaRecords.h"
#include "engine/series/Series.h"
#include "host/se/RecordCodes.h"

#include <string>
#include <utility>

namespace engine {

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

    RecordBuilder& output(const std::string& name, se::DrawType::Code drawType);
    /// One more column of the last output, over a number series.
    RecordBuilder& column(int series, Axis axis);
    /// One more column of the last output, over a text series.
    RecordBuilder& textColumn(int texts);
    /// An output that the legend shows and nothing paints.
    RecordBuilder& legendOnly(const std::string& name, int series);

    /// Makes the last column one of flags, 0 or 1.
    RecordBuilder& flags();

    RecordBuilder& width(int pixels);
    /// @param code  of se::LineStyle.
    RecordBuilder& style(int code);
    /// 0x00BBGGRR instead of the palette's colour.
    RecordBuilder& color(int packed);
    /// @param code  of se::Position.
    RecordBuilder& position(int code);
    RecordBuilder& valueKind(se::ValueKind::Code kind);

    FormulaRecords take() { return std::move(m_records); }

private:
    FormulaRecords m_records;
};

} // namespace engine
