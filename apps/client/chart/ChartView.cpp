// SPDX-License-Identifier: MIT
#include "apps/client/chart/ChartView.h"

#include "apps/base/WholeFile.h"
#include "apps/chart/ChartMeasures.h"
#include "apps/client/chart/ChartKeys.h"
#include "apps/client/chart/TimeAxisWidget.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QKeyEvent>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>

namespace client {

ChartView::ChartView(FormulaSource* source, QWidget* parent)
    : QWidget(parent)
    , m_source(source)
    , m_splitter(new QSplitter(Qt::Vertical, this))
{
    setFocusPolicy(Qt::StrongFocus);
    m_splitter->setHandleWidth(2);
    m_splitter->setChildrenCollapsible(false);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_splitter, 1);
    layout->addWidget(new TimeAxisWidget(&m_state, this));
}

ChartPane* ChartView::addPane(const QStringList& formulas)
{
    const bool main = m_panes.empty();
    auto* pane = new ChartPane(main, &m_state, m_source, formulas, m_splitter);
    m_splitter->addWidget(pane);
    m_splitter->setStretchFactor(m_splitter->count() - 1, main ? chart::kMainShare : 1);
    m_panes.push_back(pane);
    connect(pane, &ChartPane::sigCloseRequested, this, [this, pane] { closePane(pane); });
    connect(pane, &ChartPane::sigMaximizeRequested, this, [this, pane] { toggleMaximized(pane); });
    connect(
        pane, &ChartPane::sigExportRequested, this,
        [this, pane](const QString& formula, bool toClipboard) { exportPane(pane, formula, toClipboard); });
    return pane;
}

void ChartView::closePane(ChartPane* pane)
{
    const auto found = std::find(m_panes.begin(), m_panes.end(), pane);
    if (found == m_panes.end() || pane->isMain())
        return;
    m_panes.erase(found);
    pane->hide();
    pane->deleteLater();
    for (ChartPane* other : m_panes)
        other->show();
}

void ChartView::toggleMaximized(ChartPane* pane)
{
    const bool alone = std::none_of(m_panes.begin(), m_panes.end(), [&](ChartPane* other) {
        return other != pane && other->isVisibleTo(m_splitter);
    });
    for (ChartPane* other : m_panes)
        other->setVisible(alone || other == pane);
}

void ChartView::keyPressEvent(QKeyEvent* event)
{
    if (!moveByKey(m_state, event->key()))
        QWidget::keyPressEvent(event);
}

void ChartView::exportPane(ChartPane* pane, const QString& formula, bool toClipboard)
{
    constexpr bool withTime = true;
    const std::string text = pane->data()->exported(formula, withTime);
    if (toClipboard) {
        QApplication::clipboard()->setText(QString::fromStdString(text));
        Q_EMIT sigMessage(QStringLiteral("指标数据已复制到剪贴板"));
        return;
    }
    const QString path = QFileDialog::getSaveFileName(this, QStringLiteral("导出指标"), QStringLiteral("."),
                                                      QStringLiteral("CSV (*.csv)"));
    if (path.isEmpty())
        return;
    const auto fault = base::writeWholeFile(path, QByteArray::fromStdString(text));
    Q_EMIT sigMessage(fault ? fault->chinese() : QStringLiteral("已导出 %1").arg(path));
}

} // namespace client
