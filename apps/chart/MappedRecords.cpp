// SPDX-License-Identifier: MIT
#include "apps/chart/MappedRecords.h"

#include "host/se/RecordCodes.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <limits>
#include <map>
#include <set>

namespace chart {

namespace {

using se::DrawType;

/// Whether an output's column of that number holds prices.
bool isPrice(int drawType, std::size_t column)
{
    switch (drawType) {
    case DrawType::Line:
    case DrawType::SegmentLine:
    case DrawType::PointDot:
    case DrawType::CircleDot:
    case DrawType::Tick:
    case DrawType::Candle: return true;
    case DrawType::Text:
    case DrawType::Icon:
    case DrawType::Number: return column == 1;
    case DrawType::StickLine:
    case DrawType::VertLine: return column == 1 || column == 2;
    default: return false;
    }
}

/// The columns that hold prices.
std::set<int> priceColumns(const se::RPCFormulaMetaResult& meta)
{
    std::set<int> columns;
    for (std::size_t output = 0; output < std::min(meta.drawType.size(), meta.outputColumns.size());
         ++output) {
        const std::vector<int>& own = meta.outputColumns[output];
        for (std::size_t column = 0; column < own.size(); ++column) {
            if (isPrice(meta.drawType[output], column))
                columns.insert(own[column]);
        }
    }
    return columns;
}

double placeOf(double price, const ValueAxis& axis)
{
    const bool isPrice = std::isfinite(price) && price < DBL_MAX;
    return isPrice ? axis.placeOf(price) : std::numeric_limits<double>::quiet_NaN();
}

std::vector<double> mapped(const std::vector<double>& prices, const ValueAxis& axis)
{
    std::vector<double> places(prices.size());
    std::transform(prices.begin(), prices.end(), places.begin(),
                   [&](double price) { return placeOf(price, axis); });
    return places;
}

} // namespace

TC::RPCFormulaResultCache mappedPrices(const TC::RPCFormulaResultCache& records, const ValueAxis& axis)
{
    TC::RPCFormulaResultCache copy = records;
    std::map<int, int> places; // series of prices: series of their places
    auto& series = copy.result.numberSeries;
    const std::set<int> columns = priceColumns(copy.meta);
    for (int column : columns) {
        if (column < 0 || column >= static_cast<int>(copy.result.columnSeries.size()))
            continue;
        int& own = copy.result.columnSeries[static_cast<std::size_t>(column)];
        if (own < 0 || own >= static_cast<int>(records.result.numberSeries.size()))
            continue;
        const auto [known, isNew] = places.emplace(own, static_cast<int>(series.size()));
        if (isNew)
            series.push_back(mapped(records.result.numberSeries[static_cast<std::size_t>(own)], axis));
        own = known->second;
        // Columns of whole numbers: their places are not.
        if (static_cast<std::size_t>(column) < copy.result.columnType.size()
            && copy.result.columnType[static_cast<std::size_t>(column)] == se::ColumnType::Integer)
            copy.result.columnType[static_cast<std::size_t>(column)] = se::ColumnType::Number;
    }
    return copy;
}

} // namespace chart
