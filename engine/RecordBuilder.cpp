#include "engine/RecordBuilder.h"

namespace engine {

namespace {

constexpr int kNumberColumn = 1, kTextColumn = 3;

} // namespace

RecordBuilder::RecordBuilder(const std::vector<std::int64_t>& timesMs)
{
    m_records.result.barTimes.reserve(timesMs.size());
    for (std::int64_t time : timesMs)
        m_records.result.barTimes.push_back({ time, 0 });
    m_records.result.barValid.assign(timesMs.size(), 1);
}

int RecordBuilder::series(Series values)
{
    m_records.result.numberSeries.push_back(std::move(values));
    return static_cast<int>(m_records.result.numberSeries.size()) - 1;
}

int RecordBuilder::column(Series values, bool onAxis)
{
    se::RPCFormulaResult& result = m_records.result;
    result.columnSeries.push_back(series(std::move(values)));
    result.columnType.push_back(kNumberColumn);
    result.columnNeedsAxis.push_back(onAxis ? 1 : 0);
    return static_cast<int>(result.columnSeries.size()) - 1;
}

int RecordBuilder::textColumn(std::vector<std::string> texts)
{
    se::RPCFormulaResult& result = m_records.result;
    result.columnSeries.push_back(static_cast<int>(result.textSeries.size()));
    result.textSeries.push_back(std::move(texts));
    result.columnType.push_back(kTextColumn);
    result.columnNeedsAxis.push_back(0);
    return static_cast<int>(result.columnSeries.size()) - 1;
}

void RecordBuilder::output(const std::string& name, std::vector<int> columns, const OutputStyle& style)
{
    se::RPCFormulaMetaResult& meta = m_records.meta;
    ++meta.outputCount;
    meta.outputNames.push_back(name);
    meta.outputColumns.push_back(std::move(columns));
    meta.drawType.push_back(static_cast<int>(style.drawType));
    meta.color.push_back(style.color < 0 ? 0 : style.color);
    meta.colorSet.push_back(style.color < 0 ? 0 : 1);
    meta.lineStyle.push_back(0);
    meta.lineWidth.push_back(style.lineWidth);
    meta.position.push_back(style.position);
    meta.valueKind.push_back(style.valueKind);
}

} // namespace engine
