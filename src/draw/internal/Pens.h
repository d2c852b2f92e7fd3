// SPDX-License-Identifier: MIT
#pragma once
/// @file Pens and colours of the painters.

#include "data/internal/RecordViews.h"
#include "draw/CDrawStyle.h"
#include "host/WB/SkinLookup.h"

#include <QColor>
#include <QPen>

namespace TC::detail {

constexpr const char* kRiseColor = "ic_clr_kline_rise";
constexpr const char* kFallColor = "ic_clr_kline_fall";
constexpr const char* kHighLowColor = "ic_clr_kline_highlow_line";
constexpr const char* kRealtimeStickColor = "ic_clr_realtime_colorstick";
constexpr const char* kIconColor = "ic_clr_draw_icon";
constexpr const char* kTitleFont = "fnt_index_title_text";

/// Opaque colour of a 0x00BBGGRR word.
inline QColor fromPacked(int color)
{
    return QColor(color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF, 255);
}

/// Colour word of an output: its own where the formula set one, else the palette's. Empty when the
/// description does not reach as far as this output.
inline std::optional<int> outputColor(const OutputView& output)
{
    const auto isSet = output.entry(&se::RPCFormulaMetaResult::colorSet);
    const auto color = output.entry(&se::RPCFormulaMetaResult::color);
    if (!isSet || !color)
        return std::nullopt;
    return CDrawStyle::getIndexOutPutColorKey(output.index(), *isSet, *color);
}

/// Sets `penStyle` from an output's line-style code; unknown codes and missing entries leave it.
inline void applyLineStyle(int& penStyle, const se::RPCFormulaMetaResult& meta, int output)
{
    const int* code = elementAt(meta.lineStyle, output);
    if (!code)
        return;
    switch (*code) {
    case se::LineStyle::Solid: penStyle = Qt::SolidLine; break;
    case se::LineStyle::Dot: penStyle = Qt::DotLine; break;
    case se::LineStyle::DashDot: penStyle = Qt::DashDotLine; break;
    case se::LineStyle::DashDotDot: penStyle = Qt::DashDotDotLine; break;
    default: break;
    }
}

/// The painters' pen: Qt's default square cap and bevel join.
inline QPen linePen(const QColor& color, double width, Qt::PenStyle style)
{
    return QPen(color, width, style, Qt::SquareCap, Qt::BevelJoin);
}

} // namespace TC::detail
