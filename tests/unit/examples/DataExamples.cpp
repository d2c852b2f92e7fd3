// SPDX-License-Identifier: MIT
/// @file The examples of the reference: records, keys, requests and a pane's results.

#include "data/IndexBaseData.h"
#include "host/se/RecordCodes.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cstdint>

namespace {

constexpr std::int64_t kDayMs = 86'400'000;

//! [RPCFormulaResultCache]
/// One line over three days, as an engine hands it over.
TC::RPCFormulaResultCache oneLine()
{
    TC::RPCFormulaResultCache cache;
    //! [RPCFormulaResult]
    se::RPCFormulaResult& result = cache.result; // what was computed
    result.barTimes = { { 0, 0 }, { kDayMs, 0 }, { 2 * kDayMs, 0 } };
    result.barValid = { 1, 1, 1 };
    result.numberSeries = { { 10.0, DBL_MAX, 12.5 } }; // the second bar has no value
    result.columnSeries = { 0 };                       // column 0 shows number series 0
    result.columnType = { se::ColumnType::Number };
    result.columnNeedsAxis = { 1 };
    //! [RPCFormulaResult]
    //! [RPCFormulaMetaResult]
    se::RPCFormulaMetaResult& meta = cache.meta; // what the outputs are
    meta.outputCount = 1;
    meta.outputNames = { "AVERAGE" };
    meta.outputColumns = { { 0 } }; // output 0 is drawn from column 0
    meta.drawType = { se::DrawType::Line };
    meta.color = { 0x000000FF }; // 0x00BBGGRR: red
    meta.colorSet = { 1 };
    meta.lineStyle = { se::LineStyle::Solid };
    meta.lineWidth = { 1 };
    meta.position = { se::Position::CentredOnPoint };
    meta.valueKind = { se::ValueKind::Number };
    //! [RPCFormulaMetaResult]
    return cache;
}
//! [RPCFormulaResultCache]

//! [IndexBaseData]
/// A pane's results: the client derives from the holder and fills it.
class PaneData : public TC::IndexBaseData
{
public:
    PaneData()
        : IndexBaseData(nullptr)
    {
    }
    void take(const TC::CFormulaKey& key, const TC::RPCFormulaResultCache& cache)
    {
        m_formulas << key.formulaName;
        m_data[key] = cache;
    }
};
//! [IndexBaseData]

} // namespace

TEST(DataExamples, APaneHoldsResultsAndWritesThemAsText)
{
    PaneData pane;
    pane.take({ QStringLiteral("SH600000"), QStringLiteral("AVERAGE") }, oneLine());
    EXPECT_TRUE(pane.hasData());

    //! [RPCFormulaResultText]
    TC::RPCFormulaResultCache cache = oneLine();
    const std::string text = pane.getResultTxtStr(cache.result, cache.meta, false);
    //! [RPCFormulaResultText]
    EXPECT_EQ(text.substr(0, text.find('\n')), "时间,AVERAGE");
}

TEST(DataExamples, AKeyNamesInstrumentAndFormula)
{
    //! [CFormulaKey]
    const TC::CFormulaKey own(QStringLiteral("SH600000"), QStringLiteral("MACD"));
    const TC::CFormulaKey compared(QStringLiteral("SH000001"), QStringLiteral("MACD"));
    const bool isOneInstance = own == compared; // false: the instruments differ
    //! [CFormulaKey]
    EXPECT_FALSE(isOneInstance);
    EXPECT_LT(compared, own);
}

TEST(DataExamples, ATableOfRequestsFindsAKeyByItsAnswer)
{
    const TC::CFormulaKey key(QStringLiteral("SH600000"), QStringLiteral("MACD"));
    //! [IndexBaseDataReq]
    TC::IndexBaseDataReq requests;
    requests.add(key, QStringLiteral("request 7")); // as the engine issued it

    TC::CFormulaKey answered;
    if (requests.getKey(answered, QStringLiteral("request 7")))
        requests.removeKey(answered);
    //! [IndexBaseDataReq]
    EXPECT_EQ(answered, key);
    EXPECT_EQ(requests.count(), 0);

    //! [IndexBaseDataReqItem]
    requests.add(key, QStringLiteral("request 8"));
    const TC::IndexBaseDataReqItem& first = requests[0];
    const QString asked = first.key.formulaName + QLatin1Char(' ') + first.reqId; // "MACD request 8"
    //! [IndexBaseDataReqItem]
    EXPECT_EQ(asked, QStringLiteral("MACD request 8"));
}

TEST(DataExamples, TheCodesOfARecordAreNamed)
{
    TC::RPCFormulaResultCache cache = oneLine();
    //! [RPCBarTime]
    const se::RPCBarTime bar = cache.result.barTimes[1];
    const std::int64_t days = bar.msecs / kDayMs; // since 1970-01-01 UTC: 1
    //! [RPCBarTime]
    EXPECT_EQ(days, 1);

    //! [RecordCodes]
    cache.meta.drawType[0] = se::DrawType::CircleDot;   // circles
    cache.meta.lineStyle[0] = se::LineStyle::DashDot;   // of lines
    cache.meta.position[0] = se::Position::AbovePoint;  // of texts, numbers and icons
    cache.meta.valueKind[0] = se::ValueKind::Integer;   // in the legend
    cache.result.columnType[0] = se::ColumnType::Plain; // a number
    //! [RecordCodes]
    EXPECT_EQ(cache.meta.drawType[0], 11);
    EXPECT_EQ(cache.result.columnType[0], 200);
}
