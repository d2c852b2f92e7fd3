// SPDX-License-Identifier: MIT
/// @file Any bytes are a formula or a list of faults.

#include "tests/support/EngineBars.h"
#include "tests/support/Seeds.h"

namespace {

/// Words and signs in any order, and bytes of any kind now and then.
std::string wildText(std::mt19937& random)
{
    static const char* const pieces[] = {
        "MA(",  "C",      ",",      "5",    ")",  ";",      ":",   ":=",    "A",         "+",
        "-",    "(",      "'x'",    "REF(", "N",  "PARAM ", "AND", "NOT",   "DRAWTEXT(", "NODRAW",
        "#",    "{",      "}",      "//",   "\n", "甲",     "；",  "1e300", "0",         "STACKVOL(",
        "MAIN", ">",      "=",      "SUM(", "V",  "HHV(",   "IF(", "REFX(", "BARSLAST(", "SAR(10,2,20)",
        "STD(", "SLOPE(", "ALIGN3", "-1",
    };
    std::string text;
    const auto length = random() % 60;
    for (std::size_t piece = 0; piece < length; ++piece) {
        if (random() % 40 == 0)
            text += static_cast<char>(random());
        else
            text += pieces[random() % std::size(pieces)];
    }
    return text;
}

TEST(FormulaText, IsReadOrRefusedWhateverItsBytes)
{
    const auto bars = test::randomBars(7, 40);
    int read = 0;
    for (const unsigned seed : test::seedsFor("formula_text", 20'000)) {
        std::mt19937 random(seed);
        const std::string text = wildText(random);
        const engine::FormulaReading reading = engine::readFormula(text);
        EXPECT_EQ(reading.problems.empty(), reading.formula != nullptr) << text;
        for (const engine::Problem& problem : reading.problems) {
            EXPECT_GE(problem.place.line, 1);
            EXPECT_GE(problem.place.column, 1);
            EXPECT_LE(problem.place.offset, text.size());
        }
        if (reading.formula) {
            EXPECT_TRUE(engine::computeFormula(reading.formula, bars)) << text;
            ++read;
        }
    }
    EXPECT_GT(read, 10);
}

} // namespace
