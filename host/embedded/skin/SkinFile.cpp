// SPDX-License-Identifier: MIT
#include "host/embedded/skin/Skin.h"

#include "host/embedded/skin/SkinPicture.h"
#include "host/embedded/text/JsonPlaces.h"
#include "host/embedded/text/OneLine.h"

#include <QDir>
#include <QFileInfo>
#include <QFontDatabase>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace TC::embedded {

namespace {

/// @return empty on success, else what is wrong; the other readers answer the same way.
QString readColor(const QJsonValue& value, QColor& color)
{
    color = QColor(value.toString());
    return value.isString() && color.isValid() ? QString()
                                               : QStringLiteral("is not a colour such as \"#c03030\"");
}

/// The first family of the list that the machine has; without any, the first one.
QString chooseFamily(const QJsonValue& value)
{
    if (!value.isArray())
        return value.toString();
    const QStringList known = QFontDatabase().families();
    const QJsonArray families = value.toArray();
    for (const QJsonValue& entry : families) {
        QString family = entry.toString();
        const auto isIt = [&](const QString& name) { // several makers of one family are named behind it
            return name == family || name.startsWith(family + QStringLiteral(" ["));
        };
        if (!family.isEmpty() && std::any_of(known.begin(), known.end(), isIt))
            return family;
    }
    return families.first().toString();
}

QString readFont(const QJsonValue& value, QFont& font)
{
    const QJsonObject entry = value.toObject();
    const int pixelSize = entry.value(QStringLiteral("pixelSize")).toInt();
    const QString family = chooseFamily(entry.value(QStringLiteral("family")));
    if (pixelSize < 1 || pixelSize > 200 || family.isEmpty())
        return QStringLiteral("needs a \"family\" and a \"pixelSize\" from 1 to 200");
    font = QFont(family);
    font.setPixelSize(pixelSize);
    font.setBold(entry.value(QStringLiteral("bold")).toBool());
    return QString();
}

/// Reads the sections of one file; the first thing that is wrong ends it.
class SkinReader
{
public:
    SkinReader(const QByteArray& json, const QJsonObject& root)
        : m_json(json)
        , m_root(root)
    {
    }

    template <class Map, class Read>
    void readSection(const QString& section, Map& map, Read read)
    {
        if (!m_fault.isEmpty())
            return;
        if (!m_root.value(section).isObject())
            return refuse({ section }, QStringLiteral("the section \"%1\" is missing").arg(section));
        const QJsonObject entries = m_root.value(section).toObject();
        for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
            typename Map::mapped_type value;
            const QString wrong = read(entry.value(), value);
            if (!wrong.isEmpty())
                return refuse({ section, entry.key() }, QStringLiteral("\"%1\" %2").arg(entry.key(), wrong));
            map[entry.key()] = value;
        }
    }

    /// "LINE:COLUMN: reason"; empty when all went well.
    const QString& fault() const { return m_fault; }

private:
    void refuse(const QStringList& path, const QString& reason)
    {
        m_fault = QStringLiteral("%1: %2").arg(JsonPlaces(m_json).keyPlaceOf(path), reason);
    }

    const QByteArray m_json;
    const QJsonObject m_root;
    QString m_fault;
};

/// @return empty on success, else "LINE:COLUMN: reason".
QString readSkin(const QByteArray& json, const QFileInfo& file, Skin& skin)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError)
        return JsonPlaces::syntaxFault(json, error);
    if (!document.isObject())
        return QStringLiteral("1:1: a skin is a JSON object");

    const QJsonObject root = document.object();
    skin.name = root.value(QStringLiteral("name")).toString(file.completeBaseName());
    SkinPictures pictures(file.dir());
    SkinReader reader(json, root);
    reader.readSection(QStringLiteral("colors"), skin.colors, readColor);
    reader.readSection(QStringLiteral("fonts"), skin.fonts, readFont);
    reader.readSection(
        QStringLiteral("pictures"), skin.pixmaps,
        [&](const QJsonValue& value, QPixmap& pixmap) { return pictures.read(value.toString(), pixmap); });
    return reader.fault();
}

} // namespace

QString parseSkin(const QByteArray& json, const QString& fileName, Skin& skin)
{
    Skin read;
    const QString fault = readSkin(json, QFileInfo(fileName), read);
    if (!fault.isEmpty())
        return oneLine(QStringLiteral("%1:%2").arg(fileName, fault));
    skin = read;
    return QString();
}

} // namespace TC::embedded
