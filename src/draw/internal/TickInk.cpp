// SPDX-License-Identifier: MIT
#include "draw/internal/TickInk.h"

#include "draw/internal/Numbers.h"
#include "draw/internal/Pens.h"
#include "draw/internal/ink/Surface.h"

#include <QLine>
#include <QPainter>

namespace TC::detail {

DirectionPens::DirectionPens()
    : m_rise(WB::skinColor(kRiseColor))
    , m_fall(WB::skinColor(kFallColor))
{
}

CrossInk::CrossInk(QPainter* painter, const QRect& pane, int half)
    : m_painter(painter)
    , m_clip(painter)
    , m_half(half)
    , m_leavesOut(hidesBeneath(*painter) && m_pens.areOpaque())
    , m_firstRow(pane.top())
{
    constexpr int mostRows = 10'000;
    if (m_leavesOut)
        m_lastOnRow.resize(static_cast<std::size_t>(std::clamp(pane.height(), 0, mostRows)));
}

std::size_t* CrossInk::lastOnRow(int row)
{
    const long long place = static_cast<long long>(row) - m_firstRow;
    return place >= 0 && place < static_cast<long long>(m_lastOnRow.size())
        ? &m_lastOnRow[static_cast<std::size_t>(place)]
        : nullptr;
}

void CrossInk::add(int x, int row, bool rise)
{
    if (!m_leavesOut) {
        paint(x, { row, rise });
        return;
    }
    if (x != m_x)
        finish();
    m_x = x;
    if (std::size_t* last = lastOnRow(row))
        *last = m_column.size();
    m_column.push_back({ row, rise });
}

void CrossInk::finish()
{
    for (std::size_t i = 0; i < m_column.size(); ++i) {
        const std::size_t* last = lastOnRow(m_column[i].row);
        if (!last || *last == i)
            paint(m_x, m_column[i]);
    }
    m_column.clear();
}

void CrossInk::paint(int x, const Cross& cross)
{
    if (m_penInUse != cross.rise)
        m_painter->setPen(m_pens.of(cross.rise));
    m_penInUse = cross.rise;
    const int left = saturatedSum(x, -m_half), right = saturatedSum(x, m_half);
    const int top = saturatedSum(cross.row, -m_half), bottom = saturatedSum(cross.row, m_half);
    const QLine diagonals[] = { QLine(left, bottom, right, top), QLine(left, top, right, bottom) };
    m_painter->drawLines(diagonals, 2);
}

} // namespace TC::detail
