#include "apps/chart/NamedFormula.h"
#include "apps/chart/TextExport.h"
#include "data/IndexBaseData.h"
#include "engine/BarFile.h"
#include "tests/support/DamagedFormula.h"
#include "tests/support/FormulaBuilder.h"
#include "tests/support/Seeds.h"
#include "tests/support/Trace.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cstring>
#include <cmath>
#include <ctime>
#include <locale>
#include <random>
#include <sstream>

namespace {

using test::FormulaBuilder;

constexpr std::int64_t kDay = 86'400'000;

struct Text
{
    TC::IndexBaseData data { nullptr };

    std::string one(TC::RPCFormulaResultCache cache, bool withTime = false)
    {
        return data.getResultTxtStr(cache.result, cache.meta, withTime);
    }
    std::string several(std::vector<TC::RPCFormulaResultCache> caches)
    {
        std::vector<se::RPCFormulaResult> results;
        std::vector<se::RPCFormulaMetaResult> metas;
        for (const auto& cache : caches) {
            results.push_back(cache.result);
            metas.push_back(cache.meta);
        }
        return data.getResultTxtStr(results, metas, false);
    }
    std::string time(std::int64_t msecs, bool withTime = true)
    {
        se::RPCFormulaResult result;
        result.barTimes = { { msecs, 0 } };
        return data.getTimeSlide(0, result, withTime);
    }
    std::string cell(double value, int columnType)
    {
        auto cache = FormulaBuilder().line({ value }).columnType(columnType).build();
        return data.getDataSlide(0, 0, cache.result, cache.meta);
    }
};

/// What a fresh stream of the classic locale writes.
std::string streamed(double value, bool fixed)
{
    std::ostringstream out;
    out.imbue(std::locale::classic());
    if (fixed) {
        out << std::fixed;
        out.precision(4);
    }
    out << ',' << value;
    return out.str();
}

} // namespace

TEST(GetLengthStr, PadsWithZerosInFrontOfTheSign)
{
    TC::IndexBaseData data(nullptr);
    EXPECT_EQ(data.getLengthStr(7, 2), "07");
    EXPECT_EQ(data.getLengthStr(2024, 2), "2024");
    EXPECT_EQ(data.getLengthStr(-5, 3), "0-5");
    EXPECT_EQ(data.getLengthStr(0, 0), "0");
    EXPECT_EQ(data.getLengthStr(INT_MIN, 12), "0-2147483648");
    EXPECT_EQ(data.getLengthStr(3, -4), "3");
}

TEST(GetTimeSlide, ShowsLocalDateAndTimeWithoutSeconds)
{
    Text text; // the tests run in the zone of Shanghai, UTC + 8
    EXPECT_EQ(text.time(1'709'602'259'999), "2024/03/05 09:30");
    EXPECT_EQ(text.time(1'709'602'259'999, false), "2024/03/05");
}

TEST(GetTimeSlide, TruncatesTowardZeroBefore1970)
{
    Text text;
    EXPECT_EQ(text.time(0), "1970/01/01 08:00");
    EXPECT_EQ(text.time(-999), "1970/01/01 08:00"); // less than a second before
    EXPECT_EQ(text.time(-1000), "1970/01/01 07:59");
    EXPECT_EQ(text.time(-30 * kDay, false), "1969/12/02");
}

TEST(GetTimeSlide, FollowsTheRulesOfTheZone)
{
    qputenv("TZ", "America/New_York");
    tzset();
    Text text;
    EXPECT_EQ(text.time(1'710'053'940'000), "2024/03/10 01:59"); // the last minute of winter time
    EXPECT_EQ(text.time(1'710'054'000'000), "2024/03/10 03:00");
    EXPECT_EQ(text.time(1'730'613'540'000), "2024/11/03 01:59");
    EXPECT_EQ(text.time(1'730'613'600'000), "2024/11/03 01:00");
    qputenv("TZ", "Asia/Shanghai");
    tzset();
}

TEST(GetTimeSlide, GoesBeyondTheYear9999AndToTheEndsOfTime)
{
    Text text;
    EXPECT_EQ(text.time(253'402'300'800'000, false), "10000/01/01");
    for (std::int64_t extreme : { INT64_MAX, INT64_MIN })
        EXPECT_FALSE(text.time(extreme).empty());
    TC::IndexBaseData data(nullptr);
    se::RPCFormulaResult empty;
    EXPECT_EQ(data.getTimeSlide(0, empty, true), "");
    EXPECT_EQ(data.getTimeSlide(-1, empty, true), "");
}

TEST(GetDataSlide, WritesByColumnType)
{
    Text text;
    EXPECT_EQ(text.cell(1.5, 0), ",1.5000");
    EXPECT_EQ(text.cell(1.5, 1), ",1.5");
    EXPECT_EQ(text.cell(1.0, 2), ",1");
    EXPECT_EQ(text.cell(1e6, 1), ",1e+06");
    EXPECT_EQ(text.cell(DBL_MAX, 1), ",1.79769e+308");
    for (int type : { 200, 4, -1 })
        EXPECT_EQ(text.cell(1.5, type), "") << type; // not even the comma
}

TEST(GetDataSlide, WritesTextsAsTheyStand)
{
    auto cache = FormulaBuilder().output("t", 0, {}).texts({ "a,\"b\"" }).build();
    TC::IndexBaseData data(nullptr);
    EXPECT_EQ(data.getDataSlide(0, 0, cache.result, cache.meta), ",a,\"b\"");
}

TEST(GetDataSlide, WritesNothingForWhatDoesNotExist)
{
    auto cache = FormulaBuilder().line({ 1 }).build();
    TC::IndexBaseData data(nullptr);
    for (int place : { -1, 1, INT_MAX }) {
        EXPECT_EQ(data.getDataSlide(place, 0, cache.result, cache.meta), "");
        EXPECT_EQ(data.getDataSlide(0, place, cache.result, cache.meta), "");
    }
}

TEST(GetDataSlide, WritesNumbersAsAFreshStreamDoes)
{
    Text text;
    std::mt19937_64 random(7);
    std::vector<double> values {
        0.0,     -0.0,     1e6,     999999.5, 123456.5, 1e-5,      9.99995e-5,
        5e-324,  2.2e-308, DBL_MAX, -DBL_MAX, INFINITY, -INFINITY, static_cast<double>(NAN),
        0.00005, 1.00005,  100000,  1000000
    };
    for (int i = 0; i < 20'000; ++i) {
        double value = 0.0;
        const std::uint64_t bits = random();
        std::memcpy(&value, &bits, sizeof value);
        values.push_back(value);
        values.push_back(static_cast<double>(static_cast<std::int64_t>(bits) % 100'000'000) / 1000.0);
    }
    for (double value : values) {
        EXPECT_EQ(text.cell(value, 0), streamed(value, true));
        EXPECT_EQ(text.cell(value, 1), streamed(value, false));
    }
}

TEST(OneFormulaText, HasAHeaderAndALinePerValidBar)
{
    EXPECT_EQ(Text().one(FormulaBuilder().line({ 1, 2, 3 }).line({ 4, 5, 6 }).valid({ 1, 0, 1 }).build()),
              "时间,line,line\n1970/01/01,1.0000,4.0000\n1970/01/03,3.0000,6.0000\n");
}

TEST(OneFormulaText, ShowsTheTimeOnRequest)
{
    EXPECT_EQ(Text().one(FormulaBuilder().line({ 1 }).build(), true), "时间,line\n1970/01/01 08:00,1.0000\n");
}

TEST(OneFormulaText, ExportsOutputsOfOneColumnWhateverTheirStyle)
{
    EXPECT_EQ(Text().one(FormulaBuilder()
                             .output("two", 12, { { 1 }, { 2 } })
                             .output("none", 0, {})
                             .output("hidden__noshow", 31, { { 3 } })
                             .width(0)
                             .build()),
              "时间,hidden__noshow\n1970/01/01,3.0000\n");
    EXPECT_EQ(Text().one(FormulaBuilder().output("two", 12, { { 1 }, { 2 } }).build()), "时间\n1970/01/01\n");
}

TEST(OneFormulaText, IsTheHeaderAloneWithoutBars)
{
    EXPECT_EQ(Text().one(FormulaBuilder().line({}).build()), "时间,line\n");
    EXPECT_EQ(Text().one(TC::RPCFormulaResultCache()), "时间\n");
}

TEST(SeveralFormulasText, StandSideBySideOnTheBarsOfTheFirst)
{
    EXPECT_EQ(
        Text().several({ FormulaBuilder().line({ 1, 2 }).build(), FormulaBuilder().line({ 7, 8 }).build() }),
        "时间,line,line\n1970/01/01,1.0000,7.0000\n1970/01/02,2.0000,8.0000\n");
}

TEST(SeveralFormulasText, HasNoBodyWhenTheFirstBarIsInvalidAndKeepsLaterInvalidBars)
{
    EXPECT_EQ(Text().several({ FormulaBuilder().line({ 1, 2 }).valid({ 0, 1 }).build() }), "时间,line\n");
    EXPECT_EQ(Text().several({ FormulaBuilder().line({ 1, 2 }).valid({ 1, 0 }).build() }),
              "时间,line\n1970/01/01,1.0000\n1970/01/02,2.0000\n");
}

TEST(SeveralFormulasText, WritesNothingForAFormulaWithoutABarOfThatTimeAndGoesOnLater)
{
    const auto master = FormulaBuilder().line({ 1, 2, 3 }).build();
    const auto late = FormulaBuilder().line({ 7, 8 }).times({ kDay, 2 * kDay }).valid({ 0, 0 }).build();
    EXPECT_EQ(Text().several({ master, late }), // its own flags are not asked for
              "时间,line,line\n1970/01/01,1.0000\n1970/01/02,2.0000,7.0000\n1970/01/03,3.0000,8.0000\n");
}

TEST(SeveralFormulasText, NeverPassesABarThatTheFirstFormulaLacks)
{
    const auto master = FormulaBuilder().line({ 1, 2, 3 }).build();
    const auto other = FormulaBuilder().line({ 7, 8, 9 }).times({ 0, kDay / 2, kDay }).build();
    EXPECT_EQ(Text().several({ master, other }),
              "时间,line,line\n1970/01/01,1.0000,7.0000\n1970/01/02,2.0000\n1970/01/03,3.0000\n");
}

TEST(SeveralFormulasText, UsesTheShorterOfTheTwoVectors)
{
    TC::IndexBaseData data(nullptr);
    auto cache = FormulaBuilder().line({ 1 }).build();
    std::vector<se::RPCFormulaResult> results { cache.result, cache.result };
    std::vector<se::RPCFormulaMetaResult> metas { cache.meta };
    EXPECT_EQ(data.getResultTxtStr(results, metas, false), "时间,line\n1970/01/01,1.0000\n");
    metas.clear();
    EXPECT_EQ(data.getResultTxtStr(results, metas, false), "时间\n");
}

TEST(ResultText, SurvivesDamagedRecords)
{
    for (const unsigned seed : test::seedsFor("result_text", 500)) {
        test::DamagedFormula formula(seed, 0, 1);
        Text text;
        EXPECT_FALSE(text.one(formula.cache(), true).empty());
        EXPECT_FALSE(text.several({ formula.cache(), formula.cache() }).empty());
    }
}

TEST(ResultText, OfABundledFileReadsBackAsWhatWasComputed)
{
    std::string failure;
    const auto bars = engine::readBars(SAMPLES_DIR "/bars/SH510050.csv", failure);
    ASSERT_TRUE(bars) << failure;
    const auto records = chart::computeNamed(QStringLiteral("MACD"), *bars);
    ASSERT_TRUE(records);
    TC::IndexBaseData data(nullptr);
    auto result = records->result;
    auto meta = records->meta;
    std::istringstream lines(data.getResultTxtStr(result, meta, false));
    std::string line;
    std::getline(lines, line);
    EXPECT_EQ(line, "时间,DIF,DEA,MACD");
    std::size_t bar = 0;
    for (; std::getline(lines, line); ++bar) {
        std::istringstream fields(line);
        std::string field;
        std::getline(fields, field, ',');
        EXPECT_EQ(field.size(), 10u);
        for (std::size_t output = 0; output < 3; ++output) {
            ASSERT_TRUE(std::getline(fields, field, ','));
            const double computed = result.numberSeries[static_cast<std::size_t>(
                result.columnSeries[static_cast<std::size_t>(meta.outputColumns[output][0])])][bar];
            EXPECT_NEAR(std::stod(field), computed, 1e-3 + std::abs(computed) * 1e-5);
        }
    }
    EXPECT_EQ(bar, bars->size());
}

TEST(WriteText, LeavesTheOldFileWhenItCannotWrite)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("out.csv"));
    EXPECT_EQ(chart::writeText(path, "first"), QString());
    EXPECT_TRUE(chart::writeText(folder.filePath(QStringLiteral("none/out.csv")), "x")
                    .contains(QStringLiteral("none/out.csv")));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), QByteArray("first"));
}
