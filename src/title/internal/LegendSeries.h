#pragma once
/// @file Series behind an output's sub-lines, chosen by the type of their column.

#include "draw/internal/Output.h"

namespace TC::detail {

/// The column of a sub-line; empty when the output does not list as many.
inline std::optional<int> columnOf(const se::RPCFormulaMetaResult& meta, int output, int subLine)
{
    const std::vector<int>* columns =
        output < meta.outputCount ? elementAt(meta.outputColumns, output) : nullptr;
    const int* column = columns ? elementAt(*columns, subLine) : nullptr;
    return column ? std::optional<int>(*column) : std::nullopt;
}

/// Whether a column's values are texts; a column without a type holds numbers.
inline bool isTextColumn(const se::RPCFormulaResult& result, int column)
{
    constexpr int text = 3;
    const int* type = elementAt(result.columnType, column);
    return type && *type == text;
}

/// Numbers of a sub-line by bar; null when it has none.
inline const std::vector<double>* numberSeriesOf(const se::RPCFormulaResult& result,
                                                 const se::RPCFormulaMetaResult& meta, int output,
                                                 int subLine)
{
    const std::optional<int> column = columnOf(meta, output, subLine);
    if (!column || isTextColumn(result, *column))
        return nullptr;
    const int* series = elementAt(result.columnSeries, *column);
    return series ? elementAt(result.numberSeries, *series) : nullptr;
}

/// Texts of a sub-line by bar; null when it has none.
inline const std::vector<std::string>* textSeriesOf(const se::RPCFormulaResult& result,
                                                    const se::RPCFormulaMetaResult& meta, int output,
                                                    int subLine)
{
    const std::optional<int> column = columnOf(meta, output, subLine);
    if (!column || !isTextColumn(result, *column))
        return nullptr;
    const int* series = elementAt(result.columnSeries, *column);
    return series ? elementAt(result.textSeries, *series) : nullptr;
}

} // namespace TC::detail
