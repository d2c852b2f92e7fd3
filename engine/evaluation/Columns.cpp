// SPDX-License-Identifier: MIT
#include "engine/evaluation/Columns.h"

#include <algorithm>

namespace engine::language {

Columns::Columns(const Plan& plan, Keep keep, std::size_t bars)
    : m_plan(plan)
    , m_bars(bars)
    , m_columns(plan.steps.size())
{
    if (keep == Keep::All)
        return;
    for (std::size_t step = 0; step < plan.steps.size(); ++step) {
        const std::size_t reach = plan.steps[step].reach;
        if (reach >= bars)
            continue;
        const std::size_t room = reach + std::max(reach, kBlock); // so that bars move rarely
        m_columns[step].room = room < bars ? room : 0;
    }
}

Result Columns::makeRoom(StepId step, std::size_t from, std::size_t to)
{
    Column& column = m_columns[static_cast<std::size_t>(step)];
    if (column.room == 0) {
        reserveFor(column.values, to, m_bars);
        column.values.resize(to);
    } else {
        column.values.resize(column.room);
        if (to - column.first > column.room) {
            const std::size_t first =
                from - std::min(from, m_plan.steps[static_cast<std::size_t>(step)].reach);
            const auto at = [&](std::size_t bar) {
                return column.values.begin() + static_cast<std::ptrdiff_t>(bar - column.first);
            };
            std::copy(at(first), at(from), column.values.begin());
            column.first = first;
        }
    }
    return { column.values.data(), column.first };
}

Operand Columns::operand(StepId step) const
{
    const Step& asked = m_plan.steps[static_cast<std::size_t>(step)];
    const Column& column = m_columns[static_cast<std::size_t>(step)];
    return asked.isConstant ? Operand { &asked.number, true }
                            : Operand { column.values.data(), false, column.first };
}

void Columns::release(StepId step)
{
    m_columns[static_cast<std::size_t>(step)].values = Series();
}

std::size_t Columns::wholeColumns() const
{
    std::size_t whole = 0;
    for (std::size_t step = 0; step < m_columns.size(); ++step)
        whole += !m_plan.steps[step].isConstant && m_columns[step].room == 0;
    return whole;
}

} // namespace engine::language
