// SPDX-License-Identifier: MIT
#include "draw/CDrawStyle.h"

#include "draw/internal/Pens.h"
#include "host/WB/CUiResource.h"
#include "host/utils/CSingletonT.h"

namespace TC {

using namespace detail;

QList<int> CDrawStyle::m_colorList;
QList<QColor> CDrawStyle::m_colorListGradient;

namespace {

constexpr int kPaletteSize = 10;
constexpr int kGradientSize = 2;

/// The skin's colours of a numbered key, 1 to `count`. Missing keys close the gap.
QList<QColor> numberedColors(const QString& key, int count)
{
    const WB::CUiResource* skin = utils::CSingletonT<WB::CUiResource>::instance();
    QList<QColor> colors;
    for (int number = 1; number <= count; ++number) {
        if (const QColor* color = skin->getColor(key.arg(number)))
            colors.append(*color);
    }
    return colors;
}

} // namespace

CDrawStyle::CDrawStyle()
{
    // Deliberate: every new object reloads the shared palette, also one that the host had replaced.
    resetDrawStyleColor();
}

void CDrawStyle::initColorList(QList<int> colors)
{
    m_colorList = colors;
}

void CDrawStyle::initColorListGradient(QList<QColor> colors)
{
    m_colorListGradient = colors;
}

void CDrawStyle::resetDrawStyleColor()
{
    QList<int> packed;
    const auto palette = numberedColors(QStringLiteral("ic_clr_index_output_var%1"), kPaletteSize);
    for (const QColor& color : palette)
        packed.append(color.red() | color.green() << 8 | color.blue() << 16);
    initColorList(packed);
    initColorListGradient(numberedColors(QStringLiteral("ic_clr_index_gradient%1"), kGradientSize));
}

int CDrawStyle::getIndexOutPutColorKey(int outputIndex, int colourIsSet, int colour)
{
    if (colourIsSet > 0)
        return colour;
    if (outputIndex >= 0 && outputIndex < m_colorList.size())
        return m_colorList[outputIndex];
    // Deliberate: outputs past the palette take its first colour; the palette does not wrap round.
    return m_colorList.isEmpty() ? 0 : m_colorList.first();
}

void CDrawStyle::getLineStyle(int& penStyle, const se::RPCFormulaMetaResult& meta, int outputIndex)
{
    applyLineStyle(penStyle, meta, outputIndex);
}

std::string CDrawStyle::colorName(int colour)
{
    // Colour constants of the formula language, keyed 0x00BBGGRR. Deliberate: the name's own colour is
    // drawn, not the constant (green is 0,128,0; cyan stands for 0xFFFF54).
    switch (colour) {
    case 0xFF0000: return "blue";
    case 0x004080: return "brown";
    case 0xFFFF54: return "cyan";
    case 0x808080: return "gray";
    case 0x00FF00: return "green";
    case 0xFF00FF: return "magenta";
    case 0x0000FF: return "red";
    case 0x00FFFF: return "yellow";
    default: return "white";
    }
}

} // namespace TC
