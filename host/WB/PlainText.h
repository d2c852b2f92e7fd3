// SPDX-License-Identifier: MIT
#pragma once
/// @file Names and file names as widgets show them: as they are written, whatever marks they hold.
///
/// Labels have a switch (QLabel::setTextFormat(Qt::PlainText)); what has none is escaped here.

#include <QString>
#include <QTextDocument>

namespace WB {

/// A text for setToolTip, setWhatsThis and message boxes, which take a text that looks like markup for
/// markup.
inline QString plainToolTip(const QString& text)
{
    return Qt::mightBeRichText(text)
        ? QStringLiteral("<div style=\"white-space: pre-wrap\">%1</div>").arg(text.toHtmlEscaped())
        : text;
}

/// A text for menu entries, buttons and tabs, where "&" marks the letter of a shortcut.
inline QString plainLabel(QString text)
{
    return text.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

} // namespace WB
