// SPDX-License-Identifier: MIT
#include "tests/support/SmallFiles.h"
#include "tests/support/System.h"

#include <ctime>

namespace test {

bool makePipe(const QString&)
{
    return false;
}

bool isPipe(const QString&)
{
    return false;
}

bool isDevice(const QString&)
{
    return false;
}

bool setPermissions(const QString&, unsigned)
{
    return false;
}

unsigned permissionsOf(const QString&)
{
    return 0;
}

bool becomeStranger()
{
    return false;
}

void becomeOneself() { }

bool lockFile(int)
{
    return false;
}

SmallFiles::SmallFiles(quint64) { }
SmallFiles::~SmallFiles() = default;

void setTimeZone(const QByteArray& name)
{
    // The C library reads three letters and the hours by which the zone is behind.
    qputenv("TZ", name == "Asia/Shanghai" ? "CST-8" : name == "UTC" ? "UTC0" : name);
    _tzset();
}

} // namespace test
