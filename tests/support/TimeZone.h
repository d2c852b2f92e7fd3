// SPDX-License-Identifier: MIT
#pragma once
/// @file Another time zone for the length of a test.

#include "tests/support/System.h"

#include <QByteArray>
#include <QtGlobal>

namespace test {

/// Sets the zone of local times and sets the former one again at the end of its life.
class TimeZone
{
public:
    explicit TimeZone(const char* name)
        : m_former(qgetenv("TZ"))
    {
        setTimeZone(name);
    }
    ~TimeZone() { setTimeZone(m_former); }
    TimeZone(const TimeZone&) = delete;
    TimeZone& operator=(const TimeZone&) = delete;

private:
    QByteArray m_former;
};

} // namespace test
