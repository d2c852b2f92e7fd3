// SPDX-License-Identifier: MIT
#include "host/embedded/ModuleSetup.h"
#include "host/luawrapper/LuaModuleCtrl.h"

#include <QMap>

namespace {

QMap<QStringList, bool>& rights()
{
    static QMap<QStringList, bool> known;
    return known;
}

} // namespace

bool luawrapper::LuaModuleCtrl::checkModule(const QStringList& path, bool fallback) const
{
    return rights().value(path, fallback);
}

void TC::embedded::setModuleRight(const QStringList& path, bool granted)
{
    rights().insert(path, granted);
}

void TC::embedded::clearModuleRights()
{
    rights().clear();
}
