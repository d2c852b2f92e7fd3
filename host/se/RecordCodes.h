// SPDX-License-Identifier: MIT
#pragma once
/// @file The codes of a formula's records: what engine, library and panes say to one another.
///
/// The records hold plain ints (an engine may send codes that nobody here knows), so the codes are unscoped
/// enumerations in a scope of their own: `se::DrawType::Candle` compares with an int as it stands.

namespace se {

/// How an output is drawn (RPCFormulaMetaResult::drawType) and which columns it takes, in order.
struct DrawType
{
    /// The codes.
    enum Code : int {
        Line = 0,           ///< value
        SegmentLine = 1,    ///< value; breaks where a value is missing
        ColorStick = 2,     ///< value; sticks from zero, coloured by sign
        Tick = 3,           ///< price; a cross per trade
        TickVolume = 4,     ///< volume, (not read), price
        PointDot = 10,      ///< value
        CircleDot = 11,     ///< value
        Candle = 12,        ///< open, high, low, close
        Text = 13,          ///< condition, price, text
        Icon = 19,          ///< condition, price[, shape]
        Number = 26,        ///< condition, price, number, decimals
        Volume = 27,        ///< volume, open, close
        StickLine = 28,     ///< condition, price 1, price 2, width, empty
        FixedText = 31,     ///< condition, mode, x, y, text
        VertLine = 34,      ///< condition[, upper, lower]
        Reserved = 36,      ///< nothing is drawn
        BoolLine = 37,      ///< flag: a column of ColumnType::Flag
        StackedVolume = 42, ///< one column per part
    };
};

/// What a column holds (RPCFormulaResult::columnType). Numbers are every code below Flag, and Plain.
struct ColumnType
{
    /// The codes.
    enum Code : int {
        Number = 0,  ///< exported with four decimals
        Integer = 1, ///< 2147483647 is a missing value
        Flag = 2,    ///< counts in a range only under DrawType::BoolLine, and then as 0 to 1
        Text = 3,    ///< values stand in the text series
        Plain = 200, ///< a number
    };
};

/// What the legend says of an output (RPCFormulaMetaResult::valueKind).
struct ValueKind
{
    /// The codes.
    enum Code : int {
        Number = 0,
        Integer = 1,
        Signal = 2, ///< 0 or 1
        Text = 3,   ///< read from the text series
    };
};

/// Dashes of a line (RPCFormulaMetaResult::lineStyle).
struct LineStyle
{
    /// The codes.
    enum Code : int { Solid = 0, Dot = 15, DashDot = 16, DashDotDot = 17 };
};

/// Where texts, numbers and icons stand (RPCFormulaMetaResult::position).
struct Position
{
    /// The codes.
    enum Code : int {
        CentredOnPoint = 0,
        AtPoint = 1,
        AbovePoint = 2, ///< right-aligned above the point
        PaneMiddle = 3,
        PaneTop = 4,
        PaneBottom = 5,
    };
};

} // namespace se
