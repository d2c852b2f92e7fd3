// SPDX-License-Identifier: MIT
#include "apps/client/session/Session.h"

#include "apps/base/FileNames.h"
#include "host/TC/Folders.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace client {

namespace {

constexpr std::size_t kMostOverlays = 20;
constexpr int kMostPanes = 50, kMostFormulas = 50, kMostNames = 5000;

/// A file's name may be made of any bytes, a text of JSON may not.
QJsonValue fromName(const QString& name)
{
    return QString::fromLatin1(base::bytesOfName(name).toPercentEncoding("/ "));
}

QString toName(const QJsonValue& value)
{
    return base::nameFromBytes(QByteArray::fromPercentEncoding(value.toString().toLatin1()));
}

QJsonArray packedNames(const QStringList& names)
{
    QJsonArray all;
    for (const QString& name : names)
        all.append(fromName(name));
    return all;
}

QStringList unpackedNames(const QJsonArray& all)
{
    QStringList names;
    for (const QJsonValue& name : all) {
        if (name.isString() && names.size() < kMostNames)
            names << toName(name);
    }
    return names;
}

/// In the order of PaneData::OverlayScale.
const QStringList& scaleNames()
{
    static const QStringList names { QStringLiteral("together"), QStringLiteral("same"),
                                     QStringLiteral("own") };
    return names;
}

QJsonArray packed(const std::vector<OverlaidFile>& overlays)
{
    QJsonArray all;
    for (const OverlaidFile& overlay : overlays)
        all.append(
            QJsonObject { { QStringLiteral("file"), fromName(overlay.path) },
                          { QStringLiteral("scale"), scaleNames().at(static_cast<int>(overlay.scale)) } });
    return all;
}

std::vector<OverlaidFile> unpackedOverlays(const QJsonArray& all)
{
    std::vector<OverlaidFile> overlays;
    for (const QJsonValue& value : all) {
        const QString path = toName(value.toObject().value(QStringLiteral("file")));
        const QString name = value.toObject().value(QStringLiteral("scale")).toString();
        if (!path.isEmpty() && overlays.size() < kMostOverlays)
            overlays.push_back({ path,
                                 static_cast<PaneData::OverlayScale>(
                                     std::max(0, static_cast<int>(scaleNames().indexOf(name)))) });
    }
    return overlays;
}

QJsonArray packed(const std::vector<QStringList>& panes)
{
    QJsonArray all;
    for (const QStringList& pane : panes)
        all.append(QJsonArray::fromStringList(pane));
    return all;
}

std::vector<QStringList> unpacked(const QJsonArray& all)
{
    std::vector<QStringList> panes;
    for (const QJsonValue& value : all) {
        QStringList pane;
        const QJsonArray names = value.toArray();
        for (const QJsonValue& name : names) {
            if (name.isString() && pane.size() < kMostFormulas)
                pane << name.toString();
        }
        if (panes.size() < kMostPanes)
            panes.push_back(pane);
    }
    return panes;
}

} // namespace

QByteArray Session::toJson() const
{
    QJsonObject numbers;
    for (auto entry = parameters.begin(); entry != parameters.end(); ++entry) {
        QJsonArray values;
        for (double value : entry.value())
            values.append(value);
        numbers.insert(entry.key(), values);
    }
    return QJsonDocument(QJsonObject { { QStringLiteral("language"), language },
                                       { QStringLiteral("skin"), fromName(skin) },
                                       { QStringLiteral("greenUp"), isGreenUp },
                                       { QStringLiteral("bars"), fromName(bars) },
                                       { QStringLiteral("ticks"), fromName(ticks) },
                                       { QStringLiteral("filter"), filter },
                                       { QStringLiteral("favourites"), packedNames(favourites) },
                                       { QStringLiteral("recent"), packedNames(recent) },
                                       { QStringLiteral("shown"), shown },
                                       { QStringLiteral("behind"), behind },
                                       { QStringLiteral("bookRule"), bookRule },
                                       { QStringLiteral("tools"), hasTools },
                                       { QStringLiteral("chart"), chart.toJson() },
                                       { QStringLiteral("overlays"), packed(overlays) },
                                       { QStringLiteral("panes"), packed(panes) },
                                       { QStringLiteral("parameters"), numbers } })
        .toJson();
}

Session Session::fromJson(const QByteArray& json)
{
    const QJsonObject root = QJsonDocument::fromJson(json).object();
    Session session;
    session.language = root.value(QStringLiteral("language")).toString();
    session.skin = toName(root.value(QStringLiteral("skin")));
    session.isGreenUp = root.value(QStringLiteral("greenUp")).toBool();
    session.bars = toName(root.value(QStringLiteral("bars")));
    session.ticks = toName(root.value(QStringLiteral("ticks")));
    session.filter = root.value(QStringLiteral("filter")).toString();
    session.favourites = unpackedNames(root.value(QStringLiteral("favourites")).toArray());
    session.recent = unpackedNames(root.value(QStringLiteral("recent")).toArray());
    session.shown = std::max(0, root.value(QStringLiteral("shown")).toInt());
    session.behind = std::max(0, root.value(QStringLiteral("behind")).toInt());
    session.bookRule = root.value(QStringLiteral("bookRule")).toBool();
    session.hasTools = root.value(QStringLiteral("tools")).toBool(true);
    session.chart = ChartChoices::fromJson(root.value(QStringLiteral("chart")).toObject());
    session.overlays = unpackedOverlays(root.value(QStringLiteral("overlays")).toArray());
    session.panes = unpacked(root.value(QStringLiteral("panes")).toArray());
    const QJsonObject numbers = root.value(QStringLiteral("parameters")).toObject();
    for (auto entry = numbers.begin(); entry != numbers.end(); ++entry) {
        const QJsonArray values = entry.value().toArray();
        for (const QJsonValue& value : values)
            session.parameters[entry.key()] << value.toDouble();
    }
    return session;
}

QString Session::path()
{
    return TC::getConfigDir() + QStringLiteral("/session.json");
}

} // namespace client
