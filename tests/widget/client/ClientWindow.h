// SPDX-License-Identifier: MIT
#pragma once
/// @file The client's whole window, opened in a folder of its own, for tests that work it as users do.

#include "apps/client/MainWindow.h"
#include "apps/client/chart/ChartView.h"
#include "apps/client/chart/PlotWidget.h"
#include "host/embedded/EmbeddedHost.h"
#include "host/utils/CSingletonT.h"
#include "recovery/CRecoveryVersionManager.h"
#include "tests/support/Trace.h"

#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QFile>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QScreen>
#include <QTemporaryDir>
#include <QWheelEvent>
#include <QtTest/QTest>

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace test {

inline QString sample(const char* name)
{
    return QStringLiteral(SAMPLES_DIR "/") + QString::fromLatin1(name);
}

class ClientWindow : public testing::Test
{
public:
    /// Shows a window until its arrangement is restored. The pointer rests in a corner meanwhile: the events
    /// that a real one sends to what opens below it would come whenever the display server gets round to
    /// them.
    static void showSettled(QWidget& window)
    {
        QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        QTest::qWait(20); // the arrangement is restored once the window stands
    }

protected:
    ClientWindow()
    {
        TC::embedded::setUserRootDir(m_folder.filePath(QStringLiteral("user")));
        TC::embedded::setConfigDir(m_folder.filePath(QStringLiteral("config")));
        utils::CSingletonT<TC::CRecoveryVersionManager>::release(); // it reads the folders when it is made
        m_window = std::make_unique<client::MainWindow>();
        m_window->resize(1400, 860); // whatever the screen is
        showSettled(*m_window);
    }

    /// Opens the bundled share and waits for the results of all panes.
    void openShare()
    {
        ASSERT_TRUE(m_window->openBars(sample("bars/SH600030.csv")).isGood());
        awaitResults();
    }

    /// A bars file of the test's own.
    QString barsFile(const char* name, const QByteArray& rows)
    {
        QString path = m_folder.filePath(QString::fromLatin1(name));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("date,open,high,low,close,volume\n" + rows);
        return path;
    }

    /// Waits until every formula of every pane has its result.
    void awaitResults()
    {
        for (client::ChartPane* pane : panes())
            ASSERT_TRUE(QTest::qWaitFor(
                [&] { return pane->data()->getData().size() == pane->data()->getFormulaSize(); }));
    }

    /// The entry of a menu, wherever it stands; null when there is none.
    QAction* entry(const QString& text)
    {
        for (QAction* action : m_window->findChildren<QAction*>()) {
            if (action->text() == text)
                return action;
        }
        return nullptr;
    }

    client::ChartView* chart() { return m_window->chart(); }
    const std::vector<client::ChartPane*>& panes() { return m_window->chart()->panes(); }
    client::PlotWidget* plot(std::size_t pane) { return panes()[pane]->findChild<client::PlotWidget*>(); }

    void moveTo(QWidget* widget, const QPoint& place)
    {
        QMouseEvent event(QEvent::MouseMove, place, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(widget, &event);
    }
    void turnWheel(QWidget* widget, const QPoint& place, int notches)
    {
        QWheelEvent event(place, widget->mapToGlobal(place), QPoint(), QPoint(0, 120 * notches), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(widget, &event);
    }
    /// Paints what is due in the widget's window.
    static void paintNow(const QWidget* widget)
    {
        QApplication::processEvents();
        QEvent due(QEvent::UpdateRequest);
        QApplication::sendEvent(widget->window(), &due);
    }
    /// The texts that a widget paints.
    static QStringList textsOf(QWidget* widget)
    {
        return textsPainted([&](QPainter& painter) { widget->render(&painter); });
    }
    /// The texts of a plot, its axis and its crosshair.
    static QStringList textsOf(client::PlotWidget* plot)
    {
        return textsPainted([&](QPainter& painter) { plot->paintOn(painter); });
    }
    static QStringList textsPainted(const std::function<void(QPainter&)>& paint)
    {
        static const QRegularExpression text(QStringLiteral("^text [^\"]*\"(.*)\" #"));
        QStringList texts;
        const QStringList lines = traceOf(paint);
        for (const QString& line : lines) {
            const QRegularExpressionMatch match = text.match(line);
            if (match.hasMatch())
                texts << match.captured(1);
        }
        return texts;
    }

    QTemporaryDir m_folder;
    std::unique_ptr<client::MainWindow> m_window;
};

} // namespace test
