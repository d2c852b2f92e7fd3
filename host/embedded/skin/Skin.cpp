#include "host/WB/CUiResource.h"

#include "host/WB/CUiResourceChangeHandler.h"
#include "host/embedded/ResetHooks.h"
#include "host/embedded/skin/SkinData.h"
#include "host/embedded/SkinSetup.h"
#include "host/utils/CSingletonT.h"

#include <QDir>
#include <QFile>

#include <algorithm>

namespace {

WB::CUiResource::Private& resources()
{
    return utils::CSingletonT<WB::CUiResource>::instance()->data();
}

void tellHandlers()
{
    const auto handlers = resources().handlers;
    for (WB::CUiResourceChangeHandler* handler : handlers)
        handler->uiResourceChanged();
}

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
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QStringLiteral("%1:1:1: %2").arg(nameOrPath, file.errorString());
    return TC::embedded::parseSkin(file.readAll(), path, skin);
}

const TC::embedded::ResetHook s_resetSkin([] { TC::embedded::loadSkin(TC::embedded::skinNames().first()); });

} // namespace

namespace WB {

CUiResource::CUiResource()
    : m_data(std::make_unique<Private>())
{
    readSkin(TC::embedded::skinNames().first(), m_data->skin);
}

CUiResource::~CUiResource() = default;

QColor* CUiResource::getColor(const QString& key) const
{
    return find(m_data->skin.colors, key);
}

QFont* CUiResource::getFont(const QString& key) const
{
    return find(m_data->skin.fonts, key);
}

QPixmap* CUiResource::getPixmap(const QString& key) const
{
    return find(m_data->skin.pixmaps, key);
}

void CUiResource::addChangeHandler(CUiResourceChangeHandler* handler)
{
    m_data->handlers.push_back(handler);
}

void CUiResource::removeChangeHandler(CUiResourceChangeHandler* handler)
{
    auto& handlers = m_data->handlers;
    handlers.erase(std::remove(handlers.begin(), handlers.end(), handler), handlers.end());
}

} // namespace WB

namespace TC::embedded {

QStringList skinNames()
{
    return { QStringLiteral("dark"), QStringLiteral("light"), QStringLiteral("colorblind") };
}

QString currentSkin()
{
    return resources().skin.name;
}

QString loadSkin(const QString& nameOrPath)
{
    const QString failure = readSkin(nameOrPath, resources().skin);
    if (failure.isEmpty())
        tellHandlers();
    return failure;
}

void clearSkin()
{
    resources().skin = Skin();
    tellHandlers();
}

void setColor(const QString& key, const QColor& color)
{
    resources().skin.colors[key] = color;
    tellHandlers();
}

void setFont(const QString& key, const QFont& font)
{
    resources().skin.fonts[key] = font;
    tellHandlers();
}

void setPixmap(const QString& key, const QPixmap& pixmap)
{
    resources().skin.pixmaps[key] = pixmap;
    tellHandlers();
}

void removeSkinKey(const QString& key)
{
    Skin& skin = resources().skin;
    skin.colors.erase(key);
    skin.fonts.erase(key);
    skin.pixmaps.erase(key);
    tellHandlers();
}

} // namespace TC::embedded
