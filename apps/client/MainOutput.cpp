// SPDX-License-Identifier: MIT
/// @file The chart as a file, on the clipboard and on paper.

#include "apps/base/FileNames.h"
#include "apps/client/MainWindow.h"
#include "apps/client/chart/ChartView.h"
#include "apps/client/language/Language.h"
#include "apps/client/output/PageOutput.h"
#include "host/TC/Instruments.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QPrintPreviewDialog>
#include <QPrinter>

#include <cmath>

namespace client {

namespace {

/// The forms as the file dialog offers them: PNG by its factor, then SVG and PDF.
QStringList pictureForms()
{
    QStringList forms;
    for (int factor = 1; factor <= PageOutput::kLargestFactor; ++factor)
        forms << MainWindow::tr("PNG %1 倍 (*.png)").arg(factor);
    return forms << QStringLiteral("SVG (*.svg)") << QStringLiteral("PDF (*.pdf)");
}

QString suffixOf(int form)
{
    if (form < PageOutput::kLargestFactor)
        return QStringLiteral(".png");
    return form == PageOutput::kLargestFactor ? QStringLiteral(".svg") : QStringLiteral(".pdf");
}

} // namespace

void MainWindow::buildOutputMenu(QMenu* menu)
{
    const auto add = [this, menu](auto what, const QKeySequence& keys) {
        return menu->addAction(QString(), this, what, keys);
    };
    QAction* actions[] = {
        worded(add([this] { choosePicture(nullptr); }, QKeySequence(QStringLiteral("Ctrl+S"))),
               [] { return tr("导出图片…"); }),
        worded(add([this] { copyPicture(); }, QKeySequence(QStringLiteral("Ctrl+Shift+C"))),
               [] { return tr("复制图片"); }),
        worded(add(&MainWindow::previewPrint, QKeySequence::Print), [] { return tr("打印预览…"); })
    };
    actions[0]->setObjectName(QStringLiteral("savePicture"));
    actions[1]->setObjectName(QStringLiteral("copyPicture"));
    actions[2]->setObjectName(QStringLiteral("print"));
    const auto follow = [this, first = actions[0], second = actions[1], third = actions[2]] {
        for (QAction* action : { first, second, third })
            action->setEnabled(m_chart->state()->barTotal() > 0);
    };
    follow();
    connect(m_chart->state(), &ChartState::sigBarsChanged, this, follow);
    connect(m_chart, &ChartView::sigPictureRequested, this, [this](ChartPane* pane, bool toClipboard) {
        toClipboard ? copyPicture(pane) : choosePicture(pane);
    });
}

void MainWindow::choosePicture(ChartPane* only)
{
    const QStringList forms = pictureForms();
    QString form = forms.at(1);
    const QString what = only ? only->data()->getFormulas().join(QLatin1Char('-')) : tr("图");
    QString path = QFileDialog::getSaveFileName(
        this, tr("导出图片"),
        QStringLiteral("%1-%2.png").arg(TC::getDetailQsKey(m_chart->state()->instrument()), what),
        forms.join(QStringLiteral(";;")), &form);
    if (path.isEmpty())
        return;
    const int chosen = std::max<int>(0, forms.indexOf(form));
    const QString suffix = suffixOf(chosen);
    if (!path.endsWith(suffix, Qt::CaseInsensitive)) // the form was changed, or none was typed
        path = QFileInfo(path).path() + QLatin1Char('/') + QFileInfo(path).completeBaseName() + suffix;
    static_cast<void>(savePicture(path, chosen + 1, only)); // a failure is shown
}

base::Result<void> MainWindow::savePicture(const QString& path, int factor, ChartPane* only)
{
    const base::Result<void> saved = PageOutput(m_chart, only).save(path, factor);
    if (!saved.isGood())
        return told(saved.failure());
    slotShowMessage(tr("已导出 %1").arg(path));
    return {};
}

void MainWindow::copyPicture(ChartPane* only)
{
    if (m_chart->state()->barTotal() == 0)
        return;
    QApplication::clipboard()->setImage(PageOutput(m_chart, only).image(std::ceil(devicePixelRatioF())));
    slotShowMessage(tr("图片已复制到剪贴板"));
}

void MainWindow::previewPrint()
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(QPageLayout::Landscape);
    QPrintPreviewDialog preview(&printer, this);
    preview.setWindowTitle(tr("打印预览"));
    preview.resize(size() * 0.8);
    connect(&preview, &QPrintPreviewDialog::paintRequested, this,
            [this](QPrinter* paper) { PageOutput(m_chart).print(*paper); });
    preview.exec();
}

} // namespace client
