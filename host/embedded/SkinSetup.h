// SPDX-License-Identifier: MIT
#pragma once
/// @file Skins of the embedded host.
///
/// A skin is a JSON file of at most 1 MiB with the sections "colors", "fonts" and "pictures". A font's
/// "family" is a name, or a list of names of which the first one that the machine has is taken. Pictures are
/// SVG files beside the skin, of at most 1 MiB and 512 x 512 pixels each; all of one skin together take at
/// most 128 MiB.

#include "host/HostExport.h"

#include <QColor>
#include <QFont>
#include <QPixmap>
#include <QString>
#include <QStringList>

namespace TC::embedded {

/// Names of the shipped skins, the default one first.
INDICATORHOST_EXPORT QStringList skinNames();

/// The title that users see of a shipped skin; of another name the name itself.
INDICATORHOST_EXPORT QString skinTitle(const QString& name);

/// Name of the skin in use: a shipped name, the "name" of a skin file, or empty after clearSkin().
INDICATORHOST_EXPORT QString currentSkin();

/// Loads a skin: one of skinNames(), or the path of a JSON file.
/// @return empty on success; else one line "FILE:LINE:COLUMN: reason", and the previous skin stays.
INDICATORHOST_EXPORT QString loadSkin(const QString& nameOrPath);

/// Empties the skin: no key answers.
INDICATORHOST_EXPORT void clearSkin();

/// Sets one key; handlers of skin changes are told.
INDICATORHOST_EXPORT void setColor(const QString& key, const QColor& color);
/// The same for a font.
INDICATORHOST_EXPORT void setFont(const QString& key, const QFont& font);
/// The same for a picture.
INDICATORHOST_EXPORT void setPixmap(const QString& key, const QPixmap& pixmap);

/// Removes a key of any kind; handlers of skin changes are told.
INDICATORHOST_EXPORT void removeSkinKey(const QString& key);

} // namespace TC::embedded
