// SPDX-License-Identifier: MIT
#include "apps/client/recovery/LineDiff.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace client {

namespace {

constexpr std::size_t kMostPairs = 4'000'000; // bounds time and memory

std::size_t sizeOf(const QStringList& lines)
{
    return static_cast<std::size_t>(lines.size());
}

void append(std::vector<DiffLine>& to, DiffLine::Kind kind, const QStringList& lines)
{
    for (const QString& line : lines)
        to.push_back({ kind, line });
}

/// The longest common part from each pair of lines to the ends of both texts.
class CommonLengths
{
public:
    CommonLengths(const QStringList& before, const QStringList& after)
        : m_columns(sizeOf(after) + 1)
        , m_lengths((sizeOf(before) + 1) * m_columns, 0)
    {
        for (int b = before.size() - 1; b >= 0; --b) {
            for (int a = after.size() - 1; a >= 0; --a) {
                const bool equal = before.at(b) == after.at(a);
                cell(b, a) = equal ? at(b + 1, a + 1) + 1 : std::max(at(b + 1, a), at(b, a + 1));
            }
        }
    }

    std::uint32_t at(int b, int a) const
    {
        return m_lengths[static_cast<std::size_t>(b) * m_columns + static_cast<std::size_t>(a)];
    }

private:
    std::uint32_t& cell(int b, int a)
    {
        return m_lengths[static_cast<std::size_t>(b) * m_columns + static_cast<std::size_t>(a)];
    }

    std::size_t m_columns;
    std::vector<std::uint32_t> m_lengths;
};

/// The part between the equal heads and tails of both texts.
std::vector<DiffLine> middleDiff(const QStringList& before, const QStringList& after)
{
    std::vector<DiffLine> lines;
    if (sizeOf(before) * sizeOf(after) > kMostPairs) {
        append(lines, DiffLine::Removed, before);
        append(lines, DiffLine::Added, after);
        return lines;
    }
    const CommonLengths common(before, after);
    int b = 0, a = 0;
    while (b < before.size() && a < after.size()) {
        if (before.at(b) == after.at(a)) {
            lines.push_back({ DiffLine::Same, before.at(b) });
            ++b, ++a;
        } else if (common.at(b + 1, a) >= common.at(b, a + 1)) {
            lines.push_back({ DiffLine::Removed, before.at(b++) });
        } else {
            lines.push_back({ DiffLine::Added, after.at(a++) });
        }
    }
    append(lines, DiffLine::Removed, before.mid(b));
    append(lines, DiffLine::Added, after.mid(a));
    return lines;
}

} // namespace

std::vector<DiffLine> lineDiff(const QStringList& before, const QStringList& after)
{
    const int shorter = std::min<int>(before.size(), after.size());
    int head = 0;
    while (head < shorter && before.at(head) == after.at(head))
        ++head;
    int tail = 0;
    while (tail < shorter - head && before.at(before.size() - 1 - tail) == after.at(after.size() - 1 - tail))
        ++tail;

    std::vector<DiffLine> lines;
    append(lines, DiffLine::Same, before.mid(0, head));
    const std::vector<DiffLine> middle = middleDiff(before.mid(head, before.size() - head - tail),
                                                    after.mid(head, after.size() - head - tail));
    lines.insert(lines.end(), middle.begin(), middle.end());
    append(lines, DiffLine::Same, before.mid(before.size() - tail));
    return lines;
}

std::vector<DiffLine> aroundChanges(const std::vector<DiffLine>& lines, int context)
{
    const int count = static_cast<int>(lines.size());
    std::vector<bool> shown(lines.size(), false);
    bool changed = false;
    for (int line = 0; line < count; ++line) {
        if (lines[static_cast<std::size_t>(line)].kind == DiffLine::Same)
            continue;
        changed = true;
        for (int near = std::max(0, line - context); near <= std::min(count - 1, line + context); ++near)
            shown[static_cast<std::size_t>(near)] = true;
    }
    std::vector<DiffLine> result;
    if (!changed)
        return result;
    for (std::size_t line = 0; line < lines.size(); ++line) {
        if (shown[line])
            result.push_back(lines[line]);
        else if (result.empty() || result.back().kind != DiffLine::Gap)
            result.push_back({ DiffLine::Gap, QString() });
    }
    return result;
}

} // namespace client
