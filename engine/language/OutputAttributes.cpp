// SPDX-License-Identifier: MIT
#include "engine/language/OutputAttributes.h"

#include "engine/language/ForeignWords.h"
#include "engine/language/Scope.h"

namespace engine::language {

void OutputAttributes::read()
{
    m_reader.take();
    const Token token = m_reader.current();
    if (token.kind != TokenKind::Name && token.kind != TokenKind::Color) {
        m_reader.expected("属性", "an attribute");
        return;
    }
    m_reader.take();
    if (token.isWord("RGB") && m_reader.current().is("(")) {
        giveRgb(token);
        return;
    }
    if (const std::optional<Attribute> attribute = findAttribute(token.key)) {
        give(token, *attribute);
        return;
    }
    if (const ForeignWord* word = findForeignWord(token.key)) {
        m_reader.report(token, word->chinese, word->english);
        return;
    }
    if (const std::string range = numberedAttributes(token.key); !range.empty()) {
        m_reader.report(token, "没有这个属性，应为 " + range, "unknown attribute, expected " + range);
        return;
    }
    const std::string nearest = nearestAttribute(token.key);
    m_reader.report(token, "没有这个属性" + (nearest.empty() ? "" : "，是不是 " + nearest),
                    "unknown attribute" + (nearest.empty() ? "" : ", did you mean " + nearest));
}

void OutputAttributes::passOver(TokenReader& reader)
{
    reader.hint(reader.current(), "用 := 定义的值不画出来，属性不起作用",
                "a hidden value is not drawn, its attributes have no effect");
    while (reader.current().is(",")) {
        reader.take();
        const bool isCall = reader.next().is("(");
        reader.take();
        while (isCall && !reader.atEnd() && !reader.current().is(";")) {
            if (reader.take().is(")"))
                break;
        }
    }
}

/// RGB(r,g,b) with numbers from 0 to 255.
void OutputAttributes::giveRgb(const Token& token)
{
    int color = 0;
    for (int shift = 0; shift <= 16; shift += 8) {
        m_reader.take(); // the parenthesis or a comma
        const Token part = m_reader.current();
        const bool isPart = part.kind == TokenKind::Number && part.number >= 0.0 && part.number <= 255.0;
        if (!isPart) {
            m_reader.expected("0 至 255 的数字", "a number from 0 to 255");
            return;
        }
        color |= static_cast<int>(part.number) << shift;
        m_reader.take();
        if (shift < 16 && !m_reader.current().is(",")) {
            m_reader.expected(" ,", ",");
            return;
        }
    }
    if (m_reader.expectSign(")"))
        giveColor(token, color);
}

void OutputAttributes::give(const Token& token, const Attribute& attribute)
{
    const bool isPlaced = m_output.drawType == se::DrawType::Text || m_output.drawType == se::DrawType::Number
        || m_output.drawType == se::DrawType::Icon;
    switch (attribute.effect) {
    case Attribute::Effect::Color: giveColor(token, attribute.value); break;
    case Attribute::Effect::Width: m_output.lineWidth = attribute.value; break;
    case Attribute::Effect::Style: m_output.lineStyle = attribute.value; break;
    case Attribute::Effect::DrawType:
        if (token.isWord("CROSSDOT"))
            m_reader.hint(token, "没有叉形，按 POINTDOT 画", "there are no crosses, drawn as POINTDOT");
        giveDrawType(token, attribute.value, true);
        break;
    case Attribute::Effect::Sticks:
        giveDrawType(token, se::DrawType::Line, attribute.value == 1);
        m_output.hasSticks = !m_output.isDrawing;
        break;
    case Attribute::Effect::NotDrawn: giveDrawType(token, attribute.value, false); break;
    case Attribute::Effect::Decimals: m_output.decimals = attribute.value; break;
    case Attribute::Effect::HideInLegend: m_output.isHiddenInLegend = true; break;
    case Attribute::Effect::Position:
        if (!isPlaced)
            m_reader.report(token, "只有文字、数字和图标有位置", "only texts, numbers and icons are placed");
        m_output.position = attribute.value;
        break;
    case Attribute::Effect::Pane: m_paneKind = attribute.value; break;
    }
}

void OutputAttributes::giveDrawType(const Token& token, int drawType, bool isDrawn)
{
    if (m_output.isDrawing) {
        m_reader.report(token, "绘图函数不能用这个属性", "drawings do not take this attribute");
        return;
    }
    m_output.drawType = static_cast<se::DrawType::Code>(drawType);
    m_output.isDrawn = isDrawn;
}

void OutputAttributes::giveColor(const Token& token, int color)
{
    if (!m_output.colors.empty() && m_output.drawType != se::DrawType::StackedVolume)
        m_reader.report(token, "这个输出已经有颜色", "this output has a colour already");
    m_output.colors.push_back(color);
}

} // namespace engine::language
