// SPDX-License-Identifier: MIT
#include "host/embedded/reading/program/Readers.h"

namespace workbook {

namespace {

/// A stream of records without a compound file around it: Excel 2 to 4.
bool isBareStream(const QByteArray& bytes)
{
    return bytes.size() >= 2 && bytes[0] == '\x09'
        && (bytes[1] == '\x00' || bytes[1] == '\x02' || bytes[1] == '\x04');
}

} // namespace

void readAnyKind(const QByteArray& bytes, CellCollector& cells)
{
    if (bytes.startsWith("PK\x03\x04"))
        readXlsx(bytes, cells);
    else if (bytes.startsWith("\xD0\xCF\x11\xE0"))
        readXls(bytes, cells);
    else if (isBareStream(bytes))
        cells.refuse(Outcome::OtherKind);
    else
        readTextSheet(bytes, cells);
}

} // namespace workbook
