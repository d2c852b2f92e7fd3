// SPDX-License-Identifier: MIT
/// @file The reference client over a million bars, as its user feels it: a move of the crosshair, a page
/// painted anew, a file opened.
///
/// Each round times both sides in processor time, so that the counters are ratios within one run: a move and
/// a page against one fill of a window as large, opening against a bare read and parse of the same bytes.

#include "RandomWalk.h"
#include "apps/client/MainWindow.h"
#include "apps/client/chart/ChartPane.h"
#include "apps/client/chart/ChartView.h"
#include "apps/client/chart/PlotWidget.h"
#include "engine/files/BarFile.h"
#include "host/embedded/EmbeddedHost.h"

#include <QApplication>
#include <QDate>
#include <QFile>
#include <QMouseEvent>
#include <QPainter>
#include <QTemporaryDir>
#include <QtTest/QTest>

#include <benchmark/benchmark.h>

#include <charconv>
#include <ctime>
#include <fstream>

namespace {

constexpr int kManyBars = 1'000'000;

double clockMs(clockid_t clock)
{
    timespec time {};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) * 1e-6;
}

double threadMs()
{
    return clockMs(CLOCK_THREAD_CPUTIME_ID);
}
/// Of all threads: a file is read on another one.
double processMs()
{
    return clockMs(CLOCK_PROCESS_CPUTIME_ID);
}

/// A file of a million one-minute bars, 51 MB, and the client's own folders.
class Folder
{
public:
    Folder()
    {
        TC::embedded::setUserRootDir(m_folder.filePath(QStringLiteral("user")));
        TC::embedded::setConfigDir(m_folder.filePath(QStringLiteral("config")));
        const bench::RandomWalk walk(kManyBars);
        QFile file(bars());
        file.open(QIODevice::WriteOnly);
        file.write("date,time,open,high,low,close,volume\n");
        QDate day(2000, 1, 1);
        for (std::size_t bar = 0; bar < kManyBars; ++bar) {
            const auto minute = static_cast<int>(bar % 240);
            day = day.addDays(minute == 0 ? 1 : 0);
            char row[128];
            const int length = std::snprintf(
                row, sizeof row, "%04d-%02d-%02d,%02d:%02d,%.2f,%.2f,%.2f,%.2f,%.0f\n", day.year(),
                day.month(), day.day(), 9 + minute / 60, minute % 60, walk.open[bar], walk.high[bar],
                walk.low[bar], walk.close[bar], walk.volume[bar]);
            file.write(row, length);
        }
    }
    QString bars() const { return m_folder.filePath(QStringLiteral("MANY.csv")); }

private:
    QTemporaryDir m_folder;
};

/// A window of four panes that shows all bars of the file.
class Window
{
public:
    explicit Window(const Folder& folder)
    {
        m_window.resize(1400, 860);
        m_window.show();
        QTest::qWait(50);                         // the arrangement is restored once the window stands
        if (m_window.chart()->panes().size() < 4) // the session keeps it
            m_window.chart()->addPane({ QStringLiteral("KDJ") });
        static_cast<void>(m_window.openBars(folder.bars()));
        const auto stands = [this] {
            for (client::ChartPane* pane : m_window.chart()->panes()) {
                if (pane->data()->getData().size() != pane->data()->getFormulaSize())
                    return false;
            }
            return m_window.chart()->state()->barTotal() == kManyBars;
        };
        m_stands = QTest::qWaitFor(stands, 600'000);
        m_window.chart()->state()->show(0, kManyBars - 1);
        paint();
    }

    bool stands() const { return m_stands; }
    client::PlotWidget* plot(std::size_t pane)
    {
        return m_window.chart()->panes()[pane]->findChild<client::PlotWidget*>();
    }
    std::size_t panes() { return m_window.chart()->panes().size(); }
    QSize size() const { return m_window.size(); }

    void moveTo(int x)
    {
        QMouseEvent event(QEvent::MouseMove, QPoint(x, 40), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(plot(0), &event);
        paint();
    }
    /// Paints what is due.
    void paint()
    {
        QApplication::processEvents();
        QEvent due(QEvent::UpdateRequest);
        QApplication::sendEvent(&m_window, &due);
    }

private:
    client::MainWindow m_window;
    bool m_stands = false;
};

const Folder& folder()
{
    static const Folder folder;
    return folder;
}

/// A window as large as the client's that does nothing but fill itself.
class FilledWindow : public QWidget
{
public:
    explicit FilledWindow(const QSize& size)
    {
        setAttribute(Qt::WA_OpaquePaintEvent); // one fill, not one for the ground and one for the paint
        resize(size);
        show();
        fillMs();
    }
    /// One fill, asked for and painted as the client paints: through the window's backing store.
    double fillMs()
    {
        const double start = threadMs();
        update();
        QApplication::processEvents();
        QEvent due(QEvent::UpdateRequest);
        QApplication::sendEvent(this, &due);
        return threadMs() - start;
    }

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), Qt::black); }
};

void moveOfTheCrosshair(benchmark::State& state)
{
    Window window(folder());
    FilledWindow filled(window.size());
    double moving = 0.0, filling = 0.0;
    int x = 100;
    for (auto _ : state) {
        x = x < 900 ? x + 1 : 100;
        const double start = threadMs();
        window.moveTo(x);
        moving += threadMs() - start;
        filling += filled.fillMs();
    }
    if (!window.stands())
        state.SkipWithError("the page lacks results");
    state.counters["move/fill"] = moving / filling;
    state.counters["move_ms"] = moving / static_cast<double>(state.iterations());
}

void pageOfFourPanes(benchmark::State& state)
{
    Window window(folder());
    FilledWindow filled(window.size());
    double painting = 0.0, filling = 0.0;
    for (auto _ : state) {
        for (std::size_t pane = 0; pane < window.panes(); ++pane)
            window.plot(pane)->renew();
        const double start = threadMs();
        window.paint();
        painting += threadMs() - start;
        filling += filled.fillMs();
    }
    if (!window.stands() || window.panes() != 4)
        state.SkipWithError("the page lacks panes or results");
    state.counters["page/fill"] = painting / filling;
    state.counters["page_ms"] = painting / static_cast<double>(state.iterations());
}

/// Reads the bytes and parses every number and date where it stands, into columns, without a check.
std::size_t readBarely(const QString& path)
{
    std::ifstream file(path.toStdString(), std::ios::binary);
    std::string text(std::istreambuf_iterator<char>(file), {});
    std::vector<double> columns[10];
    const char* at = text.data() + text.find('\n') + 1;
    const char* const end = text.data() + text.size();
    while (at < end) {
        for (auto& column : columns) {
            double value = 0.0;
            at = std::from_chars(at, end, value).ptr + 1; // the separator, be it -, : or a comma
            column.push_back(value);
        }
    }
    return columns[9].size();
}

void openingOfAFile(benchmark::State& state)
{
    double opening = 0.0, bare = 0.0;
    const QString path = folder().bars();
    for (auto _ : state) {
        std::string failure;
        const double start = processMs();
        const auto bars = engine::readBars(path.toStdString(), failure, [](double) { return true; });
        const double middle = processMs();
        if (!bars || readBarely(path) != bars->size())
            state.SkipWithError("the file was not read");
        bare += processMs() - middle;
        opening += middle - start;
    }
    state.counters["open/bare"] = opening / bare;
    state.counters["open_ms"] = opening / static_cast<double>(state.iterations());
}

BENCHMARK(moveOfTheCrosshair)->Unit(benchmark::kMillisecond);
BENCHMARK(pageOfFourPanes)->Unit(benchmark::kMillisecond);
BENCHMARK(openingOfAFile)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
