// SPDX-License-Identifier: MIT
/// @file The client as its users start it: as a program, on the offscreen platform.

#include "tests/support/Preload.h"
#include "tests/support/Trace.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

/// The texts that the client draws for a bars file, until the averages of its chart are among them.
QStringList legendTexts(const QString& bars)
{
    const QTemporaryDir home;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("INDICATORUI_HOME"), home.path());
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    test::preload(environment, QStringLiteral(DRAWN_TEXTS));
    // At a fractional pixel ratio every text of a legend is handed to the painter as text, none as glyphs.
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QStringLiteral("1.25"));
    environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("verify_asan_link_order=0"));
    QProcess program;
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(CLIENT_PROGRAM), { bars });
    QStringList texts;
    QElapsedTimer clock;
    clock.start();
    while (texts.filter(QStringLiteral("MA60")).isEmpty() && clock.elapsed() < 30'000) {
        program.waitForReadyRead(1000);
        while (program.canReadLine())
            texts << QString::fromUtf8(program.readLine()).trimmed();
    }
    program.kill();
    program.waitForFinished();
    return texts;
}

} // namespace

TEST(ClientProgram, LeavesTurnoverOutOfTheLegendOfEveryBundledFileWhichHasNone)
{
    for (const char* name : { "SH000001", "SH600030", "SH510050", "SFCU00", "DFM00" }) {
        const QStringList texts =
            legendTexts(QStringLiteral(SAMPLES_DIR "/bars/%1.csv").arg(QString::fromLatin1(name)));
        EXPECT_FALSE(texts.filter(QStringLiteral("成交量")).isEmpty()) << name;
        EXPECT_FALSE(texts.filter(QStringLiteral("MA60")).isEmpty()) << name;
        EXPECT_TRUE(texts.filter(QStringLiteral("非法值")).isEmpty()) << name;
        EXPECT_TRUE(texts.filter(QStringLiteral("成交额")).isEmpty()) << name;
    }
}

TEST(ClientProgram, NamesTheLanguagesItKnowsWhenAskedForAnother)
{
    QProcess program;
    program.start(QStringLiteral(CLIENT_PROGRAM), { QStringLiteral("--lang"), QStringLiteral("tlh") });
    ASSERT_TRUE(program.waitForFinished());
    EXPECT_NE(program.exitCode(), 0);
    const QString told = QString::fromUtf8(program.readAllStandardError());
    EXPECT_TRUE(told.contains(QStringLiteral("tlh")) && told.contains(QStringLiteral("zh and en")))
        << told.toStdString();
}

TEST(ClientProgram, SaysHowItIsUsedWithoutADisplay)
{
    const auto answer = [](const char* option) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove(QStringLiteral("DISPLAY"));
        environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
        QProcess program;
        program.setProcessEnvironment(environment);
        program.start(QStringLiteral(CLIENT_PROGRAM), { QString::fromUtf8(option) });
        EXPECT_TRUE(program.waitForFinished());
        EXPECT_EQ(program.exitCode(), 0);
        return QString::fromUtf8(program.readAllStandardOutput());
    };
    for (const char* option : { "FILE.csv", "--lang", "--follow", "--help", "--version" })
        EXPECT_TRUE(answer("--help").contains(QLatin1String(option))) << option;
    EXPECT_TRUE(answer("--version").startsWith(QStringLiteral("indicatorui-client ")));
}

TEST(ClientProgram, NamesTheArgumentThatItDoesNotKnow)
{
    QProcess program;
    program.start(QStringLiteral(CLIENT_PROGRAM), { QStringLiteral("--size"), QStringLiteral("bars.csv") });
    ASSERT_TRUE(program.waitForFinished());
    EXPECT_NE(program.exitCode(), 0);
    const QString told = QString::fromUtf8(program.readAllStandardError());
    EXPECT_TRUE(told.endsWith(QStringLiteral("indicatorui-client: unknown argument --size; see --help\n")))
        << told.toStdString();
}
