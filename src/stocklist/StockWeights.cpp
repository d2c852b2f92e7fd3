// SPDX-License-Identifier: MIT
/// @file The weights of a basket by its six rules.

#include "stocklist/CParserStockExeclTable.h"

#include "host/WB/NumberFormat.h"
#include "host/ttservice/CInstrumentDetail.h"

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <limits>

namespace TC {

namespace {

using Stocks = QMap<QString, ParserStockDetail>;
using Weights = QVector<float>;

enum EWeightType {
    EWeight_Equal = 0,
    EWeight_FreeFloatValue = 2,
    EWeight_TotalMarketValue = 3,
    EWeight_AbsoluteAsEntered = 4,
    EWeight_Shares = 5
};

constexpr int kLot = 100;

/// A double as float; beyond the floats' range it is infinite.
float toFloat(double value)
{
    constexpr float infinity = std::numeric_limits<float>::infinity();
    if (std::isfinite(value) && std::abs(value) > FLT_MAX)
        return value > 0.0 ? infinity : -infinity;
    return static_cast<float>(value);
}

/// A figure without its decimals; saturates at the limits of 64 bits, and no number counts as 0.
std::int64_t truncated(double figure)
{
    constexpr double limit = 9223372036854775808.0; // 2^63
    if (std::isnan(figure))
        return 0;
    if (figure >= limit)
        return std::numeric_limits<std::int64_t>::max();
    return figure < -limit ? std::numeric_limits<std::int64_t>::min() : static_cast<std::int64_t>(figure);
}

std::int64_t saturatedSum(std::int64_t a, std::int64_t b)
{
    using Limits = std::numeric_limits<std::int64_t>;
    if (b > 0 && a > Limits::max() - b)
        return Limits::max();
    return b < 0 && a < Limits::min() - b ? Limits::min() : a + b;
}

double figureOf(const ParserStockDetail& stock, int field)
{
    return stock.instrument ? stock.instrument->getNumber(field) : 0.0;
}

void weighEqually(Stocks& stocks, Weights& relative, Weights& absolute)
{
    int entry = 0;
    for (ParserStockDetail& stock : stocks) {
        stock.relativeWeight = 1.0;
        stock.absoluteWeight = 1.0 / stocks.size();
        relative[entry] = 1.0f;
        absolute[entry++] = toFloat(stock.absoluteWeight);
    }
}

void weighAsEntered(Stocks& stocks, Weights& relative, Weights& absolute)
{
    float sum = 0.0f;
    int entry = 0;
    for (const ParserStockDetail& stock : std::as_const(stocks)) {
        relative[entry] = toFloat(stock.relativeWeight);
        sum += relative[entry++];
    }
    entry = 0;
    for (ParserStockDetail& stock : stocks) {
        absolute[entry] = relative[entry] / sum;
        stock.absoluteWeight = stock.relativeWeight / sum;
        ++entry;
    }
}

void weighByFigure(Stocks& stocks, int field, Weights& relative, Weights& absolute)
{
    std::int64_t total = 0;
    for (const ParserStockDetail& stock : std::as_const(stocks))
        total = saturatedSum(total, truncated(figureOf(stock, field)));
    const double divisor = static_cast<double>(total); // an integer division by 0 would be a crash
    int entry = 0;
    for (ParserStockDetail& stock : stocks) {
        // Deliberate: the vectors hold the truncated figure, the stocks the figure with its decimals.
        const double figure = figureOf(stock, field);
        const std::int64_t whole = truncated(figure);
        const std::int64_t lots = whole / kLot; // full lots only
        relative[entry] = static_cast<float>(lots);
        absolute[entry++] = toFloat(static_cast<double>(whole) / divisor);
        stock.relativeWeight = figure / 100.0;
        stock.absoluteWeight = figure / divisor;
    }
}

void weighByShares(Stocks& stocks, Weights& relative, Weights& absolute)
{
    std::int64_t total = 0;
    for (const ParserStockDetail& stock : std::as_const(stocks))
        total += stock.shareCount;
    const double divisor = static_cast<double>(total);
    int entry = 0;
    for (ParserStockDetail& stock : stocks) {
        const int lots = stock.shareCount / kLot; // Deliberate: a broken lot is no weight: 50 shares give 0
        stock.relativeWeight = lots;
        stock.absoluteWeight = stock.shareCount / divisor;
        relative[entry] = static_cast<float>(lots);
        absolute[entry++] = toFloat(stock.absoluteWeight);
    }
}

} // namespace

void CParserStockExeclTable::getWeightValue(QVector<float>& relative, QVector<float>& absolute)
{
    constexpr int freeFloatField = 3015, totalField = 3016;
    if (m_weightType == EWeight_AbsoluteAsEntered) {
        // Deliberate: this rule appends, where all others set the size of both vectors.
        for (const ParserStockDetail& stock : std::as_const(m_stocks))
            absolute.append(toFloat(stock.absoluteWeight));
        return;
    }
    relative.resize(m_stocks.size());
    absolute.resize(m_stocks.size());
    switch (m_weightType) {
    case EWeight_Equal: weighEqually(m_stocks, relative, absolute); break;
    case EWeight_FreeFloatValue: weighByFigure(m_stocks, freeFloatField, relative, absolute); break;
    case EWeight_TotalMarketValue: weighByFigure(m_stocks, totalField, relative, absolute); break;
    case EWeight_Shares: weighByShares(m_stocks, relative, absolute); break;
    default: weighAsEntered(m_stocks, relative, absolute);
    }
}

void CParserStockExeclTable::reCalc()
{
    QVector<float> relative, absolute;
    getWeightValue(relative, absolute);
    filterColumn();

    double relativeSum = 0.0, absoluteSum = 0.0;
    for (const ParserStockDetail& stock : std::as_const(m_stocks)) {
        relativeSum += stock.relativeWeight;
        absoluteSum += stock.absoluteWeight;
    }
    const QString invalid = QStringLiteral("非法值");
    setStatText(3, WB::formatDoubleNumber(relativeSum, 1, {}, false, invalid));
    setStatText(4, WB::formatDoubleNumber(absoluteSum, 1, utils::EFormatNumber_Percent, false, invalid));
}

void CParserStockExeclTable::getStockAmount(QList<int>& amounts) const
{
    for (const ParserStockDetail& stock : m_stocks)
        amounts.append(stock.shareCount);
}

QVector<QString> CParserStockExeclTable::getAllStock() const
{
    QVector<QString> keys;
    for (const ParserStockDetail& stock : m_stocks)
        keys.append(stock.key());
    return keys;
}

} // namespace TC
