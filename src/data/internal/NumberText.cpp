// SPDX-License-Identifier: MIT
#include "data/internal/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace TC::detail {

namespace {

/// An exact number near `nearest`, the double closest to it: `beyond` has the sign of what rounding took
/// away.
struct Rounded
{
    double nearest;
    double beyond;
};

/// `value * factor`; the fused operation gives the rounding error without one of its own.
Rounded product(double value, double factor)
{
    const double nearest = value * factor;
    return { nearest, std::fma(value, factor, -nearest) };
}

/// `value / divisor`, likewise.
Rounded quotient(double value, double divisor)
{
    const double nearest = value / divisor;
    return { nearest, std::fma(-nearest, divisor, value) };
}

/// Whole number closest to the exact number, the even one of two, as printf rounds. The number is from 0 to
/// 2^51, where halves are doubles: an exact number above a half is never rounded to a double below it, so
/// that what rounding took away matters only on the half itself.
std::int64_t toWhole(const Rounded& exact)
{
    const auto whole = static_cast<std::int64_t>(exact.nearest);
    const double part = exact.nearest - static_cast<double>(whole);
    const bool up =
        part > 0.5 || (part == 0.5 && (exact.beyond > 0 || (exact.beyond == 0 && whole % 2 == 1)));
    return up ? whole + 1 : whole;
}

/// Writes `count` digits, zeros in front.
void writeDigits(char* to, std::int64_t number, int count)
{
    for (char* digit = to + count; digit != to; number /= 10)
        *--digit = static_cast<char>('0' + number % 10);
}

void appendSlowly(std::string& text, double value, std::chars_format format, int precision)
{
    std::array<char, 400> digits; // the largest double has 309 digits in front of the point
    const auto written =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, format, precision);
    text.append(digits.data(), written.ptr);
}

constexpr int kSignificant = 6;
constexpr int kLowestPower = -4; ///< first of kPowers

/// 10^-4 to 10^16. The doubles of 10^-4 to 10^-1 lie above those numbers and their predecessors below, so
/// that comparing with them is comparing with the powers themselves; the others are exact.
constexpr std::array<double, 21> kPowers { 1e-4, 1e-3, 1e-2, 1e-1, 1e0,  1e1,  1e2,  1e3,  1e4,  1e5, 1e6,
                                           1e7,  1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16 };

double powerOfTen(int power)
{
    return kPowers[static_cast<std::size_t>(power - kLowestPower)];
}

/// Writes a point and the digits behind it, without the zeros at the end; nothing when all are zeros.
char* writeFraction(char* to, const char* digits, const char* end)
{
    while (end != digits && end[-1] == '0')
        --end;
    if (end == digits)
        return to;
    *to++ = '.';
    return std::copy(digits, end, to);
}

/// Writes the number that `digits` (six of them, the first one's place being 10^power) stand for.
char* writeGeneral(char* to, const char* digits, int power)
{
    const char* const end = digits + kSignificant;
    if (power < 0) { // 0.00123456
        std::array<char, kSignificant - kLowestPower> padded;
        padded.fill('0');
        std::copy(digits, end, padded.begin() - power - 1);
        *to++ = '0';
        return writeFraction(to, padded.data(), padded.data() + kSignificant - power - 1);
    }
    if (power < kSignificant) { // 123.456
        to = std::copy(digits, digits + power + 1, to);
        return writeFraction(to, digits + power + 1, end);
    }
    *to++ = *digits; // 1.23456e+07
    to = writeFraction(to, digits + 1, end);
    *to++ = 'e';
    *to++ = '+';
    writeDigits(to, static_cast<std::int64_t>(power), 2);
    return to + 2;
}

} // namespace

void appendFixed4(std::string& text, double value)
{
    constexpr double largest = 1e15; // below 2^51; not a number fails the comparison as well
    constexpr std::int64_t unit = 10'000;
    const double magnitude = std::abs(value);
    if (!(magnitude < largest)) {
        appendSlowly(text, value, std::chars_format::fixed, 4);
        return;
    }
    auto whole = static_cast<std::int64_t>(magnitude);
    std::int64_t decimals = toWhole(product(magnitude - static_cast<double>(whole), unit));
    if (decimals == unit) {
        ++whole;
        decimals = 0;
    }
    std::array<char, 32> written;
    char* to = written.data();
    if (std::signbit(value))
        *to++ = '-';
    to = std::to_chars(to, written.data() + written.size(), whole).ptr;
    *to++ = '.';
    writeDigits(to, decimals, 4);
    text.append(written.data(), to + 4);
}

void appendGeneral6(std::string& text, double value)
{
    const double magnitude = std::abs(value);
    if (!(magnitude >= kPowers.front() && magnitude < kPowers.back())) {
        if (magnitude == 0.0)
            text += std::signbit(value) ? "-0" : "0";
        else
            appendSlowly(text, value, std::chars_format::general, kSignificant);
        return;
    }
    int power =
        static_cast<int>(std::upper_bound(kPowers.begin(), kPowers.end(), magnitude) - kPowers.begin())
        + kLowestPower - 1;
    const int shift = kSignificant - 1 - power; // decimal places that the six digits begin with
    std::int64_t significant =
        toWhole(shift >= 0 ? product(magnitude, powerOfTen(shift)) : quotient(magnitude, powerOfTen(-shift)));
    if (significant == 1'000'000) { // 999999.5 has the digits of 1e+06
        significant = 100'000;
        ++power;
    }
    std::array<char, kSignificant> digits;
    writeDigits(digits.data(), significant, kSignificant);
    std::array<char, 32> written;
    char* to = written.data();
    if (std::signbit(value))
        *to++ = '-';
    text.append(written.data(), writeGeneral(to, digits.data(), power));
}

} // namespace TC::detail
