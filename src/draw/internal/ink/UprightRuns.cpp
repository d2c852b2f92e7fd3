// SPDX-License-Identifier: MIT
#include "draw/internal/ink/UprightRuns.h"

#include <algorithm>
#include <climits>

namespace TC::detail {

void UprightRuns::addBehind(int top, int bottom, quint32 word)
{
    const int column = m_count - 1;
    const auto isOpen = [&] { return !m_steps.empty() && m_steps.back().column == column; };
    while (isOpen() && m_steps.back().row >= top)
        m_steps.pop_back();
    if (!isOpen() || m_steps.back().word != word)
        m_steps.push_back({ top, column, word });
    m_bottoms[static_cast<std::size_t>(column)] = bottom;
}

void UprightRuns::store()
{
    if (m_count == 0)
        return;
    constexpr int fewest = 4, shortest = 4; // below, sweeping costs more than it saves
    const Rows shared = sharedRows();
    if (m_count >= fewest && static_cast<long long>(shared.bottom) - shared.top >= shortest) {
        storeColumns(shared);
        sweep(shared);
    } else {
        storeColumns({ INT_MAX, INT_MAX });
    }
    m_steps.clear();
    m_count = 0;
}

/// The rows that every column has.
UprightRuns::Rows UprightRuns::sharedRows() const
{
    int top = INT_MIN, column = -1;
    for (const Step& step : m_steps) {
        if (step.column != column)
            top = std::max(top, step.row);
        column = step.column;
    }
    return { top, *std::min_element(m_bottoms.begin(), m_bottoms.begin() + m_count) };
}

/// Stores what stands above and below the swept rows.
void UprightRuns::storeColumns(const Rows& swept) const
{
    for (std::size_t i = 0; i < m_steps.size(); ++i) {
        const Step& step = m_steps[i];
        const bool isLast = i + 1 == m_steps.size() || m_steps[i + 1].column != step.column;
        const int bottom = isLast ? m_bottoms[static_cast<std::size_t>(step.column)] : m_steps[i + 1].row - 1;
        const int x = m_left + step.column;
        if (step.row < swept.top)
            m_surface.fill(x, step.row, x, swept.top <= bottom ? swept.top - 1 : bottom, step.word);
        if (bottom > swept.bottom)
            m_surface.fill(x, std::max(step.row, swept.bottom + 1), x, bottom, step.word);
    }
}

void UprightRuns::sweep(const Rows& rows)
{
    if (m_steps.size() > static_cast<std::size_t>(m_count))
        std::sort(m_steps.begin(), m_steps.end(), [](const Step& a, const Step& b) { return a.row < b.row; });
    std::array<quint32, kMost> words {};
    int row = rows.top; // next one to store
    for (const Step& step : m_steps) {
        if (step.row > rows.bottom)
            break;
        if (step.row > row) {
            m_surface.fillRows(m_left, row, step.row - 1, words.data(), m_count);
            row = step.row;
        }
        words[static_cast<std::size_t>(step.column)] = step.word;
    }
    m_surface.fillRows(m_left, row, rows.bottom, words.data(), m_count);
}

} // namespace TC::detail
