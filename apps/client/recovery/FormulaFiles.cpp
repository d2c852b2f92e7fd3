// SPDX-License-Identifier: MIT
#include "apps/client/recovery/FormulaFiles.h"

#include "apps/base/FileCalls.h"
#include "apps/base/FileNames.h"
#include "apps/base/WholeFile.h"
#include "apps/client/language/Language.h"
#include "host/TC/Folders.h"

#include <QCryptographicHash>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <cerrno>

namespace client {

namespace {

const QLatin1String kFormulas("formulas");
const QLatin1String kScripts("scripts");
const QLatin1String kChecksum("sha256");

QString checksum(const QJsonObject& files)
{
    const QByteArray bytes = QJsonDocument(files).toJson(QJsonDocument::Compact);
    return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex());
}

void insert(QJsonObject& object, QLatin1String key, const std::optional<QByteArray>& content)
{
    if (content)
        object.insert(key, QString::fromLatin1(content->toBase64()));
}

std::optional<QByteArray> take(const QJsonObject& object, QLatin1String key)
{
    if (!object.contains(key))
        return std::nullopt;
    return QByteArray::fromBase64(object.value(key).toString().toLatin1());
}

} // namespace

QString liveFormulasPath()
{
    return TC::getUserRootDir() + QStringLiteral("/configFormula");
}

QString liveScriptsPath()
{
    return TC::getUserRootDir() + QStringLiteral("/lua");
}

base::Result<std::optional<QByteArray>> readOptional(const QString& path)
{
    const int descriptor = base::openForReading(path);
    if (descriptor < 0 && errno == ENOENT)
        return std::optional<QByteArray>();
    QFile file;
    if (descriptor < 0 || !file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        return base::Failure { QStringLiteral("%1: %2").arg(base::printable(path), qt_error_string()) };
    QByteArray content = file.readAll();
    if (file.error() != QFileDevice::NoError || file.size() != content.size())
        return base::Failure { QStringLiteral("%1: %2").arg(base::printable(path), file.errorString()) };
    return std::optional<QByteArray>(std::move(content));
}

base::Result<FormulaFiles> readLiveFiles()
{
    base::Result<std::optional<QByteArray>> formulas = readOptional(liveFormulasPath());
    base::Result<std::optional<QByteArray>> scripts = readOptional(liveScriptsPath());
    if (!formulas.isGood())
        return formulas.failure();
    if (!scripts.isGood())
        return scripts.failure();
    return FormulaFiles { *formulas, *scripts };
}

base::Result<void> writeLiveFiles(const FormulaFiles& files)
{
    const std::pair<QString, const std::optional<QByteArray>*> both[] = {
        { liveFormulasPath(), &files.formulas }, { liveScriptsPath(), &files.scripts }
    };
    for (const auto& [path, content] : both) {
        if (!*content)
            continue;
        if (const auto fault = base::writeWholeFile(path, **content))
            return base::Failure { ownWords(*fault) };
    }
    return {};
}

QByteArray packed(const FormulaFiles& files)
{
    QJsonObject object;
    insert(object, kFormulas, files.formulas);
    insert(object, kScripts, files.scripts);
    object.insert(kChecksum, checksum(object));
    return QJsonDocument(object).toJson();
}

std::optional<FormulaFiles> unpacked(const QByteArray& bytes)
{
    QJsonObject object = QJsonDocument::fromJson(bytes).object();
    const QString expected = object.take(kChecksum).toString();
    if (expected.isEmpty() || checksum(object) != expected)
        return std::nullopt;
    return FormulaFiles { take(object, kFormulas), take(object, kScripts) };
}

} // namespace client
