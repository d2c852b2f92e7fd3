// SPDX-License-Identifier: MIT
#pragma once
/// @file What tests ask of the system that no two systems do alike, one source a system.

#include <QString>

#include <gtest/gtest.h>

#include <cstdint>
#include <ctime>
#include <optional>

namespace test {

/// Whether the system has pipes and devices among its files, permissions of Unix and processes that fork.
constexpr bool isUnix()
{
#ifdef _WIN32
    return false;
#else
    return true;
#endif
}

bool makePipe(const QString& path);
bool isPipe(const QString& path);
bool isDevice(const QString& path);
/// Permissions as Unix counts them: 0640.
bool setPermissions(const QString& path, unsigned permissions);
unsigned permissionsOf(const QString& path);

/// Lets this process act as a user who owns nothing, where it may do everything. @return whether it cannot do
/// everything now.
bool becomeStranger();
/// Ends what becomeStranger() began.
void becomeOneself();

/// Holds an open file against other programs.
bool lockFile(int file);

/// Lets the edges of glyphs be blended as on other systems, once an application exists: Qt's gamma for texts
/// on Windows is its own.
void blendTextsAsElsewhere();

/// Sets the zone of local times; empty for that of the machine.
void setTimeZone(const QByteArray& name);
/// Whether the system knows a zone of that name.
bool isTimeZone(const QByteArray& name);
/// What the system itself shows as local time, seconds since 1970 UTC; nothing for a time it cannot convert.
std::optional<std::tm> systemTime(std::int64_t seconds);

} // namespace test

/// First line of a test that has no meaning on other systems.
#define ON_UNIX_ALONE(why)                                                                                   \
    if (!test::isUnix())                                                                                     \
    GTEST_SKIP() << why
