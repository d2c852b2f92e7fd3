// SPDX-License-Identifier: MIT
#pragma once
/// @file Files that grow no further than a size, as on a disk that is full.

#include <csignal>

#include <sys/resource.h>

namespace test {

/// For its lifetime no file of this process grows beyond a size: writing on fails.
class SmallFiles
{
public:
    explicit SmallFiles(rlim_t bytes)
        : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_former);
        const rlimit limit { bytes, m_former.rlim_max };
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~SmallFiles()
    {
        setrlimit(RLIMIT_FSIZE, &m_former);
        std::signal(SIGXFSZ, m_handler);
    }
    SmallFiles(const SmallFiles&) = delete;
    SmallFiles& operator=(const SmallFiles&) = delete;

private:
    rlimit m_former {};
    void (*m_handler)(int);
};

} // namespace test
