// SPDX-License-Identifier: MIT
#include "apps/client/output/PageOutput.h"

#include "apps/base/WholeFile.h"
#include "apps/chart/ChartPicture.h"
#include "apps/chart/PictureBytes.h"
#include "apps/client/chart/ChartView.h"
#include "apps/client/language/Language.h"
#include "host/TC/PeriodNames.h"

#include <QFileInfo>
#include <QPainter>
#include <QPrinter>

#include <algorithm>

namespace client {

namespace {

/// Shows what the panes show now; valid until their results change.
chart::ChartPicture pictureOf(ChartView& view, ChartPane* only)
{
    const ChartState* state = view.state();
    chart::ChartPicture picture;
    picture.instrument = state->instrument();
    if (state->bars())
        picture.times = state->bars()->timeMs;
    picture.periodName = TC::getCycleName(TC::getPeriodIndex(state->period()));
    picture.first = state->first();
    picture.last = state->last();
    if (!only || only->isMain()) {
        for (const PaneData::Overlay& overlay : view.panes().front()->data()->overlays())
            picture.overlaid.push_back(overlay.instrument);
    }
    for (ChartPane* pane : view.panes()) {
        if (!only || pane == only)
            picture.panes.push_back({ pane->data()->content(), pane->data() });
    }
    return picture;
}

} // namespace

PageOutput::PageOutput(ChartView* chart, ChartPane* only)
    : m_chart(chart)
    , m_only(only)
{
}

QSize PageOutput::size() const
{
    const std::size_t panes = m_only ? 1 : m_chart->panes().size();
    const QSize shown = m_only ? m_only->size() : m_chart->size();
    return shown.expandedTo(chart::leastSize(panes));
}

void PageOutput::paint(QPainter& painter) const
{
    painter.setFont(m_chart->font());
    chart::paintChart(painter, pictureOf(*m_chart, m_only), size());
}

QImage PageOutput::image(double factor) const
{
    return chart::pictureImage(size(), std::clamp<double>(factor, 1.0, kLargestFactor),
                               [this](QPainter& painter) { paint(painter); });
}

base::Result<void> PageOutput::save(const QString& path, double factor) const
{
    const QByteArray bytes =
        chart::pictureBytes(QFileInfo(path).suffix(), size(), std::clamp<double>(factor, 1.0, kLargestFactor),
                            [this](QPainter& painter) { paint(painter); });
    if (bytes.isEmpty())
        return base::Failure { tr("图片无法生成：%1").arg(path) };
    if (const auto fault = base::writeWholeFile(path, bytes))
        return base::Failure { ownWords(*fault) };
    return {};
}

void PageOutput::print(QPrinter& printer) const
{
    QPainter painter(&printer);
    const QSizeF sheet = printer.pageRect(QPrinter::DevicePixel).size(), page = size();
    const double scale = std::min(sheet.width() / page.width(), sheet.height() / page.height());
    painter.translate((sheet.width() - page.width() * scale) / 2.0, 0.0);
    painter.scale(scale, scale);
    paint(painter);
}

} // namespace client
