// SPDX-License-Identifier: MIT
#pragma once
/// @file A class whose one object several libraries ask for.

namespace test {

struct SharedByLibraries
{
    int visits = 0;
};

} // namespace test
