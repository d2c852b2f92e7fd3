// SPDX-License-Identifier: MIT
/// @file A backup or a restore in a process of its own, for tests that kill it or fill its disk.
///
/// recovery_steps OPERATION CONFIG_DIR USER_DIR [VERSION]
///   backup, restore             stops itself (SIGSTOP) before the operation, so that a tracer takes over
///   backup-asked, restore-asked the same for those of the client's menu and dialog; one line tells what the
///                               user would be told
///   backup-full, restore-full   first puts a disk of 64 KiB over CONFIG_DIR or USER_DIR, seen by this
///                               process alone; prints one line "FOLDER/NAME SIZE" per file afterwards
///   backup-cut, restore-cut     the same, but no file can grow beyond 64 KiB: writing on fails as on a full
///                               disk, without a mount
/// Ends with 77 when the machine does not let it mount that disk or set that limit.

#include "apps/client/recovery/FormulaBackups.h"
#include "host/embedded/EmbeddedHost.h"
#include "recovery/CRecoveryVersionManager.h"

#include <QDir>
#include <QFile>
#include <QMap>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>

#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>

namespace {

constexpr int kNoDisk = 77;
constexpr rlim_t kRoom = 65'536; // bytes, as the disk has

QMap<QString, QByteArray> filesOf(const QString& folder)
{
    QMap<QString, QByteArray> files;
    for (const QString& name : QDir(folder).entryList(QDir::Files | QDir::Hidden)) {
        QFile file(folder + QLatin1Char('/') + name);
        if (file.open(QIODevice::ReadOnly))
            files.insert(name, file.readAll());
    }
    return files;
}

/// Puts a disk of 64 KiB over the folder and carries the folder's files over to it.
bool putSmallDiskOver(const QString& folder)
{
    const QMap<QString, QByteArray> kept = filesOf(folder);
    if (unshare(CLONE_NEWNS) != 0 && unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
        return false;
    if (mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0
        || mount("tmpfs", folder.toUtf8().constData(), "tmpfs", 0, "size=64k") != 0)
        return false;
    for (auto file = kept.begin(); file != kept.end(); ++file) {
        QFile copy(folder + QLatin1Char('/') + file.key());
        if (!copy.open(QIODevice::WriteOnly) || copy.write(file.value()) != file.value().size())
            return false;
    }
    return true;
}

/// Lets no file grow beyond the room of the small disk: writing on fails instead of ending the process.
bool limitFiles()
{
    const rlimit limit { kRoom, kRoom };
    return std::signal(SIGXFSZ, SIG_IGN) != SIG_ERR && setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

void list(const char* label, const QString& folder)
{
    const QMap<QString, QByteArray> files = filesOf(folder);
    for (auto file = files.begin(); file != files.end(); ++file)
        std::printf("%s/%s %lld\n", label, file.key().toUtf8().constData(),
                    static_cast<long long>(file.value().size()));
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 4)
        return EXIT_FAILURE;
    const QString operation = QString::fromUtf8(argv[1]);
    const QString configDir = QString::fromUtf8(argv[2]);
    const QString userDir = QString::fromUtf8(argv[3]);
    const bool restoring = operation.startsWith(QLatin1String("restore"));
    const bool onFullDisk = operation.endsWith(QLatin1String("-full"));
    const bool cutsFiles = operation.endsWith(QLatin1String("-cut"));
    if ((onFullDisk && !putSmallDiskOver(restoring ? userDir : configDir)) || (cutsFiles && !limitFiles()))
        return kNoDisk;

    tzset();
    TC::embedded::setConfigDir(configDir);
    TC::embedded::setUserRootDir(userDir);
    TC::CRecoveryVersionManager manager;
    const bool isTraced = !onFullDisk && !cutsFiles;
    if (isTraced)
        std::raise(SIGSTOP);
    const QString version = QString::fromUtf8(argc > 4 ? argv[4] : "");
    if (operation == QLatin1String("restore-asked")) {
        client::FormulaVersion chosen;
        chosen.name = version;
        chosen.isOfManager = true;
        std::puts(client::restoreFormulas(chosen).isGood() ? "restored" : "not restored");
    } else if (operation == QLatin1String("backup-asked")) {
        base::Result<bool> made = client::backUpFormulas();
        std::puts(made.isGood() && *made ? "backed up" : "not backed up");
    } else if (restoring) {
        manager.loadFile(version);
    } else {
        manager.backUp();
    }
    std::fflush(stdout);
    if (!isTraced) {
        list("backUp", configDir + QStringLiteral("/backUp"));
        list("user", userDir);
        std::fflush(stdout);
    }
    std::_Exit(EXIT_SUCCESS);
}
