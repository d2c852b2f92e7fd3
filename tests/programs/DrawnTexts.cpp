// SPDX-License-Identifier: MIT
/// @file A library to be loaded before a Qt program (LD_PRELOAD): each text that the program draws into a
/// rectangle, as legends are drawn, is printed as a line of the standard output first.

#include <QPainter>

#include <cstdio>

#include <dlfcn.h>

void QPainter::drawText(const QRect& area, int flags, const QString& text, QRect* bounds)
{
    std::printf("%s\n", text.toUtf8().constData());
    std::fflush(stdout);
    using Original = void (*)(QPainter*, const QRect&, int, const QString&, QRect*);
    static const auto original =
        reinterpret_cast<Original>(dlsym(RTLD_NEXT, "_ZN8QPainter8drawTextERK5QRectiRK7QStringPS0_"));
    original(this, area, flags, text, bounds);
}
