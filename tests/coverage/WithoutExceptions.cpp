// SPDX-License-Identifier: MIT
/// @file Where Boost ends that would throw, in programs that are compiled without exceptions.

#include <boost/throw_exception.hpp>

#include <cstdlib>

namespace boost {

// Weak, for every library and program has it, and the parts of some as well.
[[gnu::weak]] void throw_exception(const std::exception&)
{
    std::abort();
}

[[gnu::weak]] void throw_exception(const std::exception&, const boost::source_location&)
{
    std::abort();
}

} // namespace boost
