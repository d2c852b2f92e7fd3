#include "tests/support/Seeds.h"

#include <fstream>
#include <numeric>

namespace test {

std::vector<unsigned> seedsFor(const std::string& suite, unsigned count)
{
    std::vector<unsigned> seeds(count);
    std::iota(seeds.begin(), seeds.end(), 1u);
    std::ifstream held(TEST_DATA_DIR "/seeds/" + suite + ".txt");
    for (unsigned seed = 0; held >> seed;)
        seeds.push_back(seed);
    return seeds;
}

} // namespace test
