// SPDX-License-Identifier: MIT
#include "host/embedded/table/TableColors.h"

#include "host/WB/SkinLookup.h"

namespace TC::embedded {

namespace {

/// `share` of `over` on `under`.
QColor blended(const QColor& under, const QColor& over, double share)
{
    const auto part = [&](int a, int b) { return static_cast<int>(a + (b - a) * share); };
    return QColor(part(under.red(), over.red()), part(under.green(), over.green()),
                  part(under.blue(), over.blue()));
}

} // namespace

TableColors::TableColors(const QPalette& fallback)
    : background(WB::skinColor("ic_clr_graph_kline_bg", fallback.color(QPalette::Base)))
    , text(WB::skinColor("clr_default", fallback.color(QPalette::Text)))
    , mutedText(WB::skinColor("clr_chart_axis_text", text))
    , grid(WB::skinColor("clr_chart_grid", fallback.color(QPalette::Mid)))
    , border(WB::skinColor("ic_clr_kline_graph_frame_border", grid))
    , mark(WB::skinColor("clr_stock_code", text))
{
    band = blended(background, text, 0.03);
    header = blended(background, text, 0.08);
    selection = blended(background, QColor(0x4f, 0x8f, 0xe6), 0.38);
}

QPalette TableColors::applied(QPalette palette) const
{
    palette.setColor(QPalette::Base, background);
    palette.setColor(QPalette::AlternateBase, band);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Button, header);
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::Highlight, selection);
    palette.setColor(QPalette::HighlightedText, text);
    palette.setColor(QPalette::Window, grid.lighter(120)); // grid lines are drawn in this, darker by 120
    return palette;
}

} // namespace TC::embedded
