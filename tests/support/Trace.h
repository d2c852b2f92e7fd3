// SPDX-License-Identifier: MIT
#pragma once
/// @file What a painter did, as one text line per primitive.
///
/// line 1,2 3,4 pen=#ff0000/1/solid
/// path M 9,100 L 19,49 pen=#ff0000/1/solid          (and brush=... when it is filled)
/// rect 1,2 30x40 pen=#ff0000/1/solid brush=none
/// fill 1,2 30x40 #00ff00
/// ellipse 1,2 4x4 pen=#ff0000/1/solid brush=none
/// text 10,20 "文字" #ff0000 12px                     (baseline position; "bold" and "underline" follow)
/// pixmap 1,2 9x11

#include <QPainter>
#include <QStringList>

#include <functional>
#include <ostream>

namespace test {

/// Runs `paint` on a recording device and gives its primitives in order.
/// @param width,height  device size in pixels.
QStringList traceOf(const std::function<void(QPainter&)>& paint, int width = 4000, int height = 2000);

/// "#ff0000/1/solid", the form in which traces show a pen.
QString penText(const QPen& pen);

} // namespace test

QT_BEGIN_NAMESPACE
/// Readable lists in test failures.
inline void PrintTo(const QStringList& lines, std::ostream* out)
{
    *out << "\n";
    for (const QString& line : lines)
        *out << "  " << line.toStdString() << "\n";
}
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}
QT_END_NAMESPACE
