// SPDX-License-Identifier: MIT
#include "apps/guide/Stage.h"

#include "apps/client/chart/ChartView.h"
#include "apps/client/chart/PlotWidget.h"
#include "host/embedded/EmbeddedHost.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>

#include <cstdio>
#include <cstdlib>

namespace guide {

namespace {

constexpr int kPatience = 60'000; // milliseconds
const QSize kWindow(1180, 740);

[[noreturn]] void giveUp(const QString& reason)
{
    std::fprintf(stderr, "guide-pictures: %s\n", reason.toUtf8().constData());
    std::exit(1);
}

void goOnFor(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

void send(QWidget* widget, QEvent::Type type, const QPoint& place, Qt::MouseButtons held,
          Qt::KeyboardModifiers keys)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, place, widget->mapToGlobal(place), button, held, keys);
    QApplication::sendEvent(widget, &event);
}

} // namespace

Stage::Stage(const QString& language, const QString& samples)
    : m_samples(samples)
{

    TC::embedded::setUserRootDir(m_folder.filePath(QStringLiteral("user")));
    TC::embedded::setConfigDir(m_folder.filePath(QStringLiteral("config")));
    m_window = std::make_unique<client::MainWindow>(language);
    m_window->chooseSkin(TC::embedded::skinNames().value(0)); // the one before stays for the whole program
    m_window->resize(kWindow);
    m_window->show();
    settle();
}

Stage::~Stage() = default;

void Stage::settle()
{
    goOnFor(150);
}

void Stage::await(const char* what, const std::function<bool()>& condition)
{
    QElapsedTimer waiting;
    waiting.start();
    while (!condition()) {
        if (waiting.elapsed() > kPatience)
            giveUp(QStringLiteral("waited in vain for %1").arg(QLatin1String(what)));
        goOnFor(10);
    }
}

void Stage::awaitResults()
{
    for (client::ChartPane* pane : chart()->panes()) {
        await("the results of a pane",
              [pane] { return pane->data()->getData().size() == pane->data()->getFormulaSize(); });
    }
    settle();
}

void Stage::openBars(const char* name)
{
    const base::Result<void> opened = m_window->openBars(sample(name));
    if (!opened.isGood())
        giveUp(opened.reason());
    awaitResults();
}

void Stage::choose(const char* entry)
{
    const auto actions = m_window->findChildren<QAction*>();
    for (QAction* action : actions) {
        for (const char* speaker : { "client::MainWindow", "client::ChartView" }) {
            if (action->text() == QCoreApplication::translate(speaker, entry)) {
                action->trigger();
                return settle();
            }
        }
    }
    giveUp(QStringLiteral("there is no entry %1").arg(QString::fromUtf8(entry)));
}

void Stage::raise(const QString& panel)
{
    ads::CDockWidget* dock = m_window->docks()->dock(panel);
    if (!dock)
        giveUp(QStringLiteral("there is no panel %1").arg(panel));
    dock->toggleView(true);
    dock->setAsCurrentTab();
    settle();
}

void Stage::point(std::size_t pane, const QPoint& place)
{
    send(chart()->panes().at(pane)->plot(), QEvent::MouseMove, place, Qt::NoButton, Qt::NoModifier);
    settle();
}

void Stage::drag(std::size_t pane, const QPoint& from, const QPoint& to, Qt::KeyboardModifiers keys)
{
    client::PlotWidget* plot = chart()->panes().at(pane)->plot();
    send(plot, QEvent::MouseButtonPress, from, Qt::LeftButton, keys);
    send(plot, QEvent::MouseMove, to, Qt::LeftButton, keys);
    send(plot, QEvent::MouseButtonRelease, to, Qt::NoButton, keys);
    settle();
}

QImage Stage::picture()
{
    settle();
    QImage image = picture(m_window.get());
    QPainter painter(&image);
    const QWidgetList shown = QApplication::topLevelWidgets();
    for (QWidget* other : shown) {
        if (other == m_window.get() || !other->isVisible())
            continue;
        const QPoint place = other->windowType() == Qt::Popup
            ? other->mapToGlobal(QPoint()) - m_window->mapToGlobal(QPoint())
            : m_window->rect().center() - other->rect().center(); // where window managers put dialogs
        painter.drawImage(place, other->grab().toImage());
        painter.setPen(other->palette().color(QPalette::Mid));
        painter.drawRect(QRect(place, other->size()).adjusted(-1, -1, 0, 0));
    }
    return image;
}

QImage Stage::picture(QWidget* only)
{
    return only->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

} // namespace guide
