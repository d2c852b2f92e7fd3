#include "host/embedded/skin/Skin.h"

#include <QFileInfo>
#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPainter>
#include <QSvgRenderer>

#include <functional>

namespace TC::embedded {

namespace {

constexpr int kPictureScale = 3; // pictures are drawn once, sharp up to this device pixel ratio

/// "FILE:LINE:COLUMN: reason" for a byte position; columns count characters from 1.
QString placed(const QString& fileName, const QByteArray& json, int offset, const QString& reason)
{
    const QByteArray before = json.left(offset);
    const int line = before.count('\n') + 1;
    const int column = QString::fromUtf8(before.mid(before.lastIndexOf('\n') + 1)).size() + 1;
    return QStringLiteral("%1:%2:%3: %4").arg(fileName).arg(line).arg(column).arg(reason);
}

/// Byte position of a key's quotation mark inside a section, or of the section itself.
int offsetOf(const QByteArray& json, const QString& section, const QString& key)
{
    const int from = std::max(0, json.indexOf('"' + section.toUtf8() + '"'));
    return key.isEmpty() ? from : std::max(from, json.indexOf('"' + key.toUtf8() + '"', from));
}

bool readColor(const QJsonValue& value, QColor& color)
{
    color = QColor(value.toString());
    return value.isString() && color.isValid();
}

bool readFont(const QJsonValue& value, QFont& font)
{
    const QJsonObject entry = value.toObject();
    const int pixelSize = entry.value(QStringLiteral("pixelSize")).toInt();
    const QString family = entry.value(QStringLiteral("family")).toString();
    if (pixelSize < 1 || pixelSize > 200 || family.isEmpty())
        return false;
    font = QFont(family);
    font.setPixelSize(pixelSize);
    font.setBold(entry.value(QStringLiteral("bold")).toBool());
    return true;
}

bool readPicture(const QJsonValue& value, const QDir& folder, QPixmap& pixmap)
{
    QSvgRenderer renderer(folder.filePath(value.toString()));
    if (!renderer.isValid())
        return false;
    pixmap = QPixmap(renderer.defaultSize() * kPictureScale);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    renderer.render(&painter);
    painter.end();
    pixmap.setDevicePixelRatio(kPictureScale);
    return true;
}

/// Reads one section of the file; the first entry that `read` refuses ends it.
/// @return the refused key, or a null text when all went well.
template <class Map, class Read>
QString readSection(const QJsonObject& root, const QString& section, Map& map, Read read)
{
    const QJsonObject entries = root.value(section).toObject();
    for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
        typename Map::mapped_type value;
        if (!read(entry.value(), value))
            return entry.key();
        map[entry.key()] = value;
    }
    return QString();
}

} // namespace

QString parseSkin(const QByteArray& json, const QString& fileName, Skin& skin)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError)
        return placed(fileName, json, error.offset, error.errorString());
    if (!document.isObject())
        return placed(fileName, json, 0, QStringLiteral("a skin is a JSON object"));

    const QJsonObject root = document.object();
    const QDir folder = QFileInfo(fileName).dir();
    Skin read;
    read.name = root.value(QStringLiteral("name")).toString(QFileInfo(fileName).completeBaseName());

    struct Section
    {
        QString name, expected;
        std::function<QString(const QString&)> readAll;
    };
    const Section sections[] = {
        { QStringLiteral("colors"), QStringLiteral("is not a colour such as \"#c03030\""),
          [&](const QString& name) { return readSection(root, name, read.colors, readColor); } },
        { QStringLiteral("fonts"), QStringLiteral("needs a \"family\" and a \"pixelSize\" from 1 to 200"),
          [&](const QString& name) { return readSection(root, name, read.fonts, readFont); } },
        { QStringLiteral("pictures"), QStringLiteral("does not name a readable SVG file"),
          [&](const QString& name) {
              return readSection(root, name, read.pixmaps, [&](const QJsonValue& value, QPixmap& pixmap) {
                  return readPicture(value, folder, pixmap);
              });
          } },
    };
    for (const Section& section : sections) {
        if (!root.value(section.name).isObject())
            return placed(fileName, json, offsetOf(json, section.name, QString()),
                          QStringLiteral("the section \"%1\" is missing").arg(section.name));
        const QString refused = section.readAll(section.name);
        if (!refused.isNull())
            return placed(fileName, json, offsetOf(json, section.name, refused),
                          QStringLiteral("\"%1\" %2").arg(refused, section.expected));
    }
    skin = read;
    return QString();
}

} // namespace TC::embedded
