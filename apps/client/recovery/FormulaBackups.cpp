// SPDX-License-Identifier: MIT
#include "apps/client/recovery/FormulaBackups.h"

#include "apps/base/WholeFile.h"
#include "apps/client/language/Language.h"
#include "apps/client/recovery/BackupStore.h"
#include "apps/client/recovery/ManagerBackups.h"
#include "host/TC/Folders.h"
#include "host/se/LoadConfig.h"

#include <QCoreApplication>
#include <QFile>
#include <QStringList>

#include <algorithm>

namespace client {

namespace {

/// Of this file, for the catalogue.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(FormulaBackups)
};

/// What a restore is about to put in place, and what stood there, until it is done.
struct RestoreNote
{
    FormulaFiles before, wanted;
};

BackupStore store()
{
    return BackupStore(TC::getConfigDir() + QStringLiteral("/formulaBackups"));
}

QString notePath(const char* part)
{
    return TC::getConfigDir() + QStringLiteral("/restore-") + QString::fromLatin1(part);
}

/// The wanted files are noted last: a restore counts as begun when they are there.
base::Result<void> writeNote(const RestoreNote& note)
{
    if (const auto fault = base::writeWholeFile(notePath("before"), packed(note.before)))
        return base::Failure { ownWords(*fault) };
    if (const auto fault = base::writeWholeFile(notePath("wanted"), packed(note.wanted)))
        return base::Failure { ownWords(*fault) };
    return {};
}

bool removeNote()
{
    const bool removed = !QFile::exists(notePath("wanted")) || QFile::remove(notePath("wanted"));
    QFile::remove(notePath("before"));
    return removed;
}

std::optional<FormulaFiles> readNote(const char* part)
{
    base::Result<std::optional<QByteArray>> bytes = readOptional(notePath(part));
    return bytes.isGood() && *bytes ? unpacked(**bytes) : std::nullopt;
}

qint64 bytesOf(const std::optional<QByteArray>& content)
{
    return content ? content->size() : -1;
}

FormulaVersion versionOf(const QString& name, bool isOfManager, const QDateTime& made,
                         const FormulaFiles& files)
{
    return { name, isOfManager, made, bytesOf(files.formulas), bytesOf(files.scripts) };
}

void reload()
{
    se::loadConfig("root", "configFormula", "");
}

/// What a live file is now, beside what it was and was to become.
QString stateOf(const std::optional<QByteArray>& now, const std::optional<QByteArray>& before,
                const std::optional<QByteArray>& wanted)
{
    return now == before ? Texts::tr("未改变")
        : now == wanted  ? Texts::tr("已是所选版本")
                         : Texts::tr("内容不明");
}

/// Says how the live files stand after a restore that failed.
QString stateText(const RestoreNote& note)
{
    base::Result<FormulaFiles> now = readLiveFiles();
    if (!now.isGood())
        return Texts::tr("现用文件读不了（%1）").arg(now.reason());
    return Texts::tr("公式%1，脚本%2")
        .arg(stateOf(now->formulas, note.before.formulas, note.wanted.formulas),
             stateOf(now->scripts, note.before.scripts, note.wanted.scripts));
}

/// Puts a version of the manager into the store. @return whether it is there, all of it.
bool takeOver(const QString& version)
{
    base::Result<FormulaFiles> files = readManagerFiles(version);
    return files.isGood() && (store().holds(*files) || store().add(*files, managerTime(version)).isGood());
}

/// Whether a live file is as an unfinished restore can have left it.
bool isOfRestore(const std::optional<QByteArray>& now, const std::optional<QByteArray>& before,
                 const std::optional<QByteArray>& wanted)
{
    return now == before || (wanted && now == wanted);
}

} // namespace

std::vector<FormulaVersion> formulaVersions()
{
    std::vector<FormulaVersion> versions;
    std::vector<FormulaFiles> held;
    const BackupStore backups = store();
    for (const StoredBackup& backup : backups.list()) {
        const FormulaFiles files = backups.read(backup.name).value_or(FormulaFiles());
        versions.push_back(versionOf(backup.name, false, backup.made, files));
        held.push_back(files);
    }
    const QStringList others = managerVersions();
    for (const QString& name : others) {
        const FormulaFiles files = managerFiles(name);
        if (std::find(held.begin(), held.end(), files) == held.end())
            versions.push_back(versionOf(name, true, managerTime(name), files));
    }
    return versions;
}

FormulaFiles filesOf(const FormulaVersion& version)
{
    return version.isOfManager ? managerFiles(version.name)
                               : store().read(version.name).value_or(FormulaFiles());
}

FormulaFiles liveFiles()
{
    base::Result<FormulaFiles> files = readLiveFiles();
    return files.isGood() ? *files : FormulaFiles();
}

base::Result<bool> backUpFormulas()
{
    base::Result<FormulaFiles> live = readLiveFiles();
    if (!live.isGood())
        return live.failure();
    if (live->isEmpty())
        return false;
    // What the manager's next backup discards is taken over first.
    const QString leaving = managerNextToGo();
    const bool isTakenOver = leaving.isEmpty() || takeOver(leaving);
    base::Result<bool> made = store().add(*live, QDateTime::currentDateTime());
    if (isTakenOver && made.isGood() && *made)
        letManagerBackUp();
    return made;
}

base::Result<void> restoreFormulas(const FormulaVersion& version)
{
    // Read now: the backup below may push the version out.
    base::Result<FormulaFiles> read =
        version.isOfManager ? readManagerFiles(version.name) : base::Result<FormulaFiles>(filesOf(version));
    if (!read.isGood())
        return base::Failure { Texts::tr("备份读不了，公式未改变：%1").arg(read.reason()) };
    const FormulaFiles wanted = *read;
    if (!wanted.formulas)
        return base::Failure { Texts::tr("备份文件已不存在或已损坏，公式未改变。") };
    base::Result<bool> kept = backUpFormulas();
    base::Result<FormulaFiles> before = readLiveFiles();
    if (!kept.isGood() || !before.isGood())
        return base::Failure {
            Texts::tr("现用公式备份失败，未恢复：%1").arg(kept.isGood() ? before.reason() : kept.reason())
        };
    const RestoreNote note { *before, wanted };
    base::Result<void> noted = writeNote(note);
    if (!noted.isGood()) {
        removeNote();
        return base::Failure { Texts::tr("未恢复：%1").arg(noted.reason()) };
    }
    const base::Result<void> written = writeLiveFiles(wanted);
    if (!written.isGood())
        static_cast<void>(writeLiveFiles(*before)); // stateText() tells how that ended
    const bool isNoteGone = removeNote();
    reload();
    if (written.isGood())
        return {};
    QString text = Texts::tr("恢复失败：%1。%2。").arg(written.reason(), stateText(note));
    if (!isNoteGone)
        text += Texts::tr("下次启动时会再试。");
    return base::Failure { text };
}

QString mendInterruptedRestore()
{
    const std::optional<FormulaFiles> before = readNote("before"), wanted = readNote("wanted");
    if (!before || !wanted) {
        removeNote();
        return QString();
    }
    base::Result<FormulaFiles> now = readLiveFiles();
    if (!now.isGood())
        return Texts::tr("上次的公式恢复被中断，现用文件读不了：%1").arg(now.reason());
    const bool isDone =
        now->formulas == wanted->formulas && (!wanted->scripts || now->scripts == wanted->scripts);
    const bool isUntouched = isOfRestore(now->formulas, before->formulas, wanted->formulas)
        && isOfRestore(now->scripts, before->scripts, wanted->scripts);
    if (isDone || !isUntouched) { // done, or changed since: what is in use stays
        removeNote();
        return QString();
    }
    const base::Result<void> written = writeLiveFiles(*wanted);
    if (!written.isGood())
        return Texts::tr("上次的公式恢复被中断，这次也没有完成：%1").arg(written.reason());
    removeNote();
    reload();
    return Texts::tr("上次的公式恢复被中断，现已完成；恢复前的公式在备份中。");
}

} // namespace client
