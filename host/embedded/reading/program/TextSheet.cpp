// SPDX-License-Identifier: MIT
#include "host/embedded/reading/TextDecoding.h"
#include "host/embedded/reading/program/Readers.h"

#include <algorithm>

namespace workbook {

namespace {

bool isText(const QString& text)
{
    constexpr int looked = 1024;
    const auto isControl = [](QChar c) {
        return c < QLatin1Char(' ') && c != QLatin1Char('\t') && c != QLatin1Char('\n')
            && c != QLatin1Char('\r');
    };
    return std::none_of(text.cbegin(), text.cbegin() + std::min<int>(text.size(), looked), isControl);
}

/// The fields of one line. They are cut where they stand: a line of millions of fields makes no list of them.
void takeLine(QStringView line, int row, CellCollector& cells)
{
    const bool hasTab = std::find(line.begin(), line.end(), QLatin1Char('\t')) != line.end();
    const QLatin1Char separator(hasTab ? '\t' : ',');
    int column = 0;
    for (auto from = line.begin();; ++column) {
        const auto to = std::find(from, line.end(), separator);
        cells.setText(row, column, QStringView(from, to));
        if (to == line.end() || cells.isRefused())
            return;
        from = to + 1;
    }
}

bool isLineEnd(QChar c)
{
    return c == QLatin1Char('\n') || c == QLatin1Char('\r');
}

} // namespace

void readTextSheet(const QByteArray& bytes, CellCollector& cells)
{
    const QString text = TC::embedded::decodeText(bytes);
    if (!isText(text)) {
        cells.refuse(Outcome::UnknownKind);
        return;
    }
    if (text.contains(QChar::ReplacementCharacter) || text.contains(QChar::Null))
        cells.noteLoss(); // bytes of no character in any encoding that was tried
    const QChar* const end = text.constData() + text.size();
    int row = 0;
    for (const QChar* from = text.constData(); from != end && !cells.isRefused(); ++row) {
        const QChar* to = std::find_if(from, end, isLineEnd);
        takeLine(QStringView(from, to), row, cells);
        if (to != end)
            to += to + 1 != end && *to == QLatin1Char('\r') && to[1] == QLatin1Char('\n') ? 2 : 1;
        from = to;
    }
}

} // namespace workbook
