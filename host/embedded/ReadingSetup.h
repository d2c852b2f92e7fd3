#pragma once
/// @file Reading of workbooks by the embedded host.

#include "host/HostExport.h"

namespace TC::embedded {

/// Whether WB::CExcelReader::init succeeds; false behaves like a machine that cannot read workbooks.
INDICATORHOST_EXPORT void setExcelAvailable(bool available);

} // namespace TC::embedded
