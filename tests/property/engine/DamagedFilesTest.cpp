// SPDX-License-Identifier: MIT
/// @file Files with random damage: the readers answer with sound series or with one failure line.

#include "engine/files/TickFile.h"
#include "engine/TickFormulas.h"
#include "host/embedded/FormulaSetup.h"
#include "host/embedded/SettingsSetup.h"
#include "tests/support/EngineBars.h"
#include "tests/support/QtsOwnLeaks.h"
#include "tests/support/Seeds.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cmath>

namespace {

/// The text with one place replaced, removed, doubled or cut off.
QByteArray damaged(QByteArray text, unsigned seed)
{
    static const char bytes[] = "0123456789,,,..--+eE:/T \r\n\"\\{}[]nax\0\xFF\xE4\xBD";
    std::mt19937 random(seed);
    const int at = static_cast<int>(random() % static_cast<unsigned>(text.size()));
    switch (random() % 8) {
    case 0: text.remove(at, 1 + static_cast<int>(random() % 8)); break;
    case 1: text.insert(at, text.mid(at, static_cast<int>(random() % 30))); break;
    case 2: text.truncate(at); break;
    default: text[at] = bytes[random() % (sizeof bytes - 1)]; break;
    }
    return text;
}

class DamagedFiles : public testing::Test
{
protected:
    /// The whole lines among the first bytes of a bundled file.
    QByteArray head(const char* sample, int bytes)
    {
        QFile file(QStringLiteral(SAMPLES_DIR "/") + QString::fromLatin1(sample));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray text = file.read(bytes);
        return text.left(text.lastIndexOf('\n') + 1);
    }

    /// Writes a file of the test's folder. @return its path.
    std::string write(const QByteArray& text)
    {
        QFile file(m_folder.filePath(QStringLiteral("configFormula")));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        return file.fileName().toStdString();
    }

    QTemporaryDir m_folder;
};

void expectFailureLine(const std::string& failure, const std::string& path)
{
    EXPECT_EQ(failure.compare(0, path.size() + 1, path + ":"), 0) << failure;
    EXPECT_EQ(failure.find('\n'), std::string::npos) << failure;
    EXPECT_EQ(failure.find('\r'), std::string::npos) << failure;
}

TEST_F(DamagedFiles, OfBarsAreReadSoundlyOrRefusedWithOneLine)
{
    const QByteArray text = head("bars/SFCU00.csv", 600);
    int refused = 0;
    for (const unsigned seed : test::seedsFor("damaged_bars", 500)) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        const std::string path = write(damaged(text, seed));
        std::string failure;
        const auto bars = engine::readBars(path, failure);
        refused += !bars;
        if (!bars) {
            expectFailureLine(failure, path);
            continue;
        }
        ASSERT_GT(bars->size(), 0u);
        for (std::size_t bar = 0; bar < bars->size(); ++bar) {
            EXPECT_GE(bars->high[bar], bars->low[bar]);
            EXPECT_TRUE(std::isfinite(bars->open[bar]) && std::isfinite(bars->volume[bar]));
            EXPECT_TRUE(bar == 0 || bars->timeMs[bar] > bars->timeMs[bar - 1]);
        }
    }
    EXPECT_GT(refused, 50) << "damage that nothing refuses proves nothing";
    EXPECT_LT(refused, 450) << "and neither does damage that the first check refuses";
}

TEST_F(DamagedFiles, OfTradesAreReadSoundlyOrRefusedWithOneLine)
{
    const QByteArray text = head("ticks/SYNTHETIC-five-levels.csv", 1500);
    for (const unsigned seed : test::seedsFor("damaged_ticks", 500)) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        const std::string path = write(damaged(text, seed));
        std::string failure;
        const auto ticks = engine::readTicks(path, failure);
        if (!ticks) {
            expectFailureLine(failure, path);
            continue;
        }
        const auto records = engine::computeTicks(*ticks);
        for (const auto* result : { &records.prices.result, &records.volumes.result }) {
            for (const auto& series : result->numberSeries)
                EXPECT_EQ(series.size(), ticks->size());
        }
    }
}

TEST_F(DamagedFiles, OfFormulasGiveOneLineForEachProblemAndGoodFormulasForTheRest)
{
    const QByteArray text = R"({"formulas": [
  {"name": "A", "displayName": "短\u5747线", "kind": 2, "base": "MA", "parameters": [3, 6.5, 12], "colors": ["#ff8c00", null]},
  {"name": "B", "base": "MACD", "parameters": [24, 52, 18], "source": "x := \"{1}\";"}
]})";
    const test::QtsOwnLeaks uncounted;
    TC::embedded::setUserRootDir(m_folder.path());
    for (const unsigned seed : test::seedsFor("damaged_formulas", 500)) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        const std::string path = write(damaged(text, seed));
        for (const QString& problem : TC::embedded::loadFormulas())
            expectFailureLine(problem.toStdString(), path);
        EXPECT_TRUE(TC::embedded::resolveFormula(QStringLiteral("MA")));
        for (const char* name : { "A", "B" }) {
            const auto recipe = TC::embedded::resolveFormula(QString::fromLatin1(name));
            EXPECT_TRUE(!recipe || engine::findBuiltIn(recipe->base.toStdString()));
        }
    }
}

} // namespace
