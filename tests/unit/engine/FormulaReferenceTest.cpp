// SPDX-License-Identifier: MIT
/// @file The reference of the formula language keeps to the language: its formulas are read and computed, and
/// it leaves out no word.

#include "engine/Formulas.h"
#include "engine/files/BarFile.h"
#include "engine/evaluation/FormulaEvaluation.h"

#include <gtest/gtest.h>

#include <cctype>
#include <fstream>
#include <set>
#include <sstream>

namespace {

std::string pageOf(const std::string& name)
{
    std::ifstream file(DOCS_DIR "/" + name, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    EXPECT_FALSE(text.str().empty());
    return text.str();
}

std::string reference()
{
    return pageOf("formulas.md");
}

/// What stands in the blocks marked as formulas, and beside the pictures.
std::vector<std::string> formulasOf(const std::string& page)
{
    const std::string begin = "\n```formula\n", end = "```\n";
    std::vector<std::string> formulas;
    for (std::size_t at = page.find(begin); at != std::string::npos; at = page.find(begin, at)) {
        at += begin.size();
        formulas.push_back(page.substr(at, page.find(end, at) - at));
    }
    const std::string before = "\n| `", behind = ";` | ![";
    for (std::size_t at = page.find(behind); at != std::string::npos; at = page.find(behind, at + 1)) {
        const std::size_t start = page.rfind(before, at) + before.size();
        formulas.push_back(page.substr(start, at + 1 - start));
    }
    return formulas;
}

/// The words of Latin letters, digits and underscores, apart from those that are part of a longer one.
std::set<std::string> wordsOf(const std::string& text)
{
    std::set<std::string> words;
    std::string word;
    for (const char character : text + " ") {
        if (std::isalnum(static_cast<unsigned char>(character)) || character == '_') {
            word += character;
            continue;
        }
        words.insert(word);
        word.clear();
    }
    return words;
}

TEST(FormulaReference, ShowsOnlyFormulasThatAreReadAndComputed)
{
    std::string failure;
    const auto bars = engine::readBars(SAMPLES_DIR "/bars/SFCU00.csv", failure);
    ASSERT_TRUE(bars) << failure;
    const std::vector<std::string> formulas = formulasOf(reference());
    EXPECT_GT(formulas.size(), 45U);
    for (const std::string& text : formulas) {
        const engine::FormulaReading reading = engine::readFormula(text);
        for (const engine::Problem& problem : reading.problems)
            ADD_FAILURE() << text << problem.place.line << ":" << problem.place.column << " "
                          << problem.english;
        if (!reading.formula)
            continue;
        engine::FormulaEvaluation evaluation(reading.formula);
        ASSERT_TRUE(evaluation.update(*bars)) << text;
        EXPECT_EQ(evaluation.records().result.barTimes.size(), bars->size()) << text;
        EXPECT_GT(evaluation.records().meta.outputCount, 0) << text;
    }
}

TEST(FormulaReference, NamesEveryWordOfTheLanguage)
{
    const std::set<std::string> words = wordsOf(reference());
    for (const engine::KnownWord& word : engine::knownWords())
        EXPECT_EQ(words.count(word.name), 1U) << word.name;
}

TEST(FormulaReference, UsesEveryFunctionAndDrawingInAFormula)
{
    std::string all;
    for (const std::string& formula : formulasOf(reference()))
        all += formula;
    const std::set<std::string> words = wordsOf(all);
    for (const engine::KnownWord& word : engine::knownWords()) {
        using Kind = engine::KnownWord::Kind;
        if (word.kind == Kind::Function || word.kind == Kind::Drawing) {
            EXPECT_EQ(words.count(word.name), 1U) << word.name;
        }
    }
}

TEST(FormulaReference, ListsTheWordsOfOthersThatAreRefusedForTheirReason)
{
    std::istringstream lines(pageOf("formula-words.md"));
    int words = 0;
    for (std::string line; std::getline(lines, line);) {
        const std::size_t reason = line.rfind(" | ");
        for (std::size_t at = line.find('`'); line.compare(0, 3, "| `") == 0 && at != std::string::npos;) {
            const std::size_t end = line.find('`', at + 1);
            const std::string word = line.substr(at + 1, end - at - 1);
            ++words;
            for (const std::string& use : { word, word + "(C,5)" }) {
                const std::vector<engine::Problem> problems = engine::readFormula("X:" + use + ";").problems;
                ASSERT_EQ(problems.size(), 1U) << word;
                EXPECT_EQ("| " + problems[0].english + " |", line.substr(reason + 1)) << word;
            }
            at = line.find('`', end + 1);
        }
    }
    EXPECT_GT(words, 80);
}

TEST(FormulaReference, TellsTheFaultsThatAreReported)
{
    std::istringstream lines(reference().substr(reference().find("\n## Faults")));
    int faults = 0;
    for (std::string line; std::getline(lines, line);) {
        const std::size_t end = line.find("` "), message = line.rfind(" | ");
        if (line.compare(0, 3, "| `") != 0)
            continue;
        ++faults;
        const std::string text = line.substr(3, end - 3);
        const std::string told = line.substr(message + 3, line.rfind(" |") - message - 3);
        const std::vector<engine::Problem> problems = engine::readFormula(text).problems;
        ASSERT_FALSE(problems.empty()) << text;
        EXPECT_NE(problems.front().english.find(told), std::string::npos)
            << text << ": " << problems.front().english;
    }
    EXPECT_GT(faults, 5);
}

} // namespace
