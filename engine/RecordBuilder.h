#pragma once
/// @file Building a formula's records output by output.

#include "engine/Formulas.h"
#include "engine/Series.h"

namespace engine {

/// Drawing methods that the built-in formulas use.
enum class DrawType {
    Line = 0,
    ColorStick = 2,
    Tick = 3,
    TickVolume = 4,
    Candle = 12,
    Text = 13,
    Icon = 19,
    Number = 26,
    Volume = 27,
    FixedText = 31
};

/// How an output is drawn and shown.
struct OutputStyle
{
    DrawType drawType = DrawType::Line;
    int lineWidth = 1; ///< pixels; 0: shown in the legend only
    int position = 0;  ///< placement of texts and icons, 0 to 5
    int valueKind = 0; ///< 0 number, 1 integer, 2 signal, 3 text
    int color = -1;    ///< 0x00BBGGRR; below 0: left to the palette
};

/// Collects columns and outputs over the bars of one computation.
class RecordBuilder
{
public:
    explicit RecordBuilder(const std::vector<std::int64_t>& timesMs);

    /// Adds a number column. @return its index.
    int column(Series values, bool onAxis = true);
    /// Adds a text column, one UTF-8 text a bar. @return its index.
    int textColumn(std::vector<std::string> texts);
    /// Adds a number series that no column names. @return its place among the number series.
    int series(Series values);

    /// Adds an output drawn from the given columns.
    void output(const std::string& name, std::vector<int> columns, const OutputStyle& style = {});
    /// Adds a line of its own column.
    void line(const std::string& name, Series values) { output(name, { column(std::move(values)) }); }

    FormulaRecords take() { return std::move(m_records); }

private:
    FormulaRecords m_records;
};

} // namespace engine
