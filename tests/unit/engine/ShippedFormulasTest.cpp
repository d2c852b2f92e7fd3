// SPDX-License-Identifier: MIT
#include "engine/Formulas.h"

#include "tests/support/EngineBars.h"
#include "tests/support/RecordDigest.h"

#include <fstream>
#include <sstream>

namespace {

struct KnownResult
{
    std::string formula, bars, parameters, digest;
};

/// Results of the plain C++ that computed these formulas before they were texts.
std::vector<KnownResult> knownResults()
{
    std::ifstream file(TEST_DATA_DIR "/formulas/results.txt");
    std::vector<KnownResult> results;
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line[0] == '#')
            continue;
        KnownResult result;
        std::istringstream(line) >> result.formula >> result.bars >> result.parameters >> result.digest;
        results.push_back(result);
    }
    return results;
}

std::vector<double> numbersOf(const std::string& text)
{
    std::vector<double> numbers;
    std::istringstream stream(text == "-" ? "" : text);
    for (std::string number; std::getline(stream, number, ',');)
        numbers.push_back(std::stod(number));
    return numbers;
}

TEST(ShippedFormulas, GiveBitForBitWhatThePlainFunctionsGaveOnEveryBundledFile)
{
    const std::vector<KnownResult> results = knownResults();
    ASSERT_EQ(results.size(), 95U);
    for (const KnownResult& known : results) {
        const auto records =
            test::computed(known.formula, test::sampleBars(known.bars), numbersOf(known.parameters));
        EXPECT_EQ(test::digestOf(records), known.digest)
            << known.formula << " " << known.bars << " " << known.parameters;
    }
}

} // namespace
