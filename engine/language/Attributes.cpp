// SPDX-License-Identifier: MIT
#include "engine/language/Attributes.h"

#include <algorithm>

namespace engine::language {

namespace {

struct NamedColor
{
    const char* name;
    int packed; ///< 0x00BBGGRR, as stacked bars translate it into a name
};

constexpr NamedColor kColors[] = {
    { "RED", 0x0000FF },      { "GREEN", 0x00FF00 },  { "BLUE", 0xFF0000 },    { "CYAN", 0xFFFF54 },
    { "MAGENTA", 0xFF00FF },  { "YELLOW", 0x00FFFF }, { "WHITE", 0xFFFFFF },   { "GRAY", 0x808080 },
    { "BROWN", 0x004080 },    { "BLACK", 0x000000 },  { "ORANGE", 0x0080FF },  { "LIRED", 0x8080FF },
    { "LIGREEN", 0x80FF80 },  { "LIBLUE", 0xFF8080 }, { "LICYAN", 0xFFFFAA },  { "LIMAGENTA", 0xFF80FF },
    { "LIYELLOW", 0x80FFFF }, { "LIGRAY", 0xC0C0C0 }, { "LIBROWN", 0x4080C0 },
};

std::vector<Attribute> makeAttributes()
{
    using Effect = Attribute::Effect;
    std::vector<Attribute> attributes;
    for (const NamedColor& color : kColors)
        attributes.push_back(
            { std::string("COLOR") + color.name, Effect::Color, color.packed, "颜色", "colour" });
    const auto numbered = [&](const char* name, int last, Effect effect, const char* chinese,
                              const char* english) {
        for (int value = 0; value <= last; ++value)
            attributes.push_back({ name + std::to_string(value), effect, value, chinese, english });
    };
    attributes.push_back({ "LINETHICK", Effect::Width, 1, "线宽 1 像素", "a line one pixel wide" });
    numbered("LINETHICK", 7, Effect::Width, "线宽（像素），0 为不画", "line width in pixels; 0: not drawn");
    numbered("PRECIS", 4, Effect::Decimals, "图例中的小数位数", "decimals in the legend");
    numbered("ALIGN", se::Position::PaneBottom, Effect::Position, "文字、数字、图标的位置",
             "placement of texts, numbers and icons");
    const Attribute others[] = {
        { "DOTLINE", Effect::Style, se::LineStyle::Dot, "点线", "dotted line" },
        { "DASHDOT", Effect::Style, se::LineStyle::DashDot, "点划线", "line of dashes and dots" },
        { "DASHDOTDOT", Effect::Style, se::LineStyle::DashDotDot, "双点划线", "line of dashes and two dots" },
        { "COLORSTICK", Effect::DrawType, se::DrawType::ColorStick, "红绿柱",
          "sticks from zero, coloured by sign" },
        { "VOLSTICK", Effect::DrawType, se::DrawType::Volume, "成交量柱",
          "volume bars in the candle's colour" },
        { "POINTDOT", Effect::DrawType, se::DrawType::PointDot, "点", "a dot per bar" },
        { "CIRCLEDOT", Effect::DrawType, se::DrawType::CircleDot, "小圆点", "a small circle per bar" },
        { "CROSSDOT", Effect::DrawType, se::DrawType::PointDot, "点（没有叉形，按 POINTDOT 画）",
          "a dot per bar; there are no crosses" },
        { "STICK", Effect::Sticks, 0, "从零起的柱", "sticks from zero" },
        { "LINESTICK", Effect::Sticks, 1, "线加从零起的柱", "a line, and sticks from zero" },
        { "SEGMENT", Effect::DrawType, se::DrawType::SegmentLine, "在缺值处断开的线",
          "a line that breaks at missing values" },
        { "BOOLLINE", Effect::DrawType, se::DrawType::BoolLine, "0/1 阶梯线", "a step line of 0 and 1" },
        { "NODRAW", Effect::NotDrawn, se::DrawType::Line, "只在图例中显示", "shown in the legend only" },
        { "NOTEXT", Effect::HideInLegend, 1, "不在图例中显示", "not shown in the legend" },
        { "MAIN", Effect::Pane, 1, "叠加在主图", "drawn over the main chart" },
        { "SUB", Effect::Pane, 0, "副图", "drawn in a pane of its own" },
        { "MAINCHART", Effect::Pane, 2, "主图本身", "the main chart itself" },
    };
    attributes.insert(attributes.end(), std::begin(others), std::end(others));
    return attributes;
}

/// The six hexadecimal digits behind a beginning of the key.
std::optional<int> digitsBehind(const std::string& beginning, const std::string& key)
{
    constexpr std::size_t digits = 6;
    if (key.size() != beginning.size() + digits || key.compare(0, beginning.size(), beginning) != 0
        || key.find_first_not_of("0123456789ABCDEF", beginning.size()) != std::string::npos)
        return std::nullopt;
    return std::stoi(key.substr(beginning.size()), nullptr, 16);
}

/// COLORbbggrr, the order of the packed colour itself, or #RRGGBB.
std::optional<int> digitsColor(const std::string& key)
{
    if (const std::optional<int> rgb = digitsBehind("#", key))
        return (*rgb & 0xFF) << 16 | (*rgb & 0xFF00) | *rgb >> 16;
    return digitsBehind("COLOR", key);
}

} // namespace

const std::vector<Attribute>& allAttributes()
{
    static const std::vector<Attribute> attributes = makeAttributes();
    return attributes;
}

std::optional<Attribute> findAttribute(const std::string& key)
{
    const auto& attributes = allAttributes();
    const auto found = std::find_if(attributes.begin(), attributes.end(),
                                    [&](const Attribute& attribute) { return attribute.name == key; });
    if (found != attributes.end())
        return *found;
    if (const std::optional<int> color = digitsColor(key))
        return Attribute { key, Attribute::Effect::Color, *color, "颜色", "colour" };
    return std::nullopt;
}

} // namespace engine::language
