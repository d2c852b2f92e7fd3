// SPDX-License-Identifier: MIT
#pragma once
/// @file Skin look-ups that always answer: the fallback stands where the skin has no such key.

#include "host/WB/CUiResource.h"
#include "host/utils/CSingletonT.h"

namespace WB {

/// The skin's colour of a key, by value.
inline QColor skinColor(const char* key, const QColor& fallback = Qt::black)
{
    const QColor* color = utils::CSingletonT<CUiResource>::instance()->getColor(QString::fromLatin1(key));
    return color ? *color : fallback;
}

/// The skin's font of a key, by value.
inline QFont skinFont(const QString& key, const QFont& fallback = QFont())
{
    const QFont* font = utils::CSingletonT<CUiResource>::instance()->getFont(key);
    return font ? *font : fallback;
}
/// The same by a key in Latin letters.
inline QFont skinFont(const char* key, const QFont& fallback = QFont())
{
    return skinFont(QString::fromLatin1(key), fallback);
}

/// The skin's picture of a key; null when the skin has none. Owned by the skin, valid until it changes.
inline const QPixmap* skinPicture(const QString& key)
{
    return utils::CSingletonT<CUiResource>::instance()->getPixmap(key);
}
/// The same by a key in Latin letters.
inline const QPixmap* skinPicture(const char* key)
{
    return skinPicture(QString::fromLatin1(key));
}

} // namespace WB
