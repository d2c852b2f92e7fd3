// SPDX-License-Identifier: MIT
#pragma once
/// @file Seeds of the property tests.

#include <string>
#include <vector>

namespace test {

/// `count` fixed seeds, times INDICATORUI_SEED_FACTOR where that is set (`./dev test --long`), then the ones
/// held in tests/data/seeds/<suite>.txt because they failed once.
std::vector<unsigned> seedsFor(const std::string& suite, unsigned count);

} // namespace test
