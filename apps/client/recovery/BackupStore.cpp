// SPDX-License-Identifier: MIT
#include "apps/client/recovery/BackupStore.h"

#include "apps/base/WholeFile.h"
#include "apps/client/language/Language.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>

namespace client {

namespace {

constexpr std::size_t kLastOnes = 10;
constexpr int kDays = 14, kWeeks = 26;
constexpr int kDigits = 6;

QString timeFormat()
{
    return QStringLiteral("yyyy-MM-dd hh-mm-ss");
}

/// Whether a key is new and there is room for it.
template <typename Key>
bool opens(QSet<Key>& seen, const Key& key, int most)
{
    if (seen.contains(key) || seen.size() >= most)
        return false;
    seen.insert(key);
    return true;
}

} // namespace

BackupStore::BackupStore(QString folder)
    : m_folder(std::move(folder))
{
}

std::vector<StoredBackup> BackupStore::list() const
{
    static const QRegularExpression form(
        QStringLiteral("^([0-9]{6,9}) ([0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}-[0-9]{2}-[0-9]{2})\\.backup$"));
    std::vector<StoredBackup> backups;
    const QStringList names = QDir(m_folder).entryList(QDir::Files);
    for (const QString& name : names) {
        const QRegularExpressionMatch match = form.match(name);
        if (match.hasMatch())
            backups.push_back(
                { match.captured(1).toInt(), name, QDateTime::fromString(match.captured(2), timeFormat()) });
    }
    std::sort(backups.begin(), backups.end(),
              [](const StoredBackup& a, const StoredBackup& b) { return a.number > b.number; });
    return backups;
}

std::optional<FormulaFiles> BackupStore::read(const QString& name) const
{
    base::Result<std::optional<QByteArray>> bytes = readOptional(QDir(m_folder).filePath(name));
    return bytes.isGood() && *bytes ? unpacked(**bytes) : std::nullopt;
}

bool BackupStore::holds(const FormulaFiles& files) const
{
    const std::vector<StoredBackup> backups = list();
    return std::any_of(backups.begin(), backups.end(), [&](const StoredBackup& backup) {
        const std::optional<FormulaFiles> content = read(backup.name);
        return content && *content == files;
    });
}

base::Result<bool> BackupStore::add(const FormulaFiles& files, const QDateTime& made)
{
    const std::vector<StoredBackup> before = list();
    if (!before.empty()) {
        const std::optional<FormulaFiles> newest = read(before.front().name);
        if (newest && *newest == files)
            return false;
    }
    if (!QDir().mkpath(m_folder))
        return base::Failure { tr("文件夹 %1 无法建立").arg(m_folder) };
    const int number = before.empty() ? 1 : before.front().number + 1;
    const QString name = QStringLiteral("%1 %2.backup")
                             .arg(number, kDigits, 10, QLatin1Char('0'))
                             .arg(made.toString(timeFormat()));
    const QByteArray bytes = packed(files);
    if (const auto fault = base::writeWholeFile(QDir(m_folder).filePath(name), bytes))
        return base::Failure { ownWords(*fault) };
    prune();
    return true;
}

void BackupStore::prune() const
{
    const QStringList names = dispensable(list());
    for (const QString& name : names)
        QFile::remove(QDir(m_folder).filePath(name)); // one that stays is tried again next time
}

QStringList dispensable(const std::vector<StoredBackup>& backups)
{
    QStringList names;
    QSet<qint64> days;
    QSet<QPair<int, int>> weeks;
    for (std::size_t place = 0; place < backups.size(); ++place) {
        const QDate date = backups[place].made.date();
        int year = 0;
        const int week = date.weekNumber(&year);
        const bool endsDay = opens(days, date.toJulianDay(), kDays);
        const bool endsWeek = opens(weeks, qMakePair(year, week), kWeeks);
        if (place >= kLastOnes && !endsDay && !endsWeek)
            names << backups[place].name;
    }
    return names;
}

} // namespace client
