// SPDX-License-Identifier: MIT
#pragma once
/// @file The font of formulas and of what files hold.

#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>

namespace client {

/// A font whose letters are all of one width: the system's, or another where that one is not.
inline QFont fixedFont()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    if (!QFontInfo(font).fixedPitch()) {
        font.setFamily(QStringLiteral("monospace"));
        font.setStyleHint(QFont::TypeWriter);
    }
    return font;
}

} // namespace client
