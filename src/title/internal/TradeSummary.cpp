// SPDX-License-Identifier: MIT
/// @file The user's own trading as legend texts.

#include "title/internal/TradeSummary.h"

#include "draw/internal/Pens.h"
#include "host/WB/NumberFormat.h"
#include "title/internal/LegendRows.h"
#include "title/internal/TextShapes.h"

namespace TC::detail {

namespace {

constexpr const char* kLabelColor = "clr_stock_index";
constexpr const char* kSummaryRiseColor = "ic_clr_index_default_rise";
constexpr const char* kSummaryFallColor = "ic_clr_index_default_fall";

/// Collects the texts; keeps track of the bracket around the group that is being written.
class SummaryWriter
{
public:
    void add(const QString& text, const QColor& color)
    {
        m_texts.append(CArrowColorSimpleText::buildTextColor(text, color, 0));
    }
    void label(const QString& text) { add(text, WB::skinColor(kLabelColor)); }
    void amount(double value, const QColor& color)
    {
        add(WB::formatDoubleNumber(value, 2, utils::EFormatNumber_Large, false, QStringLiteral("非法值")),
            color);
    }
    void open(const QString& bracket)
    {
        if (!m_isOpen)
            label(bracket);
        m_isOpen = true;
    }
    void close()
    {
        if (m_isOpen)
            label(QStringLiteral("]"));
        m_isOpen = false;
    }
    const QVector<ArrowColorTextData>& texts() const { return m_texts; }

private:
    QVector<ArrowColorTextData> m_texts;
    bool m_isOpen = false;
};

/// Colour of a signed amount; an amount that is not a number has neither sign.
QColor signColor(double value, const char* riseKey)
{
    if (value > kTolerance)
        return WB::skinColor(riseKey);
    return WB::skinColor(value < -kTolerance ? kSummaryFallColor : kLabelColor);
}

void writeAmounts(SummaryWriter& writer, const TradeSummary& trading)
{
    const QString bracket = QStringLiteral("[");
    if (!isZero(trading.totalBuyAmount) || !isZero(trading.totalSellAmount)) {
        // Deliberate: this label carries its bracket and a blank; the others open with a label of their own.
        writer.open(QStringLiteral(" [总买额:"));
        writer.amount(trading.totalBuyAmount, WB::skinColor("tc_clr_total_buyamount"));
        writer.label(QStringLiteral("总卖额:"));
        writer.amount(trading.totalSellAmount, WB::skinColor("tc_clr_total_sellamount"));
    }
    if (!isZero(trading.netBuyAmount)) {
        writer.open(bracket);
        writer.label(QStringLiteral("净买额:"));
        writer.amount(trading.netBuyAmount, signColor(trading.netBuyAmount, "tc_clr_buyamount"));
    }
    if (!isZero(trading.profitLoss)) {
        writer.open(bracket);
        writer.label(QStringLiteral("盈亏:"));
        writer.amount(trading.profitLoss, signColor(trading.profitLoss, kSummaryRiseColor));
    }
    if (!isZero(trading.balanceAmount)) {
        writer.open(bracket);
        writer.label(QStringLiteral("配平:"));
        writer.amount(trading.balanceAmount, QColor(255, 128, 0, 192));
    }
    writer.close();
}

void writeVolume(SummaryWriter& writer, int volume, double averagePrice, double priceTick, const char* color)
{
    writer.add(QString::number(volume), WB::skinColor(color));
    writer.label(QStringLiteral("均价:"));
    // Averages lie between two ticks: one decimal more than prices have.
    writer.add(WB::formatPriceDoubleNumber(averagePrice, priceTick / 10.0), WB::skinColor(color));
}

void writeVolumes(SummaryWriter& writer, const TradeSummary& trading, double priceTick)
{
    if (trading.buyVolume != 0) {
        writer.open(QStringLiteral(" [买量:"));
        writeVolume(writer, trading.buyVolume, trading.buyAvgPrice, priceTick, kSummaryRiseColor);
    }
    if (trading.sellVolume != 0) {
        if (trading.buyVolume != 0)
            writer.label(QStringLiteral("卖量:"));
        else
            writer.open(QStringLiteral(" [卖量:"));
        writeVolume(writer, trading.sellVolume, trading.sellAvgPrice, priceTick, kSummaryFallColor);
    }
    writer.close();
}

void writeAccounts(SummaryWriter& writer, const TradeSummary& trading)
{
    for (int account = 0; account < trading.accounts.size(); ++account) {
        writer.label(account == 0 ? QStringLiteral(" [账号:") : QStringLiteral(" 账号:"));
        writer.add(trading.accounts.at(account),
                   WB::skinColor("ic_clr_realtime_title_account_position_text"));
        if (account < trading.positions.size() && account < trading.positionFlags.size()) {
            writer.label(QStringLiteral(" 持仓:"));
            writer.add(QString::number(trading.positions.at(account)),
                       WB::skinColor(trading.positionFlags.at(account) != 0 ? kSummaryRiseColor
                                                                            : kSummaryFallColor));
        }
    }
    if (!trading.accounts.isEmpty())
        writer.label(QStringLiteral("]"));
}

} // namespace

QVector<ArrowColorTextData> summaryTexts(const TradeSummary& trading, double priceTick)
{
    SummaryWriter writer;
    writeAmounts(writer, trading);
    writeVolumes(writer, trading, priceTick);
    writeAccounts(writer, trading);
    return writer.texts();
}

int summaryTextWidth(const QString& text)
{
    return saturatedSum(textWidth(text, WB::skinFont(kTitleFont)), kLegendGap);
}

TradeSummary fitSummary(TradeSummary trading, const QRect& area, int x, double priceTick)
{
    const auto fits = [&] {
        long long end = x;
        const QVector<ArrowColorTextData> texts = summaryTexts(trading, priceTick);
        for (const ArrowColorTextData& text : texts)
            end += summaryTextWidth(text.text);
        return end <= area.right() + 1LL && kSummaryTop + kLegendRowHeight <= area.height();
    };
    while (!fits() && !trading.accounts.isEmpty())
        trading.accounts.removeLast();
    if (!fits())
        trading.buyVolume = trading.sellVolume = 0;
    if (!fits())
        trading = TradeSummary();
    return trading;
}

} // namespace TC::detail
