// SPDX-License-Identifier: MIT
#include "host/embedded/reading/ProgramLimits.h"
#include "host/embedded/reading/program/ProcessLimits.h"

#include <windows.h>

#include <fcntl.h>
#include <io.h>

#include <thread>

namespace workbook {

namespace {

/// Ends this process with its parent, or when its time is over.
void watch(HANDLE parent)
{
    WaitForSingleObject(parent, TC::embedded::kProgramSeconds * 1'000);
    TerminateProcess(GetCurrentProcess(), 1);
}

} // namespace

bool limitThisProcess(qint64 parent)
{
    const HANDLE parentProcess = OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(parent));
    if (!parentProcess)
        return false;
    std::thread(watch, parentProcess).detach();
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX); // no window when it crashes

    // The handle stays open for the life of this process, and the job with it.
    if (const HANDLE job = CreateJobObjectW(nullptr, nullptr)) {
        JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
        limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_PROCESS_MEMORY;
        limits.ProcessMemoryLimit = static_cast<SIZE_T>(TC::embedded::kProgramMemory);
        SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
        AssignProcessToJobObject(job, GetCurrentProcess());
    }
    return true;
}

void useBinaryStreams()
{
    _setmode(0, _O_BINARY);
    _setmode(1, _O_BINARY);
}

} // namespace workbook
