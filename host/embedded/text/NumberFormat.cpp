// SPDX-License-Identifier: MIT
#include "host/WB/NumberFormat.h"

#include <QLatin1Char>

#include <algorithm>
#include <cfloat>
#include <cmath>

namespace {

constexpr double kTolerance = 1e-5;
constexpr int kMostDecimals = 20;

QString invalidNumberText()
{
    return QStringLiteral("非法值");
}

/// Drops zeros behind the decimal point, and the point itself when nothing is left behind it.
void trimZeros(QString& text)
{
    if (!text.contains(QLatin1Char('.')))
        return;
    while (text.endsWith(QLatin1Char('0')))
        text.chop(1);
    if (text.endsWith(QLatin1Char('.')))
        text.chop(1);
}

/// Fixed notation of the C locale; a negative number that rounds to zero loses its sign.
QString fixed(double value, int precision)
{
    QString text = QString::number(value, 'f', std::clamp(precision, 0, kMostDecimals));
    const bool isNegativeZero = text.startsWith(QLatin1Char('-'))
        && std::none_of(text.cbegin(), text.cend(),
                        [](QChar c) { return c >= QLatin1Char('1') && c <= QLatin1Char('9'); });
    if (isNegativeZero)
        text.remove(0, 1);
    return text;
}

QString largeNumber(double value, int precision)
{
    const double magnitude = std::abs(value);
    double unit = 1.0;
    QString suffix;
    if (magnitude >= 1e8) {
        unit = 1e8;
        suffix = QStringLiteral("亿");
    } else if (magnitude >= 1e4) {
        unit = 1e4;
        suffix = QStringLiteral("万");
    }
    QString text = fixed(value / unit, precision);
    trimZeros(text);
    return text + suffix;
}

/// Decimals of a price tick: 0.01 has two, 1 none; anything unusable counts as two.
int decimalsOfTick(double tick)
{
    constexpr int usual = 2, most = 9;
    if (!std::isfinite(tick) || tick >= DBL_MAX || tick <= 0.0)
        return usual;
    int decimals = 0;
    for (double scaled = tick; scaled < 1.0 - kTolerance; scaled *= 10.0) {
        if (++decimals > most)
            return usual;
    }
    return decimals;
}

} // namespace

namespace WB {

QString formatDoubleNumber(double value, int precision, FormatNumberFlags flags, bool,
                           const QString& invalidText)
{
    if (!std::isfinite(value) || value >= DBL_MAX)
        return invalidText;
    if (flags.testFlag(utils::EFormatNumber_Percent))
        return fixed(value * 100.0, precision) + QLatin1Char('%');
    if (flags.testFlag(utils::EFormatNumber_Large))
        return largeNumber(value, precision);
    return fixed(value, precision);
}

QString formatIntNumber(int value, int, FormatNumberFlags)
{
    return QString::number(value);
}

QString formatPriceDoubleNumber(double value, double priceTick)
{
    return formatDoubleNumber(value, decimalsOfTick(priceTick), {}, true, invalidNumberText());
}

} // namespace WB
