// SPDX-License-Identifier: MIT
/// @file Composition of a formula's legend: which pieces, in which order and colour.

#include "draw/CDrawStyle.h"

#include "data/internal/RecordViews.h"
#include "draw/internal/Pens.h"
#include "host/TC/Instruments.h"
#include "host/WB/NumberFormat.h"
#include "host/WB/SkinLookup.h"
#include "host/WB/TextConversion.h"
#include "host/ttservice/CInstrumentDetail.h"
#include "host/utils/LocalDateTime.h"
#include "title/internal/LegendRows.h"

#include <algorithm>

namespace TC {

using namespace detail;

namespace {

using Pieces = QList<QPair<int, ArrowColorTextData>>;

QString invalidText()
{
    return QStringLiteral("非法值");
}

bool isOneOf(const QString& text, std::initializer_list<QStringView> names)
{
    return std::any_of(names.begin(), names.end(), [&](QStringView name) { return text == name; });
}

/// Composes the legend of one formula at one bar.
class LegendWriter
{
public:
    LegendWriter(const CFormulaKey& key, const RPCFormulaResultCache& cache, int bar, const Instrument& stock,
                 bool mainChart)
        : m_key(key)
        , m_cache(cache)
        , m_bar(bar)
        , m_stock(stock)
        , m_mainChart(mainChart)
    {
    }

    void addOutput(int output);
    const Pieces& pieces() const { return m_pieces; }

private:
    struct Entry
    {
        int output;
        QString outputName; ///< as the formula gives it
        QString label;      ///< what stands before the value
        QColor color;
        double value;
    };

    bool isInterestHidden(const QString& label) const;
    void addNumber(const Entry& entry, int drawType);
    void addSubLines(const Entry& entry);
    QString numberText(const Entry& entry) const;
    int arrow(int output, int subLine) const
    {
        return CDrawStyle::getTitleArrow(m_cache.result, m_cache.meta, m_bar, m_key, output, subLine);
    }
    void add(int output, const QString& text, const QColor& color, int arrowType, int position = -1)
    {
        const auto piece = qMakePair(output, CArrowColorSimpleText::buildTextColor(text, color, arrowType));
        m_pieces.insert(position < 0 ? m_pieces.size() : position, piece);
    }

    const CFormulaKey& m_key;
    const RPCFormulaResultCache& m_cache;
    int m_bar;
    const Instrument& m_stock;
    bool m_mainChart;
    Pieces m_pieces;
    int m_changePosition = -1; ///< where change pieces and turnover are inserted; -1 before the first
};

/// Open interest is shown for futures and for the options of the two stock exchanges.
bool LegendWriter::isInterestHidden(const QString& label) const
{
    const std::string market = getDetailMarket(m_stock);
    if (!label.contains(QStringLiteral("持仓量")) || m_key.formulaName != QStringLiteral("KLINE")
        || market.empty())
        return false;
    return !(CDrawStyle::isCommodityFuturesMarket(market) || market == "IF" || market == "CFFEX"
             || market == "INE" || m_stock->market == "SHO" || m_stock->market == "SZO");
}

void LegendWriter::addOutput(int output)
{
    const OutputView view(m_cache, output);
    const int drawType = view.entry(&se::RPCFormulaMetaResult::drawType).value_or(0);
    const std::optional<int> kind = view.entry(&se::RPCFormulaMetaResult::valueKind);
    const std::optional<int> packedColor = outputColor(view);
    const std::string* name = elementAt(m_cache.meta.outputNames, output);
    if (!hasLegendValue(drawType) || !kind || !packedColor || !name)
        return;

    // The marks are looked for in order and in what is left: a name that "__noname" has emptied does not
    // contain "__noshow" any more.
    const QString outputName = WB::sToQs(*name);
    QString label = QStringLiteral("%1: ").arg(outputName);
    if (label.contains(QStringLiteral("__noname")))
        label.clear();
    if (label.contains(QStringLiteral("__noshow")) || label.contains(QStringLiteral("fucknoname"))
        || isInterestHidden(label))
        return;

    const QColor color = fromPacked(*packedColor);
    if (*kind == se::ValueKind::Text) {
        if (const std::string* value = view.column(0).text(m_bar))
            add(output, label + WB::sToQs(*value) + QLatin1Char(' '), color, 0);
        return;
    }
    const std::optional<double> value = view.column(0).number(m_bar);
    if (!value)
        return;
    switch (*kind) {
    case se::ValueKind::Number: addNumber({ output, outputName, label, color, *value }, drawType); break;
    case se::ValueKind::Integer:
        add(output, label + WB::formatIntNumber(toPixel(*value), 0, {}) + QLatin1Char(' '), color,
            arrow(output, 0));
        break;
    case se::ValueKind::Signal:
        add(output, label + (*value > 0.0 ? QStringLiteral(" 1 ") : QStringLiteral(" 0 ")), color, 0);
        break;
    default: break;
    }
}

/// Deliberate: the name is compared as the formula gives it, whatever became of the label.
QString LegendWriter::numberText(const Entry& entry) const
{
    if (isOneOf(entry.outputName, { u"成交量", u"成交额" }) || !m_mainChart)
        return WB::formatDoubleNumber(entry.value, 3, utils::EFormatNumber_Large, false, invalidText());
    constexpr int usual = 2, exchangeRate = 4;
    int precision = usual;
    if (m_key.instrumentKey.startsWith(QStringLiteral("ED")))
        precision = exchangeRate;
    else if (m_stock && isOneOf(entry.outputName, { u"高", u"开", u"低", u"收", u"最新价", u"均价" }))
        precision = CDrawStyle::priceTick2Precision(getDetailPriceTick(m_stock));
    return WB::formatDoubleNumber(entry.value, precision, {}, false, invalidText());
}

void LegendWriter::addNumber(const Entry& entry, int drawType)
{
    const int arrowType = arrow(entry.output, 0);
    const char* const byArrow = arrowType == 1 ? kRiseColor : kFallColor;
    const QColor changeColor = arrowType == 1 || arrowType == 2 ? WB::skinColor(byArrow) : entry.color;
    const auto percent = [&] {
        return WB::formatDoubleNumber(entry.value, 2, utils::EFormatNumber_Percent, false, invalidText())
            + QLatin1Char(' ');
    };
    const auto usual = [&] { return entry.label + numberText(entry) + QLatin1Char(' '); };

    if (entry.outputName == QStringLiteral("涨跌")) {
        const QString text = (entry.value > 0.0 ? QStringLiteral("涨(") : QStringLiteral("跌("))
            + numberText(entry) + QLatin1Char(')');
        add(entry.output, text, changeColor, arrowType, m_changePosition);
        m_changePosition = m_changePosition < 0 ? m_pieces.size() : m_changePosition + 1;
    } else if (entry.outputName == QStringLiteral("涨跌百分比")) {
        // Deliberate: neither this nor the turnover moves the position on, so that a turnover computed
        // after the percentage lands before it.
        add(entry.output, percent(), changeColor, arrowType, m_changePosition);
    } else if (entry.outputName == QStringLiteral("振幅")) {
        add(entry.output, QStringLiteral("振幅:") + percent(), changeColor, arrowType);
    } else if (drawType == se::DrawType::StackedVolume) {
        addSubLines(entry);
    } else if (entry.outputName == QStringLiteral("成交额")) {
        add(entry.output, usual(), entry.color, arrowType, m_changePosition);
    } else {
        add(entry.output, usual(), entry.color, arrowType);
    }
}

void LegendWriter::addSubLines(const Entry& entry)
{
    const QStringList names = entry.outputName.split(QLatin1Char(','), Qt::SkipEmptyParts);
    const OutputView view(m_cache, entry.output);
    for (int subLine = 0; subLine < view.columnCount(); ++subLine) {
        const std::optional<double> value = view.column(subLine).number(m_bar);
        if (!value)
            continue;
        const QString text = QStringLiteral("%1: ").arg(names.value(subLine))
            + WB::formatDoubleNumber(*value, 2, {}, false, invalidText()) + QLatin1Char(' ');
        add(entry.output, text, entry.color, arrow(entry.output, subLine));
    }
}

/// The bar to show; empty when there is none or it carries nothing.
std::optional<int> shownBar(const se::RPCFormulaResult& result, int index,
                            const boost::shared_ptr<CKLineUiParam>& klineParam)
{
    const int count = barTotal(result);
    long long bar = index;
    if (klineParam && klineParam->hostCount > 0)
        bar -= static_cast<long long>(klineParam->barCount) - count;
    // Deliberate: a bar before the first one shows the last one, as a bar past the end does.
    if (bar < 0 || bar >= count)
        bar = count - 1;
    const int shown = static_cast<int>(bar);
    return isValidBar(result, shown) ? std::optional<int>(shown) : std::nullopt;
}

/// The single piece of an overlaid instrument: its name and the first output's value.
Pieces overlaidPieces(const CFormulaKey& key, const RPCFormulaResultCache& cache, int bar,
                      const QList<Instrument>& addStocks)
{
    constexpr int byTick = -1, overlaid = -1;
    const Instrument instrument = findInstrument(addStocks, key.instrumentKey);
    const OutputView first(cache, 0);
    const std::optional<double> value = first.column(0).number(bar);
    const std::optional<int> color = outputColor(first);
    if (!instrument || !value || !color)
        return {};
    const QString text = QLatin1Char('[') + getDetailQsName(instrument) + QLatin1Char(' ')
        + CDrawStyle::toStringByPrec(byTick, *value, getDetailPriceTick(instrument)) + QLatin1Char(']');
    return { qMakePair(overlaid, CArrowColorSimpleText::buildTextColor(text, fromPacked(*color), 0)) };
}

} // namespace

QList<QPair<int, ArrowColorTextData>> CDrawStyle::getTitleTextData(
    CFormulaKey key, const RPCFormulaResultCache& cache, int index,
    std::shared_ptr<ttservice::CInstrumentDetail>& stock,
    QList<std::shared_ptr<ttservice::CInstrumentDetail>>& addStocks, bool mainChart,
    boost::shared_ptr<CKLineUiParam> klineParam)
{
    if (!findFormula(key.formulaName))
        return {};
    const std::optional<int> bar = shownBar(cache.result, index, klineParam);
    if (!bar)
        return {};
    if (stock && mainChart && getDetailQsKey(stock) != key.instrumentKey)
        return overlaidPieces(key, cache, *bar, addStocks);

    LegendWriter writer(key, cache, *bar, stock, mainChart);
    const int described = static_cast<int>(std::min<std::size_t>(cache.meta.drawType.size(), INT_MAX));
    for (int output = 0; output < cache.meta.outputCount && output < described; ++output)
        writer.addOutput(output);
    return writer.pieces();
}

CArrowColorSimpleText CDrawStyle::getTitleText(
    CFormulaKey key, const RPCFormulaResultCache& cache, int index,
    std::shared_ptr<ttservice::CInstrumentDetail>& stock,
    QList<std::shared_ptr<ttservice::CInstrumentDetail>>& addStocks, bool mainChart,
    boost::shared_ptr<CKLineUiParam> klineParam)
{
    return buildTitleText(getTitleTextData(key, cache, index, stock, addStocks, mainChart, klineParam));
}

CArrowColorSimpleText CDrawStyle::buildTitleText(const QList<QPair<int, ArrowColorTextData>>& pieces)
{
    CArrowColorSimpleText text(QString::fromLatin1(kTitleFont));
    for (const auto& piece : pieces)
        text.setTextColor(piece.second.text, piece.second.color, piece.second.arrowType);
    return text;
}

bool CDrawStyle::getFormulaText(boost::shared_ptr<CFormulaDetail> formula, QString& text)
{
    if (!formula)
        return false;
    QStringList params;
    for (const double param : qAsConst(formula->numberParams))
        params.append(QString::number(param, 'g', 6));
    params += formula->stringParams;
    text = params.isEmpty()
        ? formula->displayName
        : formula->displayName + QLatin1Char('(') + params.join(QLatin1Char(',')) + QLatin1Char(')');
    return true;
}

bool CDrawStyle::isPromptDay(long long msecs)
{
    constexpr int firstDay = 21;
    // Deliberate: the seconds are taken as an unsigned 32-bit number: one second before 1970 is in 2106.
    const auto seconds = static_cast<quint32>(msecs / 1000);
    const QDate date = utils::localDateTime(qint64 { seconds } * 1000).date();
    return date.dayOfWeek() == Qt::Friday && date.day() >= firstDay;
}

} // namespace TC
