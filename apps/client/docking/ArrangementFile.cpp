// SPDX-License-Identifier: MIT
#include "apps/client/docking/ArrangementFile.h"

#include "apps/base/WholeFile.h"
#include "apps/client/language/Language.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <optional>

namespace client {

namespace {

// Without "base::" in front of a function, which Qt 6's lupdate takes for the context of its texts.
using base::Failure;

/// Of this file, for the catalogue.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ArrangementFile)
};

constexpr int kFormat = 1;
constexpr qint64 kMaxBytes = qint64 { 16 } << 20; // an arrangement takes a few kilobytes

Failure damaged()
{
    return { Texts::tr("面板布局文件已损坏") };
}

QJsonObject packed(const QByteArray& state)
{
    return { { QStringLiteral("state"), QString::fromLatin1(state.toBase64()) },
             { QStringLiteral("sha256"), checksumOf(state) } };
}

std::optional<QByteArray> unpacked(const QJsonValue& value)
{
    const QJsonObject object = value.toObject();
    const auto decoded = QByteArray::fromBase64Encoding(
        object.value(QStringLiteral("state")).toString().toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded || (*decoded).isEmpty()
        || checksumOf(*decoded) != object.value(QStringLiteral("sha256")).toString())
        return std::nullopt;
    return *decoded;
}

} // namespace

QString checksumOf(const QByteArray& state)
{
    return QString::fromLatin1(QCryptographicHash::hash(state, QCryptographicHash::Sha256).toHex());
}

base::Result<ArrangementFile> ArrangementFile::read(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > kMaxBytes)
        return base::Failure { Texts::tr("面板布局文件无法读取") };
    const QJsonObject root = QJsonDocument::fromJson(file.readAll()).object();
    if (root.value(QStringLiteral("format")).toInt() != kFormat)
        return damaged();

    ArrangementFile content;
    const std::optional<QByteArray> lastState = unpacked(root.value(QStringLiteral("last")));
    if (!lastState)
        return damaged();
    content.last = *lastState;
    const QJsonObject states = root.value(QStringLiteral("named")).toObject();
    for (auto entry = states.begin(); entry != states.end(); ++entry) {
        const std::optional<QByteArray> state = unpacked(entry.value());
        if (!state)
            return damaged();
        content.named.insert(entry.key(), *state);
    }
    const QJsonValue place = root.value(QStringLiteral("window"));
    const std::optional<QByteArray> windowPlace = unpacked(place);
    if (!windowPlace && !place.isUndefined())
        return damaged();
    content.window = windowPlace.value_or(QByteArray());
    return content;
}

base::Result<void> ArrangementFile::write(const QString& path) const
{
    QJsonObject states;
    for (auto entry = named.begin(); entry != named.end(); ++entry)
        states.insert(entry.key(), packed(entry.value()));
    QJsonObject root { { QStringLiteral("format"), kFormat },
                       { QStringLiteral("last"), packed(last) },
                       { QStringLiteral("named"), states } };
    if (!window.isEmpty())
        root.insert(QStringLiteral("window"), packed(window));
    const QByteArray bytes = QJsonDocument(root).toJson();
    if (const auto fault = base::writeWholeFile(path, bytes))
        return base::Failure { Texts::tr("面板布局无法保存：%1").arg(ownWords(*fault)) };
    return {};
}

} // namespace client
