// SPDX-License-Identifier: MIT
#include "tests/driven/DrivenClient.h"

#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QPixmap>
#include <QScreen>
#include <QSet>
#include <QThread>

#include <gtest/gtest.h>

#include <algorithm>

namespace test {

namespace {

constexpr int kLongestWaitMs = 15'000; // a machine that sanitizes and shares its cores
constexpr unsigned kLookPauseMs = 15;
constexpr int kHandStep = 24; // pixels

QImage wholeScreen()
{
    return QGuiApplication::primaryScreen()->grabWindow(0).toImage().convertToFormat(QImage::Format_RGB32);
}

} // namespace

int coloursIn(const QImage& picture, const QRect& area)
{
    const QRect part = area & picture.rect();
    QSet<QRgb> colours;
    for (int y = part.top(); y <= part.bottom(); y += 2) {
        for (int x = part.left(); x <= part.right(); x += 2)
            colours.insert(picture.pixel(x, y));
    }
    return colours.size();
}

View::View(const QByteArray& json)
{
    const QJsonArray things = QJsonDocument::fromJson(json).array();
    for (const QJsonValue& value : things) {
        const auto text = [&](const char* key) { return value[QLatin1String(key)].toString(); };
        const auto number = [&](const char* key) { return value[QLatin1String(key)].toInt(); };
        m_things.append({ text("window"), text("windowKind"), text("kind"), text("name"), text("text"),
                          QRect(number("x"), number("y"), number("width"), number("height")), number("rows"),
                          value[QLatin1String("checked")].toBool() });
    }
}

std::optional<Seen> View::first(const Test& test) const
{
    const auto found = std::find_if(m_things.begin(), m_things.end(), test);
    return found == m_things.end() ? std::nullopt : std::optional<Seen>(*found);
}

std::optional<Seen> View::widget(const char* kind) const
{
    return first([&](const Seen& seen) { return seen.kind == QLatin1String(kind); });
}

std::optional<Seen> View::entry(const QString& text) const
{
    return first([&](const Seen& seen) { return seen.kind == QLatin1String("entry") && seen.text == text; });
}

std::optional<Seen> View::button(const QString& text) const
{
    return first(
        [&](const Seen& seen) { return seen.kind == QLatin1String("QPushButton") && seen.text == text; });
}

std::optional<Seen> View::closeButton(const QString& title) const
{
    const std::optional<Seen> owner = tab(title);
    return owner ? first([&](const Seen& seen) {
        return seen.name == QLatin1String("tabCloseButton") && owner->place.contains(seen.place);
    })
                 : std::nullopt;
}

std::optional<Seen> View::rightmostDropMark() const
{
    std::optional<Seen> rightmost;
    for (const Seen& seen : m_things) {
        if (seen.kind == QLatin1String("QLabel") && seen.windowKind == QLatin1String("ads::CDockOverlayCross")
            && (!rightmost || seen.place.right() > rightmost->place.right()))
            rightmost = seen;
    }
    return rightmost;
}

std::optional<Seen> View::tab(const QString& title) const
{
    const std::optional<Seen> label = first([&](const Seen& seen) {
        return seen.name == QLatin1String("dockWidgetTabLabel") && seen.text == title;
    });
    return label ? first([&](const Seen& seen) {
        return seen.kind == QLatin1String("ads::CDockWidgetTab") && seen.place.contains(label->place);
    })
                 : std::nullopt;
}

std::optional<Seen> View::dock(const QString& panelId) const
{
    return first([&](const Seen& seen) {
        return seen.kind == QLatin1String("ads::CDockWidget") && seen.name == panelId;
    });
}

std::string View::arrangement() const
{
    QStringList docks;
    for (const Seen& seen : m_things) {
        if (seen.kind == QLatin1String("ads::CDockWidget"))
            docks << QStringLiteral("%1 | %2 | %3,%4 %5x%6")
                         .arg(seen.name, seen.window)
                         .arg(seen.place.x())
                         .arg(seen.place.y())
                         .arg(seen.place.width())
                         .arg(seen.place.height());
    }
    docks.sort();
    return docks.join(QLatin1Char('\n')).toStdString();
}

DrivenClient::DrivenClient()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), m_home.path());
    environment.insert(QStringLiteral("INDICATORUI_HOME"), m_home.path());
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    environment.insert(QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(EYES_FOLDER));
    environment.insert(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("eyes"));
    m_program.setProcessEnvironment(environment);
    m_program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
}

DrivenClient::~DrivenClient()
{
    letGo();
    kill();
}

void DrivenClient::start()
{
    m_program.start(QStringLiteral(CLIENT_PROGRAM), { QStringLiteral(SAMPLES_DIR "/bars/SH600030.csv") });
    ASSERT_TRUE(m_program.waitForStarted());
    settled();
    awaitThat("the painted window", [](const View& view) {
        const std::optional<Seen> window = view.widget("client::MainWindow");
        return window && coloursIn(wholeScreen(), window->place) >= kLeastColours;
    });
}

void DrivenClient::kill()
{
    m_program.kill();
    m_program.waitForFinished();
}

bool DrivenClient::hasEnded()
{
    return m_program.waitForFinished(kLongestWaitMs) && m_program.exitStatus() == QProcess::NormalExit
        && m_program.exitCode() == 0;
}

View DrivenClient::look()
{
    m_program.write("look\n");
    QByteArray line;
    QElapsedTimer clock;
    clock.start();
    while (!line.endsWith('\n') && clock.elapsed() < kLongestWaitMs) {
        if (!m_program.canReadLine() && !m_program.waitForReadyRead(kLongestWaitMs))
            break;
        line += m_program.readLine();
    }
    return View(line);
}

std::optional<Seen> DrivenClient::await(const char* what,
                                        const std::function<std::optional<Seen>(const View&)>& test)
{
    QElapsedTimer clock;
    clock.start();
    do {
        if (std::optional<Seen> seen = test(look()))
            return seen;
        QThread::msleep(kLookPauseMs);
    } while (clock.elapsed() < kLongestWaitMs && m_program.state() == QProcess::Running);
    picture(QStringLiteral("missing"));
    ADD_FAILURE() << "not seen: " << what;
    return std::nullopt;
}

void DrivenClient::awaitThat(const char* what, const std::function<bool(const View&)>& test)
{
    await(what, [&](const View& view) { return test(view) ? std::optional<Seen>(Seen {}) : std::nullopt; });
}

View DrivenClient::settled()
{
    constexpr int looksAlike = 4;
    std::string before;
    int alike = 0;
    View latest;
    awaitThat("a screen at rest", [&](const View& view) {
        alike = view.arrangement() == before ? alike + 1 : 0;
        before = view.arrangement();
        latest = view;
        return alike >= looksAlike;
    });
    return latest;
}

void DrivenClient::input(const QStringList& words)
{
    EXPECT_EQ(QProcess::execute(QStringLiteral(XDOTOOL), words), 0)
        << words.join(QLatin1Char(' ')).toStdString();
}

void DrivenClient::moveTo(const QPoint& point)
{
    const QPoint way = point - m_pointer;
    const int steps = std::max(1, way.manhattanLength() / kHandStep);
    QStringList words;
    for (int step = 1; step <= steps; ++step) {
        const QPoint at = m_pointer + way * step / steps;
        words << QStringLiteral("mousemove") << QString::number(at.x()) << QString::number(at.y())
              << QStringLiteral("sleep") << QStringLiteral("0.004");
    }
    input(words);
    m_pointer = point;
}

void DrivenClient::press(const QPoint& point)
{
    moveTo(point);
    input({ QStringLiteral("mousedown"), QStringLiteral("1") });
}

void DrivenClient::letGo()
{
    input({ QStringLiteral("mouseup"), QStringLiteral("1") });
}

void DrivenClient::click(const QPoint& point)
{
    press(point);
    letGo();
}

void DrivenClient::choose(const QStringList& entries)
{
    for (const QString& text : entries) {
        const std::optional<Seen> entry =
            await(qPrintable(text), [&](const View& view) { return view.entry(text); });
        if (!entry)
            return;
        click(entry->middle());
    }
}

QImage DrivenClient::picture(const QString& stage)
{
    constexpr unsigned restMs = 60;
    QElapsedTimer clock;
    clock.start();
    QImage before, image = wholeScreen();
    do {
        QThread::msleep(restMs);
        before = image;
        image = wholeScreen();
    } while (image != before && clock.elapsed() < kLongestWaitMs);
    QDir().mkpath(QStringLiteral(DRIVEN_RESULTS_DIR));
    image.save(QStringLiteral(DRIVEN_RESULTS_DIR "/%1.png").arg(stage));
    return image;
}

} // namespace test
