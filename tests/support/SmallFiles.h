// SPDX-License-Identifier: MIT
#pragma once
/// @file Files that grow no further than a size, as on a disk that is full.

#include <QtGlobal>

namespace test {

/// For its lifetime no file of this process grows beyond a size: writing on fails. Without effect where the
/// system knows no such limit.
class SmallFiles
{
public:
    explicit SmallFiles(quint64 bytes);
    ~SmallFiles();
    SmallFiles(const SmallFiles&) = delete;
    SmallFiles& operator=(const SmallFiles&) = delete;

private:
    quint64 m_former = 0;
    void (*m_handler)(int) = nullptr;
};

} // namespace test
