// SPDX-License-Identifier: MIT
#include "apps/client/recovery/ManagerBackups.h"

#include "host/TC/Folders.h"
#include "host/utils/CSingletonT.h"
#include "recovery/CRecoveryVersionManager.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>

namespace client {

namespace {

using Recovery = utils::CSingletonT<TC::CRecoveryVersionManager>;

constexpr int kListedAtMost = 10; // from here on each backup discards the oldest version

const QLatin1String kFormulas("configFormula");
const QLatin1String kScripts("lua");
const QLatin1String kTimeFormat("yyyy-MM-dd hh#mm#ss");

QString pathOf(const QString& name)
{
    return TC::getConfigDir() + QStringLiteral("/backUp/") + name;
}

QString timestampOf(const QString& version)
{
    return version.section(QLatin1Char('_'), -1);
}

QString scriptsOf(const QString& version)
{
    return QString(kScripts) + QLatin1Char('_') + timestampOf(version);
}

std::optional<QByteArray> contentOf(const QString& name)
{
    base::Result<std::optional<QByteArray>> content = readOptional(pathOf(name));
    return content.isGood() ? *content : std::nullopt;
}

} // namespace

QStringList managerVersions()
{
    Recovery::release();
    return Recovery::instance()->getDataList();
}

QDateTime managerTime(const QString& version)
{
    const QDateTime named = QDateTime::fromString(timestampOf(version), kTimeFormat);
    return named.isValid() ? named : QFileInfo(pathOf(version)).lastModified();
}

FormulaFiles managerFiles(const QString& version)
{
    return { contentOf(version), contentOf(scriptsOf(version)) };
}

base::Result<FormulaFiles> readManagerFiles(const QString& version)
{
    base::Result<std::optional<QByteArray>> formulas = readOptional(pathOf(version));
    base::Result<std::optional<QByteArray>> scripts = readOptional(pathOf(scriptsOf(version)));
    if (!formulas.isGood())
        return formulas.failure();
    if (!scripts.isGood())
        return scripts.failure();
    return FormulaFiles { *formulas, *scripts };
}

QString managerNextToGo()
{
    const QStringList versions = managerVersions();
    return versions.size() >= kListedAtMost ? versions.constLast() : QString();
}

void letManagerBackUp()
{
    const QString now = QLatin1Char('_') + QDateTime::currentDateTime().toString(kTimeFormat);
    if (QFile::exists(pathOf(kFormulas + now)) || QFile::exists(pathOf(kScripts + now)))
        return;
    QFile::remove(pathOf(kFormulas));
    QFile::remove(pathOf(kScripts));
    Recovery::release();
    Recovery::instance()->backUp();
}

} // namespace client
