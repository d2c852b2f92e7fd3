// SPDX-License-Identifier: MIT
/// @file The examples of the reference: formulas, bars and trades.

#include "engine/FormulaService.h"
#include "engine/Formulas.h"
#include "engine/TickFormulas.h"
#include "engine/evaluation/FormulaEvaluation.h"
#include "engine/files/BarFile.h"
#include "engine/files/TickFile.h"
#include "host/embedded/FormulaSetup.h"
#include "tests/unit/examples/ThreeDays.h"

#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>

using test::threeDays;

namespace {

void write(const QString& path, const char* text)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
}

} // namespace

TEST(EngineExamples, ATextBecomesAFormulaAndTheFormulaRecords)
{
    //! [Formula]
    const engine::FormulaReading reading = engine::readFormula("PARAM N(2,1,100); AVERAGE:MA(CLOSE,N);");
    const std::shared_ptr<const engine::Formula> formula = reading.formula; // null when there are problems
    //! [FormulaRecords]
    const auto records = engine::computeFormula(formula, threeDays());
    const double last = records->result.numberSeries[0][2]; // (10.5 + 12.0) / 2
    //! [FormulaRecords]
    //! [Formula]
    EXPECT_EQ(last, 11.25);

    //! [Parameter]
    const engine::Parameter& length = formula->parameters()[0]; // N, 2, from 1 to 100
    //! [Parameter]
    EXPECT_EQ(length.name, "N");
    EXPECT_EQ(length.max, 100.0);
}

TEST(EngineExamples, AMistakeIsToldWithItsPlace)
{
    //! [FormulaReading]
    const engine::FormulaReading reading = engine::readFormula("A:MA(CLOSE,5);\nB:MB(CLOSE,5);");
    //! [Problem]
    const engine::Problem& problem = reading.problems.at(0);
    const engine::Place place = problem.place; // line 2, column 3, two characters
    //! [Problem]
    //! [FormulaReading]
    EXPECT_EQ(place.line, 2);
    EXPECT_EQ(place.column, 3);
    EXPECT_EQ(problem.found, "MB");
    EXPECT_FALSE(reading.formula);
}

TEST(EngineExamples, AFormulaMayCallThoseOfTheProgramAroundIt)
{
    //! [FoundFormula]
    const engine::FormulaLookup lookup = [](const std::string& name) -> engine::FoundFormula {
        if (name == "MINE")
            return { engine::readFormula("OUT:CLOSE;").formula, {}, {} };
        return engine::findBuiltInFormula(name);
    };
    const engine::FormulaReading reading = engine::readFormula("TWICE:MINE.OUT*2;", lookup);
    //! [FoundFormula]
    EXPECT_TRUE(reading.formula);
}

TEST(EngineExamples, WordsAndBuiltInFormulasAreListed)
{
    //! [BuiltInFormula]
    const engine::BuiltInFormula* macd = engine::findBuiltIn("MACD"); // null for an unknown name
    const std::size_t parameters = macd->formula->parameters().size();
    //! [BuiltInFormula]
    EXPECT_EQ(parameters, 3u);

    std::string hint;
    //! [KnownWord]
    for (const engine::KnownWord& word : engine::knownWords()) {
        if (word.kind == engine::KnownWord::Kind::Function && word.name == "MA")
            hint = word.name + '(' + word.arguments + ')'; // what an editor offers
    }
    //! [KnownWord]
    EXPECT_EQ(hint, "MA(X,N)");

    //! [FormulaLimits]
    const bool mayBeRead = macd->source.size() <= engine::FormulaLimits::kMaxBytes;
    //! [FormulaLimits]
    EXPECT_TRUE(mayBeRead);
}

TEST(EngineExamples, AnEvaluationFollowsBarsAsTheyCome)
{
    engine::BarSeries bars = threeDays();
    const auto formula = engine::readFormula("SUMMED:SUM(VOL,0);").formula;
    //! [FormulaEvaluation]
    engine::FormulaEvaluation evaluation(formula);
    evaluation.update(bars);                                           // all of them
    bars.volume[2] = 200.0;                                            // the last bar is still growing
    evaluation.update(bars);                                           // that one alone is computed again
    const double sum = evaluation.records().result.numberSeries[0][2]; // 390
    //! [FormulaEvaluation]
    EXPECT_EQ(sum, 390.0);
}

TEST(EngineExamples, AServiceComputesBehindTheWindow)
{
    QEventLoop loop;
    QTimer::singleShot(20'000, &loop, &QEventLoop::quit);
    double last = 0.0;
    //! [FormulaService]
    engine::FormulaService service;
    QObject::connect(&service, &engine::FormulaService::computed, &loop,
                     [&](const QString&, std::shared_ptr<const engine::FormulaRecords> records) {
                         last = records->result.numberSeries[0].back(); // in this thread
                         loop.quit();
                     });
    const auto bars = std::make_shared<const engine::BarSeries>(threeDays());
    const QString id = service.request(engine::readFormula("C:CLOSE;").formula, bars);
    //! [FormulaService]
    loop.exec();
    EXPECT_FALSE(id.isEmpty());
    EXPECT_EQ(last, 12.0);
}

TEST(EngineExamples, AFileIsFollowedWhileItGrows)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("bars.csv"));
    write(path, "date,open,high,low,close,volume\n2024-01-02,1,2,1,2,5\n");
    //! [BarFollower]
    engine::BarFollower follower(path.toStdString());
    const std::size_t rows = follower.read(); // call it again whenever the file may have grown
    const double close = follower.bars().close.back();
    //! [BarFollower]
    EXPECT_EQ(rows, 1u);
    EXPECT_EQ(close, 2.0);
}

TEST(EngineExamples, TradesAreReadFollowedAndDrawnFrom)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("ticks.csv"));
    write(path,
          "time_utc,price,volume,bid1,ask1\n2024-01-02T01:30:00.000,10.01,3,10.00,10.01\n"
          "2024-01-02T01:30:03.000,10.00,2,10.00,10.01\n");
    //! [TickFollower]
    engine::TickFollower follower(path.toStdString());
    const std::size_t trades = follower.read();
    //! [TickFollower]
    EXPECT_EQ(trades, 2u) << follower.failure();

    //! [TickSeries]
    std::string failure;
    const auto ticks = engine::readTicks(path.toStdString(), failure); // nothing: `failure` says why
    const double bestAsk = ticks->ask.price[0][1];                     // at the second trade
    //! [TickRecords]
    const engine::TickRecords records = engine::computeTicks(*ticks); // for drawTick, drawTickVolStick
    //! [TickRecords]
    //! [TickSeries]
    EXPECT_EQ(bestAsk, 10.01);
    EXPECT_EQ(records.prices.result.barTimes.size(), 2u);
}

TEST(EngineExamples, AFormulaOfTheUserIsFoundWithItsColours)
{
    TC::embedded::loadFormulas();
    //! [FormulaRecipe]
    const auto recipe = TC::embedded::resolveFormula(QStringLiteral("MACD")); // nothing: no such formula
    const std::vector<double> parameters(recipe->parameters.begin(), recipe->parameters.end());
    auto records = engine::computeFormula(recipe->formula, threeDays(), parameters);
    TC::embedded::applyColors(*recipe, records->meta); // those that the user chose
    //! [FormulaRecipe]
    EXPECT_EQ(recipe->base, QStringLiteral("MACD"));
    EXPECT_EQ(records->meta.outputCount, 3);
}
