// SPDX-License-Identifier: MIT
/// @file Formulas as traders write them: every one is read, computed over every bundled file, and compared
/// with what plain loops of another program say (tests/data/formulas/corpus/restate.py).

#include "tests/support/EngineBars.h"

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

namespace {

constexpr std::size_t kComparedBars = 400; // the first ones, as restate.py takes them
constexpr double kTolerance = 1e-8;        // relative

const std::string kFolder = TEST_DATA_DIR "/formulas/corpus";

/// The formulas of all files, by name.
std::map<std::string, std::string> corpus()
{
    std::map<std::string, std::string> formulas;
    for (const auto& entry : std::filesystem::directory_iterator(kFolder)) {
        std::ifstream file(entry.path());
        std::string name;
        for (std::string line; entry.path().extension() == ".txt" && std::getline(file, line);) {
            if (line.compare(0, 2, "@ ") == 0) {
                name = line.substr(2);
                EXPECT_EQ(formulas.count(name), 0U) << name;
                formulas[name];
            } else {
                formulas[name] += line + "\n";
            }
        }
    }
    return formulas;
}

/// What is stated of an output over the first bars of a file.
struct Stated
{
    std::string formula, bars, output;
    int values = 0;
    double last = 0.0, sum = 0.0;
};

std::vector<Stated> statements()
{
    std::ifstream file(kFolder + "/stated.csv");
    std::vector<Stated> all;
    for (std::string line; std::getline(file, line);) {
        std::replace(line.begin(), line.end(), ',', ' ');
        Stated stated;
        std::istringstream(line) >> stated.formula >> stated.bars >> stated.output >> stated.values
            >> stated.last >> stated.sum;
        all.push_back(stated);
    }
    return all;
}

engine::BarSeries firstBars(engine::BarSeries bars)
{
    for (auto* column : { &bars.open, &bars.high, &bars.low, &bars.close, &bars.volume })
        column->resize(kComparedBars);
    bars.timeMs.resize(kComparedBars);
    bars.amount.clear();
    bars.openInterest.clear();
    return bars;
}

bool isNear(double actual, double expected)
{
    return std::abs(actual - expected) <= kTolerance * std::max(1.0, std::abs(expected));
}

TEST(FormulaCorpus, IsReadAndComputedOverEveryBundledFile)
{
    const auto formulas = corpus();
    EXPECT_GE(formulas.size(), 150U);
    for (const char* file : { "SH000001", "SH600030", "SH510050", "SFCU00", "DFM00" }) {
        const engine::BarSeries bars = test::sampleBars(file);
        for (const auto& [name, text] : formulas) {
            const auto reading = engine::readFormula(text);
            ASSERT_TRUE(reading.formula) << name << ": " << reading.problems.front().english;
            const auto records = engine::computeFormula(reading.formula, bars);
            ASSERT_TRUE(records) << name;
            EXPECT_GT(records->meta.outputCount, 0) << name;
        }
    }
}

TEST(FormulaCorpus, GivesWhatPlainLoopsGive)
{
    const auto formulas = corpus();
    std::map<std::string, engine::BarSeries> bars;
    std::map<std::string, int> compared;
    for (const Stated& stated : statements()) {
        ASSERT_EQ(formulas.count(stated.formula), 1U) << stated.formula;
        if (bars.count(stated.bars) == 0)
            bars[stated.bars] = firstBars(test::sampleBars(stated.bars));
        const auto records = engine::computeFormula(engine::readFormula(formulas.at(stated.formula)).formula,
                                                    bars[stated.bars]);
        ASSERT_TRUE(records) << stated.formula;
        const std::vector<double> values = test::seriesOf(*records, stated.output);
        ASSERT_EQ(values.size(), kComparedBars);
        int count = 0;
        double last = 0.0, sum = 0.0;
        for (const double value : values) {
            if (value == DBL_MAX)
                continue;
            ++count;
            last = value;
            sum += value;
        }
        ++compared[stated.formula];
        EXPECT_TRUE(count == stated.values && isNear(last, stated.last) && isNear(sum, stated.sum))
            << stated.formula << "." << stated.output << " over " << stated.bars << ": " << count
            << " values instead of " << stated.values << ", last " << last << " instead of " << stated.last
            << ", sum " << sum << " instead of " << stated.sum;
    }
    EXPECT_GE(compared.size(), 150U);
}

} // namespace
