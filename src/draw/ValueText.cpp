// SPDX-License-Identifier: MIT
/// @file Texts and keys of values, shared by painters and legend.

#include "draw/CDrawStyle.h"

#include "draw/internal/Numbers.h"
#include "host/WB/NumberFormat.h"

#include <algorithm>
#include <cmath>

namespace TC {

using namespace detail;

int buildQuoteKey(double price)
{
    const double key = price > 0.0 ? std::floor(price * 1000.0 + 0.5) : std::ceil(price * 1000.0 - 0.5);
    return toPixel(key); // the same saturation; NaN gives 0
}

int CDrawStyle::priceTick2Precision(double priceTick)
{
    constexpr int usual = 2, tooMany = 10;
    constexpr double leastWhole = 1.0 - kTolerance;
    if (isMissingMarker(priceTick))
        return usual;
    if (priceTick >= leastWhole)
        return 0;
    double scaled = priceTick;
    for (int decimals = 1; decimals < tooMany; ++decimals) {
        scaled *= 10.0;
        if (scaled >= leastWhole)
            return decimals;
    }
    return usual;
}

QString CDrawStyle::toStringByPrec(int precision, double value, double priceTick)
{
    constexpr int byTick = -1, large = -2, percent = -3;
    const QString invalid = QStringLiteral("非法值");
    switch (precision) {
    case byTick: return WB::formatPriceDoubleNumber(value, priceTick);
    case large: return WB::formatDoubleNumber(value, 2, utils::EFormatNumber_Large, true, invalid);
    case percent: return WB::formatDoubleNumber(value, 2, utils::EFormatNumber_Percent, true, invalid);
    default: return WB::formatDoubleNumber(value, precision, {}, true, invalid);
    }
}

void CDrawStyle::removeEndZero(QString& text)
{
    if (!text.contains(QLatin1Char('.')))
        return;
    while (text.endsWith(QLatin1Char('0')))
        text.chop(1);
    // Deliberate: only the first point is looked at, so "1.2.0" becomes "1.2.".
    if (text.indexOf(QLatin1Char('.')) == text.size() - 1)
        text.chop(1);
}

bool CDrawStyle::isCommodityFuturesMarket(const std::string& market)
{
    static const char* const codes[] = { "DF", "DCE", "ZF", "CZCE", "SF", "SHFE", "GF", "GFEX" };
    return std::any_of(std::begin(codes), std::end(codes), [&](const char* code) { return market == code; });
}

} // namespace TC
