// SPDX-License-Identifier: MIT
/// @file Start of the driven tests: a desktop for the client.

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

/// A window manager of the tests' own: drags of windows mean little without one.
class Desktop
{
public:
    Desktop()
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("HOME"), m_home.path());
        m_manager.setProcessEnvironment(environment);
        m_manager.setStandardErrorFile(QProcess::nullDevice());
        m_manager.start(QStringLiteral(WINDOW_MANAGER), QStringList());
    }

    ~Desktop()
    {
        m_manager.kill();
        m_manager.waitForFinished();
    }

    /// Waits until the window manager answers.
    bool stands()
    {
        constexpr int longestWaitMs = 10'000;
        QElapsedTimer clock;
        clock.start();
        while (clock.elapsed() < longestWaitMs) {
            QProcess question;
            question.setStandardErrorFile(QProcess::nullDevice());
            question.start(QStringLiteral(XDOTOOL), { QStringLiteral("get_num_desktops") });
            if (question.waitForFinished() && question.exitCode() == 0)
                return true;
            QThread::msleep(20);
        }
        return false;
    }

private:
    QTemporaryDir m_home;
    QProcess m_manager;
};

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QGuiApplication application(argc, argv);
    Desktop desktop;
    if (!desktop.stands()) {
        qCritical("the window manager does not start");
        return EXIT_FAILURE;
    }
    return RUN_ALL_TESTS();
}
