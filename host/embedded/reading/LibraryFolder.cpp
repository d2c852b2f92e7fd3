// SPDX-License-Identifier: MIT
#include "host/embedded/reading/WorkbookProgram.h"

#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace TC::embedded {

QString libraryFolder()
{
    static const char here = 0; // any address within the library
#ifdef Q_OS_WIN
    HMODULE module = nullptr;
    wchar_t path[MAX_PATH] = {};
    const DWORD byAddress =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    if (!GetModuleHandleExW(byAddress, reinterpret_cast<const wchar_t*>(&here), &module)
        || GetModuleFileNameW(module, path, MAX_PATH) == 0)
        return QString();
    return QFileInfo(QString::fromWCharArray(path)).absolutePath();
#else
    Dl_info info = {};
    if (dladdr(&here, &info) == 0 || !info.dli_fname)
        return QString();
    return QFileInfo(QFile::decodeName(info.dli_fname)).absolutePath();
#endif
}

} // namespace TC::embedded
