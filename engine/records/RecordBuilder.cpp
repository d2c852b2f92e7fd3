// SPDX-License-Identifier: MIT
#include "engine/records/RecordBuilder.h"

namespace engine {

void RecordBuilder::setBars(const std::vector<std::int64_t>& timeMs, const Series& price)
{
    se::RPCFormulaResult& result = m_records.result;
    result.barTimes.resize(timeMs.size());
    result.barValid.resize(timeMs.size());
    for (std::size_t bar = 0; bar < timeMs.size(); ++bar) {
        result.barTimes[bar].msecs = timeMs[bar];
        result.barValid[bar] = !isMissing(valueOrMissing(price[bar]));
    }
}

int RecordBuilder::series(Series values)
{
    m_records.result.numberSeries.push_back(std::move(values));
    return static_cast<int>(m_records.result.numberSeries.size()) - 1;
}

int RecordBuilder::texts(std::vector<std::string> values)
{
    m_records.result.textSeries.push_back(std::move(values));
    return static_cast<int>(m_records.result.textSeries.size()) - 1;
}

RecordBuilder& RecordBuilder::output(const std::string& name, se::DrawType::Code drawType)
{
    se::RPCFormulaMetaResult& meta = m_records.meta;
    ++meta.outputCount;
    meta.outputNames.push_back(name);
    meta.outputColumns.emplace_back();
    meta.drawType.push_back(drawType);
    meta.color.push_back(0);
    meta.colorSet.push_back(0);
    meta.lineStyle.push_back(se::LineStyle::Solid);
    meta.lineWidth.push_back(1);
    meta.position.push_back(se::Position::CentredOnPoint);
    meta.valueKind.push_back(se::ValueKind::Number);
    return *this;
}

RecordBuilder& RecordBuilder::column(int series, Axis axis)
{
    se::RPCFormulaResult& result = m_records.result;
    m_records.meta.outputColumns.back().push_back(static_cast<int>(result.columnSeries.size()));
    result.columnSeries.push_back(series);
    result.columnType.push_back(se::ColumnType::Number);
    result.columnNeedsAxis.push_back(axis == Axis::Yes);
    return *this;
}

RecordBuilder& RecordBuilder::textColumn(int texts)
{
    column(texts, Axis::No);
    m_records.result.columnType.back() = se::ColumnType::Text;
    return *this;
}

RecordBuilder& RecordBuilder::legendOnly(const std::string& name, int series)
{
    return output(name, se::DrawType::Line).column(series, Axis::No).width(0);
}

RecordBuilder& RecordBuilder::flags()
{
    m_records.result.columnType.back() = se::ColumnType::Flag;
    return *this;
}

RecordBuilder& RecordBuilder::style(int code)
{
    m_records.meta.lineStyle.back() = code;
    return *this;
}

RecordBuilder& RecordBuilder::width(int pixels)
{
    m_records.meta.lineWidth.back() = pixels;
    return *this;
}

RecordBuilder& RecordBuilder::color(int packed)
{
    m_records.meta.color.back() = packed;
    m_records.meta.colorSet.back() = 1;
    return *this;
}

RecordBuilder& RecordBuilder::position(int code)
{
    m_records.meta.position.back() = code;
    return *this;
}

RecordBuilder& RecordBuilder::valueKind(se::ValueKind::Code kind)
{
    m_records.meta.valueKind.back() = kind;
    return *this;
}

} // namespace engine
