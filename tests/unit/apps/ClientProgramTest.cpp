/// @file The client as its users start it: as a program, on the offscreen platform.

#include "tests/support/Trace.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

class ClientProgram : public testing::Test
{
protected:
    ~ClientProgram() override
    {
        m_program.kill();
        m_program.waitForFinished();
    }

    void start(const QStringList& arguments)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("INDICATORUI_HOME"), m_home.path());
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        environment.insert(QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(EYES_FOLDER));
        environment.insert(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("eyes"));
        m_program.setProcessEnvironment(environment);
        m_program.start(QStringLiteral(CLIENT_PROGRAM), arguments);
        ASSERT_TRUE(m_program.waitForStarted());
    }

    /// What the client shows now.
    QJsonArray look()
    {
        m_program.write("\n");
        while (!m_program.canReadLine() && m_program.waitForReadyRead(30'000)) { }
        return QJsonDocument::fromJson(m_program.readLine()).array();
    }

    /// Texts of the legend strips from top to bottom, once all of them show values of formulas.
    QList<QStringList> legends(int strips)
    {
        QElapsedTimer clock;
        clock.start();
        QList<QStringList> found;
        while (clock.elapsed() < 30'000) {
            found.clear();
            const QJsonArray things = look();
            for (const QJsonValue& value : things) {
                QStringList drawn;
                const QJsonArray texts = value.toObject().value(QStringLiteral("drawn")).toArray();
                for (const QJsonValue& text : texts)
                    drawn << text.toString();
                if (drawn.size() > 2)
                    found << drawn;
            }
            const auto showsAverages = [](const QStringList& texts) {
                return !texts.filter(QStringLiteral("MA60")).isEmpty();
            };
            if (found.size() == strips && std::any_of(found.begin(), found.end(), showsAverages))
                break;
        }
        return found;
    }

    QTemporaryDir m_home;
    QProcess m_program;
};

} // namespace

TEST_F(ClientProgram, LeavesTurnoverOutOfTheLegendOfEveryBundledFileWhichHasNone)
{
    for (const char* name : { "SH000001", "SH600030", "SH510050", "SFCU00", "DFM00" }) {
        start({ QStringLiteral(SAMPLES_DIR "/bars/%1.csv").arg(QString::fromLatin1(name)) });
        const QList<QStringList> strips = legends(3);
        ASSERT_EQ(strips.size(), 3) << name;
        for (const QStringList& strip : strips) {
            EXPECT_TRUE(strip.filter(QStringLiteral("非法值")).isEmpty()) << name;
            EXPECT_TRUE(strip.filter(QStringLiteral("成交额")).isEmpty()) << name;
        }
        m_program.kill();
        m_program.waitForFinished();
    }
}
