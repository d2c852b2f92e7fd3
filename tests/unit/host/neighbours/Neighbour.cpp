// SPDX-License-Identifier: MIT
/// @file A library that asks for an object of the process and shares no symbol with any other library, as on
/// platforms where each library has its own copies of what templates make.

#include "host/utils/CSingletonT.h"
#include "tests/unit/host/neighbours/Shared.h"

extern "C" __attribute__((visibility("default"))) void* askedObject()
{
    auto* object = utils::CSingletonT<test::SharedByLibraries>::instance();
    ++object->visits;
    return object;
}
