// SPDX-License-Identifier: MIT
#pragma once
/// @file Another time zone for the length of a test.

#include <QByteArray>
#include <QtGlobal>

#include <ctime>

namespace test {

/// Sets the zone of local times and sets the former one again at the end of its life.
class TimeZone
{
public:
    explicit TimeZone(const char* name)
        : m_former(qgetenv("TZ"))
    {
        set(name);
    }
    ~TimeZone() { set(m_former); }
    TimeZone(const TimeZone&) = delete;
    TimeZone& operator=(const TimeZone&) = delete;

private:
    static void set(const QByteArray& name)
    {
        qputenv("TZ", name);
        tzset();
    }

    QByteArray m_former;
};

} // namespace test
