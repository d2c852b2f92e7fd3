// SPDX-License-Identifier: MIT
#include "dock/IndexTitle.h"

#include "host/embedded/EmbeddedHost.h"
#include "tests/support/Trace.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

using TC::indexTitle;

const QStringList kRenameRight { QStringLiteral("mdl_auth"),
                                 QStringLiteral("mdl_auth_order_service_rename") };

QString titleOf(const char* panelId, int count = 0)
{
    return indexTitle(QString::fromLatin1(panelId), count);
}

struct Row
{
    const char* panelId;
    const char* title;
};

constexpr Row kRows[] = {
    { "indexMainPanel", "指标图形" },
    { "positionPanel", "当日持仓明细" },
    { "buyPositionPanel", "当日买入" },
    { "operationDetailPanel", "操作明细" },
    { "sellPositionPanel", "当日卖出" },
    { "allowBuyListPanel", "买入备选" },
    { "allowSellListPanel", "卖出备选" },
    { "historySummarizingPanel", "历史品种汇总" },
    { "historySectorSummarizingPanel", "历史板块汇总" },
    { "styleBoxPanel", "风格箱" },
    { "brinsonIndustryPanel", "Brinson" },
    { "positionAnalyzePanel", "持仓分析" },
    { "messagePanel", "消息面板" },
    { "investBuy", "买入" },
    { "investSell", "卖出" },
    { "investPosition", "交易录入" },
    { "curPosition", "当前持仓" },
    { "investDealDetail", "成交明细" },
    { "accountHedgePanel", "账号市值对冲" },
    { "starryPanel", "涨速星空图" },
    { "tradeMonitor", "交易监控" },
    { "tradeUserSet", "用户设置" },
    { "tradeTaskList", "信号组" },
    { "stockTrade", "组合交易" },
    { "futureTrade", "期货交易" },
    { "commandTask", "任务列表" },
    { "commandPanel", "指令面板" },
    { "orderService", "文件单和信号单" },
    { "tradeBaskets", "篮子管理" },
    { "tradeBlacks", "黑名单管理" },
    { "operationStockPanel", "股票交易" },
    { "monitorMessagePanel", "消息面板" },
    { "trafficWatchPanel", "流量监控面板" },
    { "distributionConditionPanel", "分配情况" },
    { "backtestearningspanel", "回测收益" },
    { "handleFee", "手续费率" },
    { "dataISet", "数据接口设置" },
    { "clearTableSet", "清算表格设置" },
    { "productTableSet", "产品数据清算" },
    { "productBaseInfo", "基本数据" },
    { "productNetValueImp", "产品净值导入" },
    { "entrustPanel", "委托面板" },
    { "transactionPanel", "成交面板" },
    { "serverPanel", "服务器设置" },
    { "F7index", "指标参数" },
};

class IndexTitleRow : public testing::TestWithParam<Row>
{
};

TEST_P(IndexTitleRow, GivesItsTitle)
{
    EXPECT_EQ(titleOf(GetParam().panelId), QString::fromUtf8(GetParam().title));
}

TEST_P(IndexTitleRow, GivesItsTitleWithTheCountBehindIt)
{
    EXPECT_EQ(titleOf(GetParam().panelId, 12), QString::fromUtf8(GetParam().title) + QStringLiteral(" (12)"));
}

TEST_P(IndexTitleRow, IsFoundByExactCaseOnly)
{
    const QString exact = QString::fromLatin1(GetParam().panelId);
    const QString otherCase = exact.toUpper();
    ASSERT_NE(exact, otherCase);
    EXPECT_EQ(indexTitle(otherCase, 0), QString());
}

INSTANTIATE_TEST_SUITE_P(AllPanels, IndexTitleRow, testing::ValuesIn(kRows),
                         [](const auto& row) { return std::string(row.param.panelId); });

TEST(IndexTitle, RepeatedIdentifiersKeepTheirFirstTitle)
{
    EXPECT_EQ(titleOf("positionPanel"), QStringLiteral("当日持仓明细"));
    EXPECT_EQ(titleOf("accountHedgePanel"), QStringLiteral("账号市值对冲"));
    EXPECT_EQ(titleOf("sellPositionPanel"), QStringLiteral("当日卖出"));
    EXPECT_EQ(titleOf("styleBoxPanel"), QStringLiteral("风格箱"));
}

TEST(IndexTitle, CapitalisedMainPanelIsUnknown)
{
    EXPECT_EQ(titleOf("IndexMainPanel"), QString());
}

TEST(IndexTitle, IdentifierWithABlankIsUnknown)
{
    EXPECT_EQ(titleOf("investBuy "), QString());
}

TEST(IndexTitle, UnknownIdentifierStillCarriesTheCount)
{
    EXPECT_EQ(titleOf("nowhere", 3), QStringLiteral(" (3)"));
    EXPECT_EQ(indexTitle(QString(), 3), QStringLiteral(" (3)"));
}

TEST(IndexTitle, UnknownIdentifierWithoutACountIsEmpty)
{
    EXPECT_EQ(titleOf("nowhere"), QString());
}

TEST(IndexTitle, CountFollowsFromOneOn)
{
    EXPECT_EQ(titleOf("investBuy", 0), QStringLiteral("买入"));
    EXPECT_EQ(titleOf("investBuy", 1), QStringLiteral("买入 (1)"));
}

TEST(IndexTitle, NegativeCountGivesNoSuffix)
{
    EXPECT_EQ(titleOf("investBuy", -1), QStringLiteral("买入"));
    EXPECT_EQ(titleOf("investBuy", INT_MIN), QStringLiteral("买入"));
}

TEST(IndexTitle, LargestCountIsPlainDecimal)
{
    EXPECT_EQ(titleOf("investBuy", INT_MAX), QStringLiteral("买入 (2147483647)"));
}

TEST(IndexTitle, OrderServiceFollowsTheModuleRight)
{
    TC::embedded::setModuleRight(kRenameRight, true);
    EXPECT_EQ(titleOf("orderService"), QStringLiteral("便捷交易和信号单"));
}

TEST(IndexTitle, OrderServiceAsksForTheRightOnEveryCall)
{
    TC::embedded::setModuleRight(kRenameRight, true);
    EXPECT_EQ(titleOf("orderService"), QStringLiteral("便捷交易和信号单"));
    TC::embedded::setModuleRight(kRenameRight, false);
    EXPECT_EQ(titleOf("orderService"), QStringLiteral("文件单和信号单"));
    TC::embedded::setModuleRight(kRenameRight, true);
    EXPECT_EQ(titleOf("orderService", 2), QStringLiteral("便捷交易和信号单 (2)"));
}

TEST(IndexTitle, OrderServiceReadsTheInnerRightOnly)
{
    TC::embedded::setModuleRight({ kRenameRight.at(0) }, true);
    TC::embedded::setModuleRight({ kRenameRight.at(1) }, true);
    TC::embedded::setModuleRight({ kRenameRight.at(1), kRenameRight.at(0) }, true);
    EXPECT_EQ(titleOf("orderService"), QStringLiteral("文件单和信号单"));
}

} // namespace
