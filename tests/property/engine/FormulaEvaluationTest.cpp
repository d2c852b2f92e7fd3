// SPDX-License-Identifier: MIT
/// @file Random formulas that follow bars as they come, against computations from the beginning: the records
/// agree bit for bit.

#include "engine/Formulas.h"
#include "engine/evaluation/FormulaEvaluation.h"
#include "engine/language/FunctionTable.h"
#include "tests/support/Seeds.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

namespace {

using engine::BarSeries;
using engine::FormulaEvaluation;
using engine::FormulaRecords;
using engine::language::Function;
using Mode = FormulaEvaluation::Mode;
using Series = std::vector<double>;

constexpr Series BarSeries::*kColumns[] = {
    &BarSeries::open,   &BarSeries::high,   &BarSeries::low,          &BarSeries::close,
    &BarSeries::volume, &BarSeries::amount, &BarSeries::openInterest,
};

class Dice
{
public:
    explicit Dice(unsigned seed)
        : m_random(seed)
    {
    }

    int upTo(int last) { return std::uniform_int_distribution<int>(0, last)(m_random); }
    bool chance(double likely) { return std::bernoulli_distribution(likely)(m_random); }
    double around(double middle) { return std::normal_distribution<double>(middle, 3.0)(m_random); }

    template <class Choices>
    const auto& oneOf(const Choices& choices)
    {
        return choices[static_cast<std::size_t>(upTo(static_cast<int>(std::size(choices)) - 1))];
    }

private:
    std::mt19937 m_random;
};

/// Writes formulas of all functions, drawings and attributes.
class FormulaWriter
{
public:
    /// @param mayLookAhead  one that does is computed over all bars at once.
    explicit FormulaWriter(Dice& dice, bool mayLookAhead = true)
        : m_dice(dice)
        , m_mayLookAhead(mayLookAhead)
    {
        for (const Function& function : engine::language::allFunctions()) {
            if (function.isBuilt)
                continue; // their colours and counts are written as numbers
            if (!mayLookAhead && (function.looksAheadEndlessly || function.lookAheadArgument))
                continue;
            if (function.drawing)
                m_drawings.push_back(&function);
            else if (!function.isOperator)
                m_functions.push_back(&function);
        }
    }

    std::string text()
    {
        std::string text = "PARAM N(5,0,60),M(1.5,0,10);\n";
        const int statements = 2 + m_dice.upTo(6);
        for (int statement = 0; statement < statements; ++statement) {
            const std::string name = "S" + std::to_string(statement);
            if (m_dice.chance(0.3)) {
                text += drawing(*m_dice.oneOf(m_drawings)) + ";\n";
                continue;
            }
            const bool isHidden = m_dice.chance(0.5);
            text += name + (isHidden ? ":=" : ":") + expression(3) + (isHidden ? "" : attributes()) + ";\n";
            m_names.push_back(name);
        }
        text += "LAST:" + expression(2);
        return text + (m_mayLookAhead ? "+REFX(ISLASTBAR," + std::to_string(m_dice.upTo(4)) + ");\n" : ";\n");
    }

private:
    std::string number()
    {
        return std::to_string(m_dice.chance(0.7) ? m_dice.upTo(25) : m_dice.upTo(99) / 7.0);
    }

    std::string constant()
    {
        const char* const parameters[] = { "N", "M", "N+2", "N*M" };
        return m_dice.chance(0.5) ? number() : m_dice.oneOf(parameters);
    }

    std::string expression(int depth)
    {
        const char* const operators[] = { "+",  "-",  "*",     "/",    ">",    "<",    ">=",
                                          "<=", "<>", " AND ", " OR ", " && ", " || ", "=" };
        if (depth == 0 || m_dice.chance(0.15))
            return leaf();
        if (m_dice.chance(0.25))
            return "(" + expression(depth - 1) + m_dice.oneOf(operators) + expression(depth - 1) + ")";
        if (m_dice.chance(0.1))
            return (m_dice.chance(0.5) ? "(-" : "NOT(") + expression(depth - 1) + ")";
        return call(*m_dice.oneOf(m_functions), depth - 1);
    }

    std::string leaf()
    {
        const char* const prices[] = { "OPEN", "HIGH", "LOW", "CLOSE", "VOL", "ISLASTBAR", "BARPOS", "TR" };
        if (!m_names.empty() && m_dice.chance(0.4))
            return m_dice.oneOf(m_names);
        return m_dice.chance(0.8) ? m_dice.oneOf(prices) : constant();
    }

    std::string call(const Function& function, int depth)
    {
        std::string text = function.name;
        for (std::size_t index = 0; index < std::strlen(function.signature); ++index) {
            text += index == 0 ? "(" : ",";
            const bool isPeriod = index == 1 && std::strcmp(function.argumentNames, "A,B") != 0;
            if (function.signature[index] == 't')
                text += m_dice.chance(0.5) ? "'买'" : "'B'";
            else if (function.signature[index] == 'c' || (isPeriod && m_dice.chance(0.7)))
                text += constant();
            else
                text += expression(depth);
        }
        return text + (function.signature[0] != '\0' ? ")" : "");
    }

    std::string drawing(const Function& function)
    {
        // columns stacked upon one another must be the last output
        return function.drawing == se::DrawType::StackedVolume ? "VERTLINE(" + expression(2) + ")"
                                                               : call(function, 2);
    }

    std::string attributes()
    {
        const char* const written[] = { "",           ",COLORSTICK",     ",VOLSTICK",       ",SEGMENT",
                                        ",CIRCLEDOT", ",NODRAW",         ",NODRAW,PRECIS2", ",BOOLLINE",
                                        ",NOTEXT",    ",PRECIS0,DOTLINE" };
        return m_dice.oneOf(written);
    }

    Dice& m_dice;
    const bool m_mayLookAhead;
    std::vector<const Function*> m_functions, m_drawings;
    std::vector<std::string> m_names;
};

double priceOf(Dice& dice)
{
    const double wild[] = { std::numeric_limits<double>::quiet_NaN(),
                            std::numeric_limits<double>::max(),
                            std::numeric_limits<double>::infinity(),
                            0.0,
                            -0.0,
                            1e300 };
    return dice.chance(0.06) ? dice.oneOf(wild) : dice.around(20.0);
}

void append(BarSeries& bars, Dice& dice)
{
    const std::int64_t before = bars.timeMs.empty() ? 1'500'000'000'000 : bars.timeMs.back();
    bars.timeMs.push_back(before + 60'000 * static_cast<std::int64_t>(1 + dice.upTo(600)));
    for (const auto column : kColumns)
        (bars.*column).push_back(priceOf(dice));
}

void replaceLast(BarSeries& bars, Dice& dice)
{
    for (const auto column : kColumns) {
        if (!(bars.*column).empty())
            (bars.*column).back() = priceOf(dice);
    }
}

void dropLast(BarSeries& bars)
{
    bars.timeMs.pop_back();
    for (const auto column : kColumns)
        (bars.*column).pop_back();
}

bool isSameBits(const Series& a, const Series& b)
{
    return a.size() == b.size()
        && (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(double)) == 0);
}

/// What differs between two computations; empty when nothing does.
std::string differenceOf(const FormulaRecords& a, const FormulaRecords& b)
{
    if (a.meta.outputNames != b.meta.outputNames || a.meta.outputColumns != b.meta.outputColumns
        || a.meta.drawType != b.meta.drawType || a.meta.color != b.meta.color
        || a.meta.position != b.meta.position || a.meta.valueKind != b.meta.valueKind
        || a.meta.lineWidth != b.meta.lineWidth || a.meta.lineStyle != b.meta.lineStyle)
        return "descriptions";
    if (a.result.barValid != b.result.barValid || a.result.barTimes.size() != b.result.barTimes.size())
        return "bars";
    for (std::size_t bar = 0; bar < a.result.barTimes.size(); ++bar) {
        if (a.result.barTimes[bar].msecs != b.result.barTimes[bar].msecs)
            return "times";
    }
    if (a.result.columnSeries != b.result.columnSeries || a.result.columnType != b.result.columnType
        || a.result.numberSeries.size() != b.result.numberSeries.size())
        return "columns";
    for (std::size_t series = 0; series < a.result.numberSeries.size(); ++series) {
        if (!isSameBits(a.result.numberSeries[series], b.result.numberSeries[series]))
            return "series " + std::to_string(series);
    }
    return a.result.textSeries == b.result.textSeries ? "" : "texts";
}

std::shared_ptr<const engine::Formula> formulaOf(const std::string& text)
{
    const engine::FormulaReading reading = engine::readFormula(text);
    for (const engine::Problem& problem : reading.problems)
        ADD_FAILURE() << text << problem.place.line << ":" << problem.place.column << " " << problem.english;
    return reading.formula;
}

FormulaRecords freshRecords(const std::shared_ptr<const engine::Formula>& formula, const BarSeries& bars,
                            Mode mode)
{
    FormulaEvaluation evaluation(formula, { 5.0, 1.5 }, mode);
    EXPECT_TRUE(evaluation.update(bars));
    return evaluation.take();
}

/// What may happen to bars between two looks at them.
void change(BarSeries& bars, Dice& dice)
{
    const int kind = dice.upTo(9);
    if (kind < 4)
        append(bars, dice);
    else if (kind < 8)
        replaceLast(bars, dice);
    else if (kind == 8)
        for (int more = dice.upTo(40); more >= 0; --more)
            append(bars, dice);
    if (dice.chance(0.3))
        append(bars, dice); // the last one has changed and another has followed
    if (dice.chance(0.03) && bars.size() > 3)
        dropLast(bars);
}

TEST(FormulaEvaluation, FollowsBarsAsIfItComputedThemFromTheBeginning)
{
    for (const unsigned seed : test::seedsFor("FormulaEvaluation", 400)) {
        Dice dice(seed);
        const std::string text = FormulaWriter(dice, dice.chance(0.5)).text();
        const auto formula = formulaOf(text);
        ASSERT_TRUE(formula) << "seed " << seed;
        FormulaEvaluation evaluation(formula, { 5.0, 1.5 });
        BarSeries bars;
        for (int round = 0; round < 25; ++round) {
            ASSERT_TRUE(evaluation.update(bars));
            const FormulaRecords fresh = freshRecords(formula, bars, Mode::Follow);
            ASSERT_EQ(differenceOf(evaluation.records(), fresh), "")
                << "seed " << seed << ", round " << round << ", " << bars.size() << " bars\n"
                << text;
            change(bars, dice);
        }
    }
}

TEST(FormulaEvaluation, FollowsALongWindowOfBlocksInOrder)
{
    constexpr std::size_t length = 80; // longer than a block
    const auto formula = formulaOf("X:AVEDEV(C," + std::to_string(length) + "),NODRAW;");
    for (const unsigned seed : test::seedsFor("FormulaEvaluationLong", 20)) {
        Dice dice(seed);
        FormulaEvaluation evaluation(formula);
        BarSeries bars;
        for (int round = 0; round < 300; ++round) {
            append(bars, dice);
            bars.close.back() =
                dice.chance(0.002) ? std::numeric_limits<double>::quiet_NaN() : dice.upTo(40) / 3.0;
            ASSERT_TRUE(evaluation.update(bars));
            bars.close.back() += 1.0; // the last bar changes
            ASSERT_TRUE(evaluation.update(bars));
        }
        ASSERT_EQ(differenceOf(evaluation.records(), freshRecords(formula, bars, Mode::Follow)), "");
        const Series& values = evaluation.records().result.numberSeries.at(0);
        int compared = 0;
        for (std::size_t bar = length - 1; bar < bars.size(); ++bar) {
            long double mean = 0, distances = 0;
            for (std::size_t back = 0; back < length; ++back)
                mean += static_cast<long double>(bars.close[bar - back]) / length;
            for (std::size_t back = 0; back < length; ++back)
                distances += std::abs(bars.close[bar - back] - mean) / length;
            ASSERT_EQ(std::isnan(values[bar]), std::isnan(mean)) << bar;
            compared += !std::isnan(mean);
            ASSERT_TRUE(std::isnan(mean) || std::abs(values[bar] - distances) < 1e-12L) << bar;
        }
        EXPECT_GT(compared, 0);
    }
}

TEST(FormulaEvaluation, AnswersOnceAsItFollows)
{
    for (const unsigned seed : test::seedsFor("FormulaEvaluationOnce", 300)) {
        Dice dice(seed);
        const std::string text = FormulaWriter(dice, dice.chance(0.5)).text();
        const auto formula = formulaOf(text);
        ASSERT_TRUE(formula) << "seed " << seed;
        BarSeries bars;
        for (int bar = dice.upTo(80); bar >= 0; --bar)
            append(bars, dice);
        ASSERT_EQ(
            differenceOf(freshRecords(formula, bars, Mode::Once), freshRecords(formula, bars, Mode::Follow)),
            "")
            << "seed " << seed << "\n"
            << text;
    }
}

/// The bars [first, end) of records.
FormulaRecords stretchOf(FormulaRecords records, std::size_t first, std::size_t end)
{
    const auto cut = [&](auto& values) {
        values.erase(values.begin() + static_cast<std::ptrdiff_t>(end), values.end());
        values.erase(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(first));
    };
    cut(records.result.barTimes);
    cut(records.result.barValid);
    for (Series& series : records.result.numberSeries)
        cut(series);
    for (std::vector<std::string>& texts : records.result.textSeries)
        cut(texts);
    return records;
}

TEST(FormulaEvaluation, AdvancesByStretchesAsItAnswersAtOnce)
{
    for (const unsigned seed : test::seedsFor("FormulaEvaluationStretches", 300)) {
        Dice dice(seed);
        const std::string text = FormulaWriter(dice, dice.chance(0.5)).text();
        const auto formula = formulaOf(text);
        ASSERT_TRUE(formula) << "seed " << seed;
        BarSeries bars;
        const bool isLong = seed % 8 == 0; // longer than what is computed at a time
        for (int bar = isLong ? 3000 + dice.upTo(500) : dice.upTo(80); bar >= 0; --bar)
            append(bars, dice);
        const FormulaRecords whole = freshRecords(formula, bars, Mode::Follow);
        FormulaEvaluation evaluation(formula, { 5.0, 1.5 }, Mode::Once);
        for (std::size_t done = 0; done < bars.size();) {
            const auto some = [&] { return static_cast<std::size_t>(dice.upTo(isLong ? 1500 : 20)); };
            const std::size_t first = std::min(done + (dice.chance(0.3) ? some() : 0), bars.size());
            const std::size_t end = std::min(first + some(), bars.size());
            ASSERT_TRUE(evaluation.advance(bars, first, end));
            ASSERT_EQ(differenceOf(evaluation.records(), stretchOf(whole, first, end)), "")
                << "seed " << seed << ", bars " << first << " to " << end << " of " << bars.size() << "\n"
                << text;
            done = std::max(end, done + 1);
        }
    }
}

TEST(FormulaEvaluation, DoesNotAdvanceBackwardsBeyondTheBarsOrWhereItFollows)
{
    const auto formula = formulaOf("X:C;");
    Dice dice(1);
    BarSeries bars;
    for (int bar = 0; bar < 3; ++bar)
        append(bars, dice);
    FormulaEvaluation once(formula, {}, Mode::Once);
    EXPECT_FALSE(once.advance(bars, 0, 4));
    EXPECT_FALSE(once.advance(bars, 2, 1));
    EXPECT_TRUE(once.advance(bars, 1, 2));
    EXPECT_FALSE(once.advance(bars, 1, 3));
    EXPECT_FALSE(FormulaEvaluation(formula).advance(bars, 0, 3));
}

TEST(FormulaEvaluation, BeginsAgainAfterItWasCancelled)
{
    for (const unsigned seed : test::seedsFor("FormulaEvaluationCancelled", 100)) {
        Dice dice(seed);
        const std::string text = FormulaWriter(dice, dice.chance(0.5)).text();
        const auto formula = formulaOf(text);
        ASSERT_TRUE(formula) << "seed " << seed;
        FormulaEvaluation evaluation(formula, { 5.0, 1.5 });
        BarSeries bars;
        for (int round = 0; round < 10; ++round) {
            change(bars, dice);
            const std::atomic<bool> cancelled { dice.chance(0.4) };
            ASSERT_EQ(evaluation.update(bars, &cancelled), !cancelled);
            if (!cancelled) {
                ASSERT_EQ(differenceOf(evaluation.records(), freshRecords(formula, bars, Mode::Follow)), "")
                    << "seed " << seed << ", round " << round << "\n"
                    << text;
            }
        }
    }
}

} // namespace
