// SPDX-License-Identifier: MIT
/// @file The client under a hand that does anything: random moves, clicks, drags, wheels and keys.
///
/// soak SECONDS SEED
/// Needs an X server. Starts the client in a folder of its own as often as the hand closes it. Ends with 0
/// when every client that ended did so in order and nothing spoke of an error; else with 1 and what was said.

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <QThread>

#include <cstdio>
#include <cstdlib>
#include <random>

namespace {

constexpr int kWidth = 1600, kHeight = 1000; // pixels of the screen
constexpr int kStepsAtOnce = 25;
constexpr int kLongestSilenceMs = 60'000;

/// Words of xdotool for one step of the hand.
QStringList step(std::mt19937& random)
{
    static const char* const keys[] = {
        "Left",   "Right",     "Up",         "Down",       "Home",   "End",       "Prior",  "Next",
        "Escape", "Return",    "Tab",        "space",      "Delete", "BackSpace", "F1",     "F5",
        "F7",     "F10",       "ctrl+a",     "ctrl+c",     "ctrl+v", "ctrl+z",    "ctrl+s", "ctrl+n",
        "ctrl+f", "ctrl+plus", "ctrl+minus", "shift+Left", "alt+v",  "1",         "6",      "0",
        "c",      "M",         "semicolon",  "parenleft",  "comma",  "colon"
    };
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    const auto move = [&] {
        return QStringList { QStringLiteral("mousemove"), QString::number(below(kWidth)),
                             QString::number(below(kHeight)) };
    };
    const auto with = [&](const char* word, int number) {
        return QStringList { QString::fromLatin1(word), QString::number(number) };
    };
    const int button = below(8) == 0 ? 3 : 1;
    switch (below(10)) {
    case 0:
    case 1:
    case 2: return move() + with("click", button);
    case 3:
        return move() + QStringList { QStringLiteral("click"), QStringLiteral("--repeat"),
                                      QStringLiteral("2"),     QStringLiteral("--delay"),
                                      QStringLiteral("30"),    QStringLiteral("1") };
    case 4: return move() + with("mousedown", 1) + move() + move() + with("mouseup", 1);
    case 5: return move() + with("click", 4 + below(2));
    case 6: return move();
    default:
        return { QStringLiteral("key"), QStringLiteral("--clearmodifiers"),
                 QString::fromLatin1(keys[random() % (sizeof keys / sizeof *keys)]) };
    }
}

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
        environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
        environment.insert(QStringLiteral("UBSAN_OPTIONS"), QStringLiteral("print_stacktrace=1"));
        m_program.setProcessEnvironment(environment);
        m_program.setStandardErrorFile(home + QStringLiteral("/said"), QIODevice::Append);
    }
    ~Subject()
    {
        m_program.kill();
        m_program.waitForFinished();
    }

    bool start()
    {
        m_program.start(QStringLiteral(CLIENT_PROGRAM), { QStringLiteral(SAMPLES_DIR "/bars/SH600030.csv") });
        return m_program.waitForStarted(kLongestSilenceMs);
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
            isReport = isReport || line.contains("ERROR: AddressSanitizer");
            if (isReport || line.contains("runtime error") || line.contains("ASSERT"))
                found += line;
        }
    }
    return found;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const int seconds = argc > 1 ? std::atoi(argv[1]) : 0;
    const auto seed = static_cast<unsigned>(argc > 2 ? std::atoi(argv[2]) : 1);
    const QTemporaryDir home;
    std::mt19937 random(seed);
    QElapsedTimer clock;
    clock.start();
    int steps = 0, starts = 0;
    bool isSound = true;
    while (isSound && clock.elapsed() < qint64 { 1000 } * seconds) {
        Subject client(home.path());
        isSound = client.start();
        ++starts;
        QThread::sleep(4); // until its window stands
        while (client.isRunning() && clock.elapsed() < qint64 { 1000 } * seconds) {
            QStringList words;
            for (int times = 0; times < kStepsAtOnce; ++times, ++steps)
                words << step(random) << QStringLiteral("sleep") << QStringLiteral("0.02");
            QProcess::execute(QStringLiteral(XDOTOOL), words);
        }
        isSound =
            isSound && (client.isRunning() || client.endedInOrder()) && complaints(home.path()).isEmpty();
    }
    std::printf("soak: %d seconds, seed %u, %d steps, %d starts, %s\n%s",
                static_cast<int>(clock.elapsed() / 1000), seed, steps, starts,
                isSound ? "nothing found" : "it failed", complaints(home.path()).constData());
    return isSound ? EXIT_SUCCESS : EXIT_FAILURE;
}
