// SPDX-License-Identifier: MIT
/// @file The data holder and the export on records in which something is wrong.

#include "host/embedded/EmbeddedHost.h"
#include "tests/support/DamagedFormula.h"
#include "tests/support/Pane.h"
#include "tests/support/Seeds.h"

#include <gtest/gtest.h>

#include <climits>
#include <iomanip>
#include <locale>
#include <optional>
#include <sstream>
#include <tuple>

using Cache = TC::RPCFormulaResultCache;

namespace {

template <class Value>
bool has(const std::vector<Value>& values, int index)
{
    return index >= 0 && static_cast<std::size_t>(index) < values.size();
}

template <class Value>
const Value& at(const std::vector<Value>& values, int index)
{
    return values[static_cast<std::size_t>(index)];
}

/// A cell by the plainest means: each index tested in turn, a stream for the number.
std::string plainCell(const Cache& cache, int output, int bar)
{
    const auto& [columnSeries, columnType] = std::tie(cache.result.columnSeries, cache.result.columnType);
    if (!has(cache.meta.outputColumns, output) || at(cache.meta.outputColumns, output).empty())
        return {};
    const int column = at(cache.meta.outputColumns, output)[0];
    if (!has(columnSeries, column) || !has(columnType, column))
        return {};
    const int series = at(columnSeries, column), type = at(columnType, column);
    if (type == 3)
        return has(cache.result.textSeries, series) && has(at(cache.result.textSeries, series), bar)
            ? "," + at(at(cache.result.textSeries, series), bar)
            : std::string();
    if (type < 0 || type > 2 || !has(cache.result.numberSeries, series)
        || !has(at(cache.result.numberSeries, series), bar))
        return {};
    std::ostringstream out;
    out.imbue(std::locale::classic());
    if (type == 0)
        out << std::fixed << std::setprecision(4);
    out << ',' << at(at(cache.result.numberSeries, series), bar);
    return out.str();
}

std::vector<int> exportedOutputs(const se::RPCFormulaMetaResult& meta)
{
    std::vector<int> outputs;
    for (int output = 0; output < meta.outputCount && has(meta.outputColumns, output); ++output) {
        if (at(meta.outputColumns, output).size() == 1)
            outputs.push_back(output);
    }
    return outputs;
}

std::string plainHeader(const se::RPCFormulaMetaResult& meta)
{
    std::string text;
    for (const int output : exportedOutputs(meta))
        text += "," + (has(meta.outputNames, output) ? at(meta.outputNames, output) : std::string());
    return text;
}

std::string plainRow(const Cache& cache, int bar)
{
    std::string text;
    for (const int output : exportedOutputs(cache.meta))
        text += plainCell(cache, output, bar);
    return text;
}

/// The text of one formula, written down from its layout.
std::string plainText(test::Pane& pane, Cache& cache)
{
    std::string text = "时间" + plainHeader(cache.meta) + "\n";
    for (int bar = 0; has(cache.result.barTimes, bar); ++bar) {
        if (has(cache.result.barValid, bar) && at(cache.result.barValid, bar) != 0)
            text += pane.getTimeSlide(bar, cache.result, true) + plainRow(cache, bar) + "\n";
    }
    return text;
}

/// The text of two formulas side by side.
std::string plainText(test::Pane& pane, Cache& master, const Cache& other)
{
    std::string text = "时间" + plainHeader(master.meta) + plainHeader(other.meta) + "\n";
    if (master.result.barValid.empty() || master.result.barValid[0] == 0)
        return text;
    int position = 0;
    for (int bar = 0; has(master.result.barTimes, bar); ++bar) {
        text += pane.getTimeSlide(bar, master.result, true) + plainRow(master, bar);
        if (has(other.result.barTimes, position)
            && at(other.result.barTimes, position).msecs == at(master.result.barTimes, bar).msecs)
            text += plainRow(other, position++);
        text += "\n";
    }
    return text;
}

/// The figure of a formula whose outputs are all named as one.
std::optional<double> plainFigure(const Cache& cache)
{
    static const QVector<int> skipped { 12, 13, 19, 26, 28, 31, 34, 36 };
    const se::RPCFormulaResult& result = cache.result;
    const int last = static_cast<int>(result.barTimes.size()) - 1;
    std::optional<double> figure;
    if (!has(result.barValid, last) || at(result.barValid, last) == 0)
        return figure;
    for (int output = 0; output < cache.meta.outputCount && has(cache.meta.drawType, output); ++output) {
        if (skipped.contains(at(cache.meta.drawType, output)) || !has(cache.meta.outputColumns, output)
            || !has(cache.meta.outputNames, output) || at(cache.meta.outputColumns, output).empty())
            continue;
        const int column = at(cache.meta.outputColumns, output)[0];
        if (!has(result.columnSeries, column))
            continue;
        const int series = at(result.columnSeries, column);
        if (has(result.numberSeries, series) && has(at(result.numberSeries, series), last))
            figure = at(at(result.numberSeries, series), last);
    }
    return figure;
}

/// Shifts some bars' times, so that formulas of a pane do not run in step.
void disturbTimes(test::DamagedFormula& formula)
{
    for (auto& time : formula.cache().result.barTimes) {
        switch (formula.pick(0, 60)) {
        case 0: time.msecs += 1; break;
        case 1: time.msecs = INT64_MIN; break;
        case 2: time.msecs = INT64_MAX; break;
        default: break;
        }
    }
}

/// Gives the columns every type there is, and one that there is not.
void mixTypes(test::DamagedFormula& formula)
{
    static const int types[] = { 0, 1, 2, 3, 200, 77 };
    for (int& type : formula.cache().result.columnType)
        type = formula.flag() ? types[formula.pick(0, 5)] : type;
}

} // namespace

TEST(DamagedRecords, AreWrittenAsThePlainWalkWritesThem)
{
    for (const unsigned seed : test::seedsFor("result_text", 600)) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        test::DamagedFormula formula(seed, 0, static_cast<int>(seed % 3));
        mixTypes(formula);
        disturbTimes(formula);
        test::Pane pane;
        EXPECT_EQ(pane.getResultTxtStr(formula.cache().result, formula.cache().meta, true),
                  plainText(pane, formula.cache()));
    }
}

TEST(DamagedRecords, AreWrittenSideBySideAsThePlainWalkWritesThem)
{
    for (const unsigned seed : test::seedsFor("result_text", 600)) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        test::DamagedFormula master(seed, 0, 1), other(seed + 100'000, 0, 0);
        disturbTimes(other);
        mixTypes(other);
        std::vector<se::RPCFormulaResult> results { master.cache().result, other.cache().result };
        std::vector<se::RPCFormulaMetaResult> metas { master.cache().meta, other.cache().meta };
        test::Pane pane;
        EXPECT_EQ(pane.getResultTxtStr(results, metas, true), plainText(pane, master.cache(), other.cache()));
    }
}

TEST(DamagedRecords, GiveTheCellsOfThePlainWalkForAnyIndexes)
{
    for (const unsigned seed : test::seedsFor("result_text", 600)) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        test::DamagedFormula formula(seed, 0, 1);
        mixTypes(formula);
        Cache& cache = formula.cache();
        for (const int output : { formula.output(), 0, 1, -1, 2, INT_MIN, INT_MAX })
            for (const int bar : { formula.start(), 0, 5, -1, 60, INT_MIN, INT_MAX })
                EXPECT_EQ(test::Pane().getDataSlide(output, bar, cache.result, cache.meta),
                          plainCell(cache, output, bar));
    }
}

TEST(DamagedRecords, NeverTakeAnAnswerOnTheAxisFromBeyondAVector)
{
    for (const unsigned seed : test::seedsFor("need_axis", 600)) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        test::DamagedFormula formula(seed, static_cast<int>(seed % 45) - 1, 2);
        Cache& cache = formula.cache();
        const int output = formula.output();
        const bool bySecond = has(cache.meta.drawType, output)
            && QVector<int> { 13, 19, 26, 28 }.contains(at(cache.meta.drawType, output));
        const bool byFirst = has(cache.meta.drawType, output)
            && QVector<int> { 0, 2, 10, 11, 27, 37 }.contains(at(cache.meta.drawType, output));
        bool expected = true;
        if ((byFirst || bySecond) && has(cache.meta.outputColumns, output)
            && has(at(cache.meta.outputColumns, output), bySecond ? 1 : 0)) {
            const int column = at(at(cache.meta.outputColumns, output), bySecond ? 1 : 0);
            expected =
                !has(cache.result.columnNeedsAxis, column) || at(cache.result.columnNeedsAxis, column) != 0;
        }
        EXPECT_EQ(test::Pane().isNeedYAxis(cache, output), expected);
    }
}

TEST(DamagedRecords, GiveTheHostTheFiguresOfThePlainWalk)
{
    const QString name = QStringLiteral("胜率");
    for (const unsigned seed : test::seedsFor("backtest", 600)) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        test::DamagedFormula formula(seed, static_cast<int>(seed % 45) - 1, 1);
        Cache& cache = formula.cache();
        for (std::string& outputName : cache.meta.outputNames)
            outputName = "胜率";
        QMap<QString, double> figures;
        TC::embedded::setBacktestReceiver([&](const auto&, const auto& received) { figures = received; });
        test::Pane pane;
        pane.m_data[{}] = cache;
        pane.updateStrategyBacktestData({});
        const std::optional<double> expected = plainFigure(cache);
        ASSERT_EQ(figures.contains(name), expected.has_value());
        // Compared as texts, so that NaN equals NaN.
        EXPECT_EQ(QString::number(figures.value(name)), QString::number(expected.value_or(0.0)));
    }
}
