// SPDX-License-Identifier: MIT
#pragma once
/// @file A desktop for programs that are worked with mouse and keyboard.

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

namespace test {

/// A window manager of the tests' own: drags of windows mean little without one.
class Desktop
{
public:
    /// @param settings  lines of its settings file; %1 stands for its folder.
    /// @param menu      what its own menu holds; without a file it would offer programs and its own end.
    explicit Desktop(const QString& settings = QString(), const QByteArray& menu = QByteArray())
    {
        write(QStringLiteral(".blackboxrc"), settings.arg(m_home.path()).toUtf8());
        write(QStringLiteral("menu"), menu);
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
    void write(const QString& name, const QByteArray& content)
    {
        QFile file(m_home.filePath(name));
        if (!content.isEmpty() && file.open(QIODevice::WriteOnly))
            file.write(content);
    }

    QTemporaryDir m_home;
    QProcess m_manager;
};

} // namespace test
