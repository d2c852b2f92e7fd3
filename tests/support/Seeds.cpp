// SPDX-License-Identifier: MIT
#include "tests/support/Seeds.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <numeric>

namespace test {

std::vector<unsigned> seedsFor(const std::string& suite, unsigned count)
{
    const char* factor = std::getenv("INDICATORUI_SEED_FACTOR");
    std::vector<unsigned> seeds(std::size_t { count }
                                * std::max(1u, factor ? static_cast<unsigned>(std::atoi(factor)) : 1u));
    std::iota(seeds.begin(), seeds.end(), 1u);
    std::ifstream held(TEST_DATA_DIR "/seeds/" + suite + ".txt");
    for (unsigned seed = 0; held >> seed;)
        seeds.push_back(seed);
    return seeds;
}

} // namespace test
