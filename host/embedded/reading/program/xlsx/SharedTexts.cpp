// SPDX-License-Identifier: MIT
#include "host/embedded/reading/program/xlsx/SharedTexts.h"

namespace workbook {

namespace {

constexpr int kItemDepth = 2; // sst/si

} // namespace

void SharedTexts::startElement(std::string_view name, const XmlAttributes&)
{
    if (++m_depth == kItemDepth) {
        m_text.clear();
        m_isItem = name == "si";
    } else if (m_depth > kItemDepth) {
        m_text.startElement(name);
    }
}

void SharedTexts::endElement()
{
    if (m_depth > kItemDepth)
        m_text.endElement();
    else if (m_depth == kItemDepth && m_isItem)
        m_cells.addShared(m_text.text());
    --m_depth;
}

} // namespace workbook
