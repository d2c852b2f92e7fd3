#pragma once
/// @file Reading of workbooks by the embedded host.

#include "host/HostExport.h"

namespace TC::embedded {

/// Whether WB::CExcelReader::init succeeds; false behaves like a machine that cannot read workbooks.
INDICATORHOST_EXPORT void setExcelAvailable(bool available);

/// How many workbook readers are alive, so that a leak shows.
INDICATORHOST_EXPORT int excelReaderCount();

} // namespace TC::embedded
