// SPDX-License-Identifier: MIT
#pragma once
/// @file Messages of one line, whatever a name or a path in them holds.

#include <QString>

namespace TC::embedded {

/// The text with "?" for every character that shows nothing or breaks the line.
inline QString oneLine(QString text)
{
    for (QChar& character : text) {
        if (!character.isPrint() && !character.isSurrogate())
            character = QLatin1Char('?');
    }
    return text;
}

} // namespace TC::embedded
