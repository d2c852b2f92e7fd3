// SPDX-License-Identifier: MIT
#include "dock/IndexTitle.h"

#include "host/WB/NumberFormat.h"
#include "host/luawrapper/LuaModuleCtrl.h"
#include "host/utils/CSingletonT.h"

#include <QStringList>

namespace TC {

namespace {

struct PanelTitle
{
    const char* panelId;
    const char* title; ///< UTF-8
};

/// Searched from the top. Deliberate: four identifiers stand twice. The first one holds; the second is kept
/// where it stands and is never reached, so its title does not matter.
constexpr PanelTitle kTitles[] = {
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
    { "sellPositionPanel", "" },
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
    { "orderService", nullptr }, // by module right: see orderServiceTitle
    { "tradeBaskets", "篮子管理" },
    { "tradeBlacks", "黑名单管理" },
    { "operationStockPanel", "股票交易" },
    { "positionPanel", "持仓面板" },
    { "monitorMessagePanel", "消息面板" },
    { "trafficWatchPanel", "流量监控面板" },
    { "styleBoxPanel", "" },
    { "distributionConditionPanel", "分配情况" },
    { "backtestearningspanel", "回测收益" },
    { "handleFee", "手续费率" },
    { "dataISet", "数据接口设置" },
    { "clearTableSet", "清算表格设置" },
    { "productTableSet", "产品数据清算" },
    { "productBaseInfo", "基本数据" },
    { "productNetValueImp", "产品净值导入" },
    { "accountHedgePanel", "账号对冲" },
    { "entrustPanel", "委托面板" },
    { "transactionPanel", "成交面板" },
    { "serverPanel", "服务器设置" },
    { "F7index", "指标参数" },
};

/// Asked anew every time: the right may change while the client runs.
QString orderServiceTitle()
{
    const QStringList path { QStringLiteral("mdl_auth"), QStringLiteral("mdl_auth_order_service_rename") };
    const bool renamed = utils::CSingletonT<luawrapper::LuaModuleCtrl>::instance()->checkModule(path, false);
    return renamed ? QStringLiteral("便捷交易和信号单") : QStringLiteral("文件单和信号单");
}

QString titleOf(const QString& panelId)
{
    for (const PanelTitle& entry : kTitles) {
        if (panelId == QLatin1String(entry.panelId))
            return entry.title ? QString::fromUtf8(entry.title) : orderServiceTitle();
    }
    return QString();
}

} // namespace

QString indexTitle(QString panelId, int count)
{
    QString title = titleOf(panelId);
    // Deliberate: a panel without a title still shows its count, and then nothing else.
    if (count >= 1)
        title += QStringLiteral(" (%1)").arg(WB::formatIntNumber(count, 0, WB::FormatNumberFlags()));
    return title;
}

} // namespace TC
