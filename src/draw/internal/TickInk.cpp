#include "draw/internal/TickInk.h"

#include "draw/internal/Numbers.h"
#include "draw/internal/Pens.h"

#include <QLine>
#include <QPaintEngine>
#include <QPainter>

namespace TC::detail {

bool hidesBeneath(const QPainter& painter)
{
    const QPaintEngine* engine = painter.paintEngine();
    if (!engine || engine->type() != QPaintEngine::Raster)
        return false;
    const QTransform toDevice = painter.deviceTransform();
    const bool isOnWholePixels = toDevice.type() <= QTransform::TxTranslate
        && std::trunc(toDevice.dx()) == toDevice.dx() && std::trunc(toDevice.dy()) == toDevice.dy();
    return isOnWholePixels && !painter.testRenderHint(QPainter::Antialiasing)
        && painter.compositionMode() == QPainter::CompositionMode_SourceOver && painter.opacity() == 1.0;
}

DirectionPens::DirectionPens(QPainter* painter)
    : m_painter(painter)
    , m_rise(WB::skinColor(kRiseColor))
    , m_fall(WB::skinColor(kFallColor))
{
}

void DirectionPens::use(bool rise)
{
    if (m_inUse == rise)
        return;
    m_painter->setPen(rise ? m_rise : m_fall);
    m_inUse = rise;
}

CrossInk::CrossInk(QPainter* painter, const QRect& pane, int half)
    : m_painter(painter)
    , m_pens(painter)
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
    m_pens.use(cross.rise);
    const int left = saturatedSum(x, -m_half), right = saturatedSum(x, m_half);
    const int top = saturatedSum(cross.row, -m_half), bottom = saturatedSum(cross.row, m_half);
    const QLine diagonals[] = { QLine(left, bottom, right, top), QLine(left, top, right, bottom) };
    m_painter->drawLines(diagonals, 2);
}

StandingLineInk::StandingLineInk(QPainter* painter, DirectionPens& pens, int baseRow)
    : m_painter(painter)
    , m_pens(pens)
    , m_baseRow(baseRow)
    , m_leavesOut(hidesBeneath(*painter) && pens.areOpaque())
{
}

bool StandingLineInk::covers(int row, int otherRow) const
{
    return row <= m_baseRow ? row <= otherRow && otherRow <= m_baseRow
                            : row >= otherRow && otherRow >= m_baseRow;
}

void StandingLineInk::add(int x, int row, bool rise)
{
    if (!m_leavesOut) {
        paint(x, { row, rise });
        return;
    }
    if (x != m_x)
        finish();
    m_x = x;
    while (!m_column.empty() && covers(row, m_column.back().row))
        m_column.pop_back();
    m_column.push_back({ row, rise });
}

void StandingLineInk::finish()
{
    for (const Line& line : m_column)
        paint(m_x, line);
    m_column.clear();
}

void StandingLineInk::paint(int x, const Line& line)
{
    m_pens.use(line.rise);
    m_painter->drawLine(x, line.row, x, m_baseRow);
}

} // namespace TC::detail
