// SPDX-License-Identifier: MIT
/// @file Damaged formulas and heaps of words: reading gives a formula that computes, or problems that point
/// into the text.

#include "engine/evaluation/FormulaEvaluation.h"
#include "engine/Formulas.h"
#include "tests/support/Seeds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {

using engine::Problem;

std::vector<std::string> vocabulary()
{
    std::vector<std::string> words { ";",    ":",  ":=",   "(",        ")",    ",",         "#",    "+",
                                     "-",    "*",  "/",    ">",        "<=",   "=",         "<>",   "!",
                                     "&&",   "||", "'买'", "'",        "{",    "}",         "//",   "\n",
                                     "；",   "（", "5",    "0.5",      "1e-3", "1e999",     "..",   "A",
                                     "收盘", "_",  "\xff", "\xe4\xb8", "@@",   "COLOR12AB", "NOT(", "A:C;" };
    for (const engine::KnownWord& word : engine::knownWords()) {
        words.push_back(word.name);
        if (!word.arguments.empty())
            words.push_back(word.name + "(CLOSE,2)");
    }
    return words;
}

std::size_t below(std::mt19937& random, std::size_t count)
{
    return std::uniform_int_distribution<std::size_t>(0, count - 1)(random);
}

std::string heapOfWords(std::mt19937& random)
{
    static const std::vector<std::string> words = vocabulary();
    std::string text;
    for (std::size_t count = 1 + below(random, 40); count > 0; --count)
        text += words[below(random, words.size())] + (below(random, 3) == 0 ? " " : "");
    return text;
}

/// The text of a built-in formula with some bytes replaced, doubled, or taken out.
std::string damagedFormula(std::mt19937& random)
{
    static const std::vector<std::string> words = vocabulary();
    std::string text = engine::builtInFormulas()[below(random, engine::builtInFormulas().size())].source;
    for (std::size_t damages = 1 + below(random, 4); damages > 0 && !text.empty(); --damages) {
        const std::size_t at = below(random, text.size());
        switch (below(random, 4)) {
        case 0: text[at] = static_cast<char>(below(random, 256)); break;
        case 1: text.erase(at, 1 + below(random, 6)); break;
        case 2: text.insert(at, text.substr(below(random, text.size()), below(random, 30))); break;
        default: text.insert(at, words[below(random, words.size())]); break;
        }
    }
    return text;
}

/// Whether line and column tell the same place as the offset.
bool pointsInto(const std::string& text, const Problem& problem)
{
    if (problem.place.offset > text.size() || problem.place.length < 0 || problem.place.column < 1)
        return false;
    const std::string before = text.substr(0, problem.place.offset);
    return problem.place.line == 1 + static_cast<int>(std::count(before.begin(), before.end(), '\n'));
}

void expectSound(const std::string& text, const engine::BarSeries& bars, unsigned seed)
{
    const engine::FormulaReading reading = engine::readFormula(text);
    ASSERT_EQ(reading.formula == nullptr, !reading.problems.empty()) << "seed " << seed << "\n" << text;
    for (const Problem& problem : reading.problems) {
        EXPECT_TRUE(pointsInto(text, problem)) << "seed " << seed << "\n" << text;
        EXPECT_FALSE(problem.chinese.empty() || problem.english.empty()) << "seed " << seed << "\n" << text;
    }
    if (!reading.formula)
        return;
    const auto records = engine::computeFormula(reading.formula, bars);
    ASSERT_TRUE(records) << "seed " << seed << "\n" << text;
    for (const auto& series : records->result.numberSeries)
        ASSERT_EQ(series.size(), bars.size()) << "seed " << seed << "\n" << text;
}

engine::BarSeries fewBars()
{
    engine::BarSeries bars;
    for (int bar = 0; bar < 12; ++bar) {
        bars.timeMs.push_back(1'700'000'000'000 + bar * 86'400'000LL);
        for (auto* column : { &bars.open, &bars.high, &bars.low, &bars.close, &bars.volume })
            column->push_back(100.0 + bar % 5);
    }
    return bars;
}

TEST(FormulaReading, TakesAnyHeapOfWords)
{
    const engine::BarSeries bars = fewBars();
    for (const unsigned seed : test::seedsFor("FormulaReadingHeaps", 3000)) {
        std::mt19937 random(seed);
        expectSound(heapOfWords(random), bars, seed);
        if (HasFailure())
            return;
    }
}

TEST(FormulaReading, TakesAnyDamagedFormula)
{
    const engine::BarSeries bars = fewBars();
    for (const unsigned seed : test::seedsFor("FormulaReadingDamaged", 3000)) {
        std::mt19937 random(seed);
        expectSound(damagedFormula(random), bars, seed);
        if (HasFailure())
            return;
    }
}

} // namespace
