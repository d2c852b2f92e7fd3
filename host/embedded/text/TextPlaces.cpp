// SPDX-License-Identifier: MIT
#include "host/embedded/text/TextPlaces.h"

#include <algorithm>

namespace TC::embedded {

TextPlaces::TextPlaces(const QByteArray& text)
    : m_text(text)
    , m_lineStarts { text.startsWith("\xEF\xBB\xBF") ? 3 : 0 } // a byte-order mark is no column
{
    int units = 0;
    for (int begin = 0; begin <= text.size(); begin += kStride) {
        m_units.push_back(units);
        const int end = std::min<int>(begin + kStride, text.size());
        units += unitsBetween(begin, end);
        for (int offset = begin; offset < end; ++offset) {
            if (text.at(offset) == '\n')
                m_lineStarts.push_back(offset + 1);
        }
    }
}

QString TextPlaces::placeAt(int offset) const
{
    offset = std::clamp(offset, m_lineStarts.front(), std::max<int>(m_lineStarts.front(), m_text.size()));
    const auto next = std::upper_bound(m_lineStarts.begin(), m_lineStarts.end(), offset);
    const int column = unitsBefore(offset) - unitsBefore(*(next - 1)) + 1;
    return QStringLiteral("%1:%2").arg(next - m_lineStarts.begin()).arg(column);
}

int TextPlaces::unitsBefore(int offset) const
{
    const int stride = offset / kStride;
    return m_units[static_cast<std::size_t>(stride)] + unitsBetween(stride * kStride, offset);
}

/// Units of the characters that begin in a stretch of bytes.
int TextPlaces::unitsBetween(int begin, int end) const
{
    int units = 0;
    for (int offset = begin; offset < end; ++offset) {
        const auto byte = static_cast<unsigned char>(m_text.at(offset));
        const bool continues = (byte & 0xC0) == 0x80;
        units += continues ? 0 : byte >= 0xF0 ? 2 : 1; // from 0xF0 on a character needs a surrogate pair
    }
    m_walkedBytes += end - begin;
    return units;
}

} // namespace TC::embedded
