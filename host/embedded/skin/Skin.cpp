// SPDX-License-Identifier: MIT
#include "host/embedded/skin/Skin.h"

#include "host/WB/CUiResource.h"
#include "host/WB/CUiResourceChangeHandler.h"
#include "host/embedded/SkinSetup.h"
#include "host/embedded/text/OneLine.h"
#include "host/embedded/text/OrdinaryFile.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <vector>

namespace {

template <class Value>
Value* find(std::map<QString, Value>& map, const QString& key)
{
    const auto found = map.find(key);
    return found == map.end() ? nullptr : &found->second;
}

/// Loads the file into `skin` without telling anybody.
QString readSkin(const QString& nameOrPath, TC::embedded::Skin& skin)
{
    const QString path = TC::embedded::skinNames().contains(nameOrPath)
        ? QStringLiteral(":/skins/%1.json").arg(nameOrPath)
        : nameOrPath;
    constexpr int largestFile = 1024 * 1024; // bytes; a shipped skin has 3,000
    QByteArray json;
    const QString failure = TC::embedded::readOrdinaryFile(path, largestFile, json);
    if (!failure.isEmpty())
        return TC::embedded::oneLine(QStringLiteral("%1:1:1: %2").arg(nameOrPath, failure));
    return TC::embedded::parseSkin(json, path, skin);
}

/// The skin in use; at first the default one.
TC::embedded::Skin& currentOne()
{
    // Deliberate: never destroyed, for widgets that outlive the end of the program's main function.
    static TC::embedded::Skin& skin = *[] {
        auto* made = new TC::embedded::Skin;
        readSkin(TC::embedded::skinNames().constFirst(), *made);
        return made;
    }();
    return skin;
}

std::vector<WB::CUiResourceChangeHandler*>& changeHandlers()
{
    static auto& handlers = *new std::vector<WB::CUiResourceChangeHandler*>; // as long as the skin
    return handlers;
}

void tellHandlers()
{
    const auto handlers = changeHandlers(); // which may change while they are told
    for (WB::CUiResourceChangeHandler* handler : handlers)
        handler->uiResourceChanged();
}

} // namespace

namespace WB {

QColor* CUiResource::getColor(const QString& key) const
{
    return find(currentOne().colors, key);
}

QFont* CUiResource::getFont(const QString& key) const
{
    return find(currentOne().fonts, key);
}

QPixmap* CUiResource::getPixmap(const QString& key) const
{
    return find(currentOne().pixmaps, key);
}

void CUiResource::addChangeHandler(CUiResourceChangeHandler* handler)
{
    changeHandlers().push_back(handler);
}

void CUiResource::removeChangeHandler(CUiResourceChangeHandler* handler)
{
    auto& handlers = changeHandlers();
    handlers.erase(std::remove(handlers.begin(), handlers.end(), handler), handlers.end());
}

} // namespace WB

namespace TC::embedded {

QStringList skinNames()
{
    return { QStringLiteral("dark"), QStringLiteral("light"), QStringLiteral("colorblind") };
}

QString skinTitle(const QString& name)
{
    QFile file(QStringLiteral(":/skins/%1.json").arg(name));
    const QJsonObject skin =
        file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
    return skin.value(QStringLiteral("title")).toString(name);
}

QString currentSkin()
{
    return currentOne().name;
}

QString loadSkin(const QString& nameOrPath)
{
    QString failure = readSkin(nameOrPath, currentOne());
    if (failure.isEmpty())
        tellHandlers();
    return failure;
}

void clearSkin()
{
    currentOne() = Skin();
    tellHandlers();
}

void setColor(const QString& key, const QColor& color)
{
    currentOne().colors[key] = color;
    tellHandlers();
}

void setFont(const QString& key, const QFont& font)
{
    currentOne().fonts[key] = font;
    tellHandlers();
}

void setPixmap(const QString& key, const QPixmap& pixmap)
{
    currentOne().pixmaps[key] = pixmap;
    tellHandlers();
}

void removeSkinKey(const QString& key)
{
    Skin& skin = currentOne();
    skin.colors.erase(key);
    skin.fonts.erase(key);
    skin.pixmaps.erase(key);
    tellHandlers();
}

} // namespace TC::embedded
