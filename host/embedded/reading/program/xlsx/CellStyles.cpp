// SPDX-License-Identifier: MIT
#include "host/embedded/reading/program/xlsx/CellStyles.h"

#include <charconv>

namespace workbook {

int wholeNumber(std::string_view text)
{
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() && number >= 0 ? number : -1;
}

void CellStyles::startElement(std::string_view name, const XmlAttributes& attributes)
{
    const Place around = m_path.empty() ? Place::Elsewhere : m_path.back();
    if (around == Place::Formats && name == "numFmt") {
        const std::string_view code = attributes.value("formatCode");
        m_formats.insert(wholeNumber(attributes.value("numFmtId")),
                         kindOfCode(QString::fromUtf8(code.data(), static_cast<int>(code.size()))));
    } else if (around == Place::CellFormats && name == "xf") {
        m_formatOfStyle.push_back(wholeNumber(attributes.value("numFmtId")));
    }
    const Place here = name == "numFmts" ? Place::Formats
        : name == "cellXfs"              ? Place::CellFormats
                                         : Place::Elsewhere;
    m_path.push_back(m_path.size() == 1 ? here : Place::Elsewhere);
}

DateKind CellStyles::kind(std::size_t style) const
{
    if (style >= m_formatOfStyle.size())
        return DateKind::None;
    const int format = m_formatOfStyle[style];
    const auto own = m_formats.constFind(format);
    return own == m_formats.constEnd() ? kindOfBuiltIn(format) : *own;
}

} // namespace workbook
