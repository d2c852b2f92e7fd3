// SPDX-License-Identifier: MIT
#pragma once
/// @file What a skin holds, and how a skin file becomes one.

#include <QColor>
#include <QFont>
#include <QPixmap>
#include <QString>

#include <map>

namespace TC::embedded {

/// Everything that a skin file says, by key. Node-based maps: addresses stay while other keys change.
struct Skin
{
    QString name;
    std::map<QString, QColor> colors;
    std::map<QString, QFont> fonts;
    std::map<QString, QPixmap> pixmaps;
};

/// Reads a skin from the text of a JSON file.
/// @param fileName  named in the answer; pictures are looked up beside it.
/// @param[out] skin  written only on success.
/// @return empty on success, else "FILE:LINE:COLUMN: reason".
QString parseSkin(const QByteArray& json, const QString& fileName, Skin& skin);

} // namespace TC::embedded
