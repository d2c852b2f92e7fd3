// SPDX-License-Identifier: MIT
/// @file The client under a hand that does anything, see Hand.h.
///
/// soak EVENTS SEED
/// Needs an X server. Starts the client in a folder of its own as often as the hand closes it. Ends with 0
/// when every client that ended did so in order and nothing spoke of an error; else with 1 and what was said.

#include "tests/driven/Desktop.h"
#include "tests/soak/Hand.h"

#include <QCoreApplication>
#include <QDir>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr int kEventsAtOnce = 10; // a followed file grows between them
constexpr int kLongestSilenceMs = 60'000;
constexpr int kFirstRows = 300; // of the file that grows

/// Files that the hand opens, each a copy: nothing that it does reaches further than this folder.
class Files
{
public:
    explicit Files(const QString& folder)
        : m_folder(folder)
    {
        for (const char* name :
             { "bars/SH600030.csv", "bars/SH510050.csv", "bars/SFCU00.csv", "bars/DFM00.csv",
               "bars/SH000001.csv", "ticks/SYNTHETIC-five-levels.csv" }) {
            const QString from = QStringLiteral(SAMPLES_DIR "/") + QLatin1String(name);
            QFile::copy(from, m_folder + QLatin1Char('/') + QFileInfo(from).fileName());
        }
        write("list.csv", "600030\n510050\n600000\n000001\n", QIODevice::WriteOnly);
        write("weights.csv", "600030,0.25\n600000,0.5\n999999,x\n", QIODevice::WriteOnly);
        write("broken.xlsx", "PK\x03\x04 no workbook", QIODevice::WriteOnly);
        QFile bars(m_folder + QStringLiteral("/SH600030.csv"));
        if (bars.open(QIODevice::ReadOnly))
            m_rows = bars.readAll().split('\n');
    }

    /// One more row stands in the file that grows, now and then none but the first ones again.
    void grow()
    {
        m_next = m_next == 0 || m_next + 1 >= m_rows.size() || m_next % 50 == 0 ? kFirstRows + 1 : m_next;
        if (m_next == kFirstRows + 1)
            write("growing.csv", m_rows.mid(0, kFirstRows).join('\n') + '\n', QIODevice::WriteOnly);
        write("growing.csv", m_rows.at(m_next++) + '\n', QIODevice::Append);
    }

private:
    void write(const char* name, const QByteArray& text, QIODevice::OpenMode how)
    {
        QFile file(m_folder + QLatin1Char('/') + QLatin1String(name));
        if (file.open(how))
            file.write(text);
    }

    QString m_folder;
    QList<QByteArray> m_rows;
    int m_next = 0;
};

/// The client and what it says.
class Subject
{
public:
    explicit Subject(const QString& home)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("HOME"), home);
        environment.insert(QStringLiteral("INDICATORUI_HOME"), home);
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
        // The client paints nothing by OpenGL, whose software driver leaks when it is unloaded.
        environment.insert(QStringLiteral("QT_XCB_GL_INTEGRATION"), QStringLiteral("none"));
        environment.insert(QStringLiteral("UBSAN_OPTIONS"), QStringLiteral("print_stacktrace=1"));
        m_program.setProcessEnvironment(environment);
        m_program.setWorkingDirectory(home);
        m_program.setStandardErrorFile(home + QStringLiteral("/said"), QIODevice::Append);
    }
    ~Subject()
    {
        m_program.kill();
        m_program.waitForFinished();
    }

    bool start(const QStringList& arguments)
    {
        m_program.start(QStringLiteral(CLIENT_PROGRAM), arguments);
        return m_program.waitForStarted(kLongestSilenceMs);
    }
    /// Asks it to end, as a user does; what it leaked is told then.
    void leave()
    {
        constexpr int times = 5, patienceMs = 10'000; // dialogs stand before the window
        for (int time = 0; time < times && isRunning(); ++time) {
            QProcess::execute(QStringLiteral(XDOTOOL),
                              { QStringLiteral("key"), QStringLiteral("Escape"), QStringLiteral("Escape"),
                                QStringLiteral("ctrl+q") });
            m_program.waitForFinished(patienceMs);
        }
    }
    bool isRunning()
    {
        m_program.waitForFinished(0);
        return m_program.state() == QProcess::Running;
    }
    bool endedInOrder() const
    {
        return m_program.exitStatus() == QProcess::NormalExit && m_program.exitCode() == 0;
    }

private:
    QProcess m_program;
};

/// What the sanitizers, and those who check themselves, had to say.
QByteArray complaints(const QString& home)
{
    QFile said(home + QStringLiteral("/said"));
    QByteArray found;
    bool isReport = false;
    if (said.open(QIODevice::ReadOnly)) {
        while (!said.atEnd()) {
            const QByteArray line = said.readLine(4096);
            isReport = isReport || line.contains("Sanitizer");
            if (isReport || line.contains("runtime error") || line.contains("ASSERT"))
                found += line;
        }
    }
    return found;
}

int act(const QStringList& words)
{
    return QProcess::execute(QStringLiteral(XDOTOOL), words);
}

/// Windows that the hand hid, covered or dragged away come back.
void bringForward()
{
    QProcess call;
    call.setStandardErrorFile(QProcess::nullDevice()); // the first windows found are no one's to move
    call.start(QStringLiteral(XDOTOOL),
               QStringLiteral("search --maxdepth 3 --class indicatorui windowmove %@ 4 24 windowactivate %@")
                   .split(QLatin1Char(' ')));
    call.waitForFinished();
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const int events = argc > 1 ? std::atoi(argv[1]) : 0;
    const auto seed = static_cast<unsigned>(argc > 2 ? std::atoi(argv[2]) : 1);
    test::Desktop desktop(QStringLiteral("session.menuFile: %1/menu\nsession.screen0.enableToolbar: False\n"
                                         "session.screen0.workspaces: 1\n"
                                         "session.changeWorkspaceWithMouseWheel: False\n"),
                          "[begin] (Nothing)\n[nop] (Nothing)\n[end]\n");
    const QTemporaryDir home;
    Files files(home.path());
    soak::Hand hand(seed, home.path());
    bool isSound = desktop.stands();
    int done = 0, starts = 0;
    while (isSound && done < events) {
        files.grow();
        Subject client(home.path());
        isSound = client.start(hand.nextArguments());
        ++starts;
        QThread::sleep(4); // until its window stands
        while (client.isRunning() && done < events) {
            bringForward();
            for (int times = 0; times < kEventsAtOnce && client.isRunning() && done < events; ++times, ++done)
                act(hand.nextEvent() + QStringList { QStringLiteral("sleep"), QStringLiteral("0.02") });
            files.grow();
        }
        if (done == events)
            client.leave();
        isSound = (client.isRunning() || client.endedInOrder()) && complaints(home.path()).isEmpty();
    }
    std::printf("soak: %d events, seed %u, %d starts, %s\n", done, seed, starts,
                isSound ? "nothing found" : "it failed");
    for (auto tool = hand.taken().begin(); tool != hand.taken().end(); ++tool)
        std::printf("  %4d %s\n", tool.value(), qPrintable(tool.key()));
    std::printf("%s", complaints(home.path()).constData());
    return isSound ? EXIT_SUCCESS : EXIT_FAILURE;
}
