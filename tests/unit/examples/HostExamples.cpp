// SPDX-License-Identifier: MIT
/// @file The examples of the reference: what the library asks of the client's platform, and how the default
/// behind the seam is told what to answer.

#include "host/TC/CAppConfig.h"
#include "host/TC/CFormulaHistoryDataManager.h"
#include "host/TC/CFormulaOperateManager.h"
#include "host/TC/CLinkageManager.h"
#include "host/TC/CReplayManager.h"
#include "host/TC/CStockManager.h"
#include "host/WB/NumberFormat.h"
#include "host/embedded/BacktestSetup.h"
#include "host/embedded/FormulaSetup.h"
#include "host/embedded/InstrumentSetup.h"
#include "host/embedded/ModuleSetup.h"
#include "host/embedded/SettingsSetup.h"
#include "host/embedded/TradingSetup.h"
#include "host/luawrapper/LuaModuleCtrl.h"
#include "host/ttservice/CInstrumentDetail.h"
#include "host/ttservice/StockTypeCenter.h"
#include "host/utils/CSingletonT.h"
#include "host/utils/CivilDate.h"
#include "host/utils/TextCodec.h"
#include "recovery/CRecoveryVersionManager.h"
#include "tests/support/RecoveryFolders.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using utils::CSingletonT;

TEST(HostExamples, AnInstrumentIsMadeKnownFoundAndClassified)
{
    //! [CInstrumentDetail]
    ttservice::CInstrumentDetail own;
    own.market = "SH";
    own.code = "688999";
    own.name = "样例";
    own.kind = "stock";
    own.priceTick = 0.01;
    own.figures[TC::embedded::kFreeFloatValueField] = 2.5e9; // yuan
    TC::embedded::setInstrument(own);
    //! [CInstrumentDetail]
    //! [CStockManager]
    const auto* stocks = CSingletonT<TC::CStockManager>::instance();
    const TC::CStockManager::Detail found = stocks->getInstrumentDetail(QStringLiteral("SH688999"));
    const double value = found ? found->getNumber(TC::embedded::kFreeFloatValueField) : 0.0;
    //! [CStockManager]
    EXPECT_EQ(value, 2.5e9);

    //! [StockTypeCenter]
    constexpr int scienceBoard = 277;
    const bool isOfTheBoard =
        CSingletonT<ttservice::StockTypeCenter>::instance()->isTypedStock(scienceBoard, "SH", "688999");
    //! [StockTypeCenter]
    EXPECT_TRUE(isOfTheBoard);
}

TEST(HostExamples, AFormulaIsMadeKnownAndFound)
{
    //! [CFormulaDetail]
    TC::CFormulaDetail own;
    own.displayName = QStringLiteral("我的均线");
    own.realName = QStringLiteral("MYMA");
    own.kind = 2; // of the main chart
    own.numberParams = { 5.0, 10.0 };
    TC::embedded::setFormula(own);
    //! [CFormulaDetail]
    //! [CFormulaOperateManager]
    const auto* formulas = CSingletonT<TC::CFormulaOperateManager>::instance();
    const boost::shared_ptr<TC::CFormulaDetail> found =
        formulas->getFormulaByRealName(QStringLiteral("MYMA"));
    const bool isMainChart = found && found->kind == 2;
    //! [CFormulaOperateManager]
    EXPECT_TRUE(isMainChart);
}

TEST(HostExamples, PositionsOfTheUserAreReported)
{
    const QString key = QStringLiteral("SH600000");
    //! [CPositionNumber]
    TC::CPositionNumber positions;
    TC::CAccountPosition account;
    account.account = QStringLiteral("一号");
    account.position = -200; // short
    positions.accounts << account;
    positions.summary.buyVolume = 300;
    positions.summary.buyAvgPrice = 9.87;
    TC::embedded::setPositionNumber(key, positions);
    //! [CPositionNumber]
    //! [CLinkageManager]
    const TC::CPositionNumber told = CSingletonT<TC::CLinkageManager>::instance()->getPositionNumber(key);
    //! [CLinkageManager]
    ASSERT_EQ(told.accounts.size(), 1);
    EXPECT_EQ(told.accounts[0].position, -200);
    EXPECT_EQ(told.summary.buyVolume, 300);
}

TEST(HostExamples, TheClientSaysWhatItIsAndWhatItReplays)
{
    //! [CAppConfig]
    TC::embedded::setClientType(3); // blue accents, left-aligned lines
    const bool isSecondVariant = CSingletonT<TC::CAppConfig>::instance()->isClientType(3);
    //! [CAppConfig]
    EXPECT_TRUE(isSecondVariant);

    //! [CReplayManager]
    QSignalSpy days(CSingletonT<TC::CReplayManager>::instance(), SIGNAL(sigTradeDateChanged(long long)));
    TC::embedded::setReplayDate(1'709'568'000'000); // 2024-03-05 00:00 in Shanghai
    //! [CReplayManager]
    ASSERT_EQ(days.count(), 1);
    EXPECT_EQ(days[0][0].toLongLong(), 1'709'568'000'000);

    //! [LuaModuleCtrl]
    const QStringList module { QStringLiteral("trade"), QStringLiteral("order") };
    TC::embedded::setModuleRight(module, true);
    const bool isGranted = CSingletonT<luawrapper::LuaModuleCtrl>::instance()->checkModule(module, false);
    //! [LuaModuleCtrl]
    EXPECT_TRUE(isGranted);
}

TEST(HostExamples, FiguresOfAStrategyReachTheClient)
{
    //! [CFormulaHistoryDataManager]
    QMap<QString, double> taken;
    TC::embedded::setBacktestReceiver(
        [&](const QVector<QString>&, const QMap<QString, double>& figures) { taken = figures; });
    CSingletonT<TC::CFormulaHistoryDataManager>::instance()->updateStrategyBacktestData(
        { QStringLiteral("strategy 1") }, { { QStringLiteral("胜率"), 0.55 } });
    //! [CFormulaHistoryDataManager]
    EXPECT_EQ(taken.value(QStringLiteral("胜率")), 0.55);
    TC::embedded::setBacktestReceiver({});
}

TEST(HostExamples, SmallToolsCountAndFormat)
{
    //! [CFlags]
    const WB::FormatNumberFlags flags =
        WB::FormatNumberFlags(utils::EFormatNumber_Percent) | utils::EFormatNumber_Large;
    const bool isPercent = flags.testFlag(utils::EFormatNumber_Percent);
    //! [CFlags]
    EXPECT_TRUE(isPercent);

    //! [CivilDate]
    constexpr std::int64_t day = utils::daysFromCivil({ 2024, 2, 29 }); // since 1970-01-01
    constexpr utils::CivilDate next = utils::civilFromDays(day + 1);    // 2024-03-01
    //! [CivilDate]
    EXPECT_EQ(next.month, 3);
    EXPECT_EQ(next.day, 1);

    //! [DecodedText]
    const std::optional<utils::DecodedText> name = utils::decoded("\xC6\xD6\xB7\xA2", "GB18030");
    const QString shown = name && name->isClean ? name->text : QString(); // "浦发"
    //! [DecodedText]
    EXPECT_EQ(shown, QStringLiteral("浦发"));

    //! [CSingletonT]
    auto* manager = utils::CSingletonT<TC::CStockManager>::instance(); // made by the first caller
    const bool isOne = manager == utils::CSingletonT<TC::CStockManager>::instance();
    //! [CSingletonT]
    EXPECT_TRUE(isOne);
    //! [SingletonPlace]
    const utils::SingletonPlace& place = utils::singletonPlace(typeid(TC::CStockManager));
    const bool isMade = place.object.load() != nullptr;
    //! [SingletonPlace]
    EXPECT_TRUE(isMade);
}

class RecoveryExample : public testing::Test, protected test::RecoveryFolders
{
};

TEST_F(RecoveryExample, FormulasAreBackedUpAndPutBack)
{
    bool wasCut = true;
    //! [CRecoveryVersionManager]
    TC::CRecoveryVersionManager recovery;
    wasCut = recovery.init(); // true: the run before this one did not end by quit()
    recovery.backUp();
    if (wasCut && !recovery.getDataList().isEmpty())
        recovery.loadFile(recovery.getDataList().first()); // the newest that stood there at the beginning
    recovery.quit();
    //! [CRecoveryVersionManager]
    EXPECT_FALSE(wasCut);
}
