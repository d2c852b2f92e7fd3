// SPDX-License-Identifier: MIT
/// @file Formulas over the bundled bars, exported and read again by a reader of its own.

#include "engine/files/BarFile.h"
#include "engine/Formulas.h"
#include "tests/support/CsvText.h"
#include "tests/support/Pane.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

namespace {

engine::BarSeries barsOf(const std::string& instrument)
{
    std::string failure;
    const auto bars = engine::readBars(SAMPLES_DIR "/bars/" + instrument + ".csv", failure);
    EXPECT_TRUE(bars) << failure;
    return bars.value_or(engine::BarSeries());
}

/// The dates of a bundled file as an export shows them.
std::vector<std::string> datesOf(const std::string& instrument)
{
    std::ifstream file(SAMPLES_DIR "/bars/" + instrument + ".csv", std::ios::binary);
    const std::string content { std::istreambuf_iterator<char>(file), {} };
    test::CsvRows rows = test::readCsv(content);
    std::vector<std::string> dates;
    for (std::size_t row = 1; row < rows.size(); ++row) {
        std::string& date = rows[row].front();
        date[4] = date[7] = '/';
        dates.push_back(date);
    }
    return dates;
}

class ExportedSample : public testing::TestWithParam<const char*>
{
};

} // namespace

TEST_P(ExportedSample, ReadsBackBarForBarAndNumberForNumber)
{
    auto records = engine::computeFormula("MA", barsOf(GetParam()));
    ASSERT_TRUE(records);
    const test::CsvRows rows =
        test::readCsv(test::Pane().getResultTxtStr(records->result, records->meta, false));
    const std::vector<std::string> dates = datesOf(GetParam());
    ASSERT_EQ(rows.size(), dates.size() + 1);
    const auto outputs = static_cast<std::size_t>(records->meta.outputCount);
    ASSERT_EQ(rows[0].size(), outputs + 1);
    EXPECT_EQ(rows[0][0], "时间");
    for (std::size_t output = 0; output < outputs; ++output)
        EXPECT_EQ(rows[0][output + 1], records->meta.outputNames[output]);
    for (std::size_t bar = 0; bar < dates.size(); ++bar) {
        ASSERT_EQ(rows[bar + 1].size(), outputs + 1) << dates[bar];
        EXPECT_EQ(rows[bar + 1][0], dates[bar]);
        for (std::size_t output = 0; output < outputs; ++output) {
            const double value = records->result.numberSeries[output][bar];
            char expected[400];
            if (records->result.columnType[output] == 0)
                std::snprintf(expected, sizeof expected, "%.4f", value);
            else
                std::snprintf(expected, sizeof expected, "%g", value);
            ASSERT_EQ(rows[bar + 1][output + 1], expected) << dates[bar];
        }
    }
}

TEST_P(ExportedSample, StandsSideBySideWithAnotherFormula)
{
    const engine::BarSeries bars = barsOf(GetParam());
    auto ma = engine::computeFormula("MA", bars), macd = engine::computeFormula("MACD", bars);
    ASSERT_TRUE(ma && macd);
    std::vector<se::RPCFormulaResult> results { ma->result, macd->result };
    std::vector<se::RPCFormulaMetaResult> metas { ma->meta, macd->meta };
    test::Pane pane;
    const test::CsvRows both = test::readCsv(pane.getResultTxtStr(results, metas, true));
    const test::CsvRows first = test::readCsv(pane.getResultTxtStr(ma->result, ma->meta, true));
    const test::CsvRows second = test::readCsv(pane.getResultTxtStr(macd->result, macd->meta, true));
    ASSERT_EQ(both.size(), bars.size() + 1);
    for (std::size_t row = 0; row < both.size(); ++row) {
        std::vector<std::string> joined = first[row];
        joined.insert(joined.end(), second[row].begin() + 1, second[row].end());
        ASSERT_EQ(both[row], joined) << row;
    }
}

INSTANTIATE_TEST_SUITE_P(BundledBars, ExportedSample,
                         testing::Values("SH600030", "SH000001", "SH510050", "DFM00", "SFCU00"),
                         [](const auto& sample) { return std::string(sample.param); });
