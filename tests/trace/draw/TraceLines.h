// SPDX-License-Identifier: MIT
#pragma once
/// @file Expected traces, written as plain literals.

#include <QStringList>

#include <initializer_list>

namespace test {

/// The lines of a trace, as traceOf gives them.
inline QStringList lines(std::initializer_list<const char*> texts)
{
    QStringList list;
    for (const char* text : texts)
        list << QString::fromUtf8(text);
    return list;
}

} // namespace test
