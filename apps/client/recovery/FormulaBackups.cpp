#include "apps/client/recovery/FormulaBackups.h"

#include "host/TC/Folders.h"
#include "host/se/LoadConfig.h"
#include "host/utils/CSingletonT.h"
#include "recovery/CRecoveryVersionManager.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QThread>

namespace client {

namespace {

using Recovery = utils::CSingletonT<TC::CRecoveryVersionManager>;

constexpr int kListedAtMost = 10; // from here on each backup discards the oldest version

QString timestampFormat()
{
    return QStringLiteral("yyyy-MM-dd hh#mm#ss");
}

QString backupPath(const QString& name)
{
    return TC::getConfigDir() + QStringLiteral("/backUp/") + name;
}

QString livePath(const QString& name)
{
    return TC::getUserRootDir() + QLatin1Char('/') + name;
}

QString formulasPath()
{
    return livePath(QStringLiteral("configFormula"));
}

QString scriptsPath()
{
    return livePath(QStringLiteral("lua"));
}

QString timestampOf(const QString& version)
{
    return version.section(QLatin1Char('_'), -1);
}

QString scriptsName(const QString& version)
{
    return QStringLiteral("lua_") + timestampOf(version);
}

qint64 bytesOf(const QString& path)
{
    const QFileInfo file(path);
    return file.isFile() ? file.size() : -1;
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool holds(const QString& path, const QByteArray& content)
{
    return bytesOf(path) >= 0 && contentOf(path) == content;
}

/// A live file as it is at construction.
class LiveFile
{
public:
    explicit LiveFile(const QString& path)
        : m_path(path)
        , m_existed(bytesOf(path) >= 0)
        , m_content(contentOf(path))
    {
    }

    /// Brings the file back to what it was; one that was missing goes.
    void putBack() const
    {
        if (!m_existed) {
            QFile::remove(m_path);
            return;
        }
        QSaveFile file(m_path);
        if (file.open(QIODevice::WriteOnly) && file.write(m_content) == m_content.size())
            file.commit();
    }

private:
    QString m_path;
    bool m_existed;
    QByteArray m_content;
};

/// Waits until no backup carries the present second, a second and a half at most.
void awaitFreeSecond()
{
    const auto taken = [] {
        const QString stamp = QDateTime::currentDateTime().toString(timestampFormat());
        return QFile::exists(backupPath(QStringLiteral("configFormula_") + stamp))
            || QFile::exists(backupPath(QStringLiteral("lua_") + stamp));
    };
    constexpr int longestWaitMs = 1500, stepMs = 20;
    for (int waited = 0; taken() && waited < longestWaitMs; waited += stepMs)
        QThread::msleep(stepMs);
}

} // namespace

std::vector<FormulaVersion> formulaVersions()
{
    Recovery::release();
    std::vector<FormulaVersion> versions;
    for (const QString& name : Recovery::instance()->getDataList()) {
        FormulaVersion version;
        version.name = name;
        version.made = QDateTime::fromString(timestampOf(name), timestampFormat());
        if (!version.made.isValid())
            version.made = QFileInfo(backupPath(name)).lastModified();
        version.formulaBytes = bytesOf(backupPath(name));
        version.scriptBytes = bytesOf(backupPath(scriptsName(name)));
        versions.push_back(version);
    }
    return versions;
}

void backUpFormulas()
{
    QFile::remove(backupPath(QStringLiteral("configFormula")));
    QFile::remove(backupPath(QStringLiteral("lua")));
    awaitFreeSecond();
    Recovery::release();
    Recovery::instance()->backUp();
}

QString restoreFormulas(const FormulaVersion& version)
{
    if (bytesOf(backupPath(version.name)) < 0)
        return QCoreApplication::translate("FormulaBackups", "备份文件已不存在，公式未改变。");

    const LiveFile formulas(formulasPath()), scripts(scriptsPath());
    QFile::remove(livePath(version.name));
    QFile::remove(livePath(scriptsName(version.name)));
    Recovery::instance()->loadFile(version.name);

    const bool hasScripts = bytesOf(backupPath(scriptsName(version.name))) >= 0;
    const bool done = holds(formulasPath(), formulasOf(version))
        && (!hasScripts || holds(scriptsPath(), scriptsOf(version)));
    if (done && hasScripts)
        return QString();
    if (!done)
        formulas.putBack();
    scripts.putBack();
    se::loadConfig("root", "configFormula", ""); // the engine took over what was there before putBack()
    return done ? QString() : QCoreApplication::translate("FormulaBackups", "恢复失败，公式未改变。");
}

bool isNextToGo(const FormulaVersion& version)
{
    const QList<QString> listed = Recovery::instance()->getDataList();
    return listed.size() >= kListedAtMost && listed.constLast() == version.name;
}

QByteArray liveFormulas()
{
    return contentOf(formulasPath());
}

QByteArray liveScripts()
{
    return contentOf(scriptsPath());
}

QByteArray formulasOf(const FormulaVersion& version)
{
    return contentOf(backupPath(version.name));
}

QByteArray scriptsOf(const FormulaVersion& version)
{
    return contentOf(backupPath(scriptsName(version.name)));
}

} // namespace client
