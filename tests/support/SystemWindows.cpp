// SPDX-License-Identifier: MIT
#include "host/utils/LocalZone.h"
#include "tests/support/SmallFiles.h"
#include "tests/support/System.h"

#include <QTimeZone>
#include <private/qcolortrclut_p.h>
#include <private/qguiapplication_p.h>

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

void blendTextsAsElsewhere()
{
    QGuiApplicationPrivate* application = QGuiApplicationPrivate::instance();
    // The first is 2.31 on Windows alone, and elsewhere the same as the second.
    const auto gamma = const_cast<QColorTrcLut*>(application->colorProfileForA8Text());
    *gamma = *application->colorProfileForA32Text();
}

void setTimeZone(const QByteArray& name)
{
    // The C library misreads names of zones, and Qt goes by it: the variable is left out where it may be.
    const QByteArray machine = QTimeZone::ianaIdToWindowsId(QTimeZone::systemTimeZoneId());
    if (name.isEmpty() || QTimeZone::ianaIdToWindowsId(name) == machine)
        qunsetenv("TZ");
    else
        qputenv("TZ", name);
    _tzset();
}

bool isTimeZone(const QByteArray& name)
{
    return QTimeZone(name).isValid();
}

// The C library knows neither names of zones nor times before 1970, and Windows few former rules.
std::optional<std::tm> systemTime(std::int64_t seconds)
{
    return utils::localParts(seconds);
}

} // namespace test
