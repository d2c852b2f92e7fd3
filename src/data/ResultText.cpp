// SPDX-License-Identifier: MIT
/// @file Results as comma-separated text.

#include "data/IndexBaseData.h"

#include "data/internal/LocalClock.h"
#include "data/internal/NumberText.h"
#include "data/internal/RecordViews.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace TC {

using namespace detail;

namespace {

/// Appends a cell. Deliberate: other column types write nothing, not even the comma.
void appendCell(std::string& text, const ColumnView& column, int bar)
{
    if (column.isText()) {
        if (const std::string* value = column.text(bar))
            text.append(1, ',').append(*value);
        return;
    }
    const std::optional<double> value = column.raw(bar);
    if (!value || !column.type())
        return;
    switch (*column.type()) {
    case se::ColumnType::Number: text += ','; return appendFixed4(text, *value);
    case se::ColumnType::Integer:
    case se::ColumnType::Flag: text += ','; return appendGeneral6(text, *value);
    default: return;
    }
}

/// One formula with the columns that it exports.
struct ExportedFormula
{
    ExportedFormula(const se::RPCFormulaResult& itsResult, const se::RPCFormulaMetaResult& meta,
                    std::string& header)
        : result(itsResult)
    {
        for (int output = 0; output < meta.outputCount; ++output) {
            const std::vector<int>* columnsOfOutput = elementAt(meta.outputColumns, output);
            if (!columnsOfOutput)
                break; // no later output has columns either
            if (columnsOfOutput->size() != 1)
                continue;
            const std::string* name = elementAt(meta.outputNames, output);
            header += ',';
            header += name ? *name : std::string();
            columns.emplace_back(result, columnsOfOutput->front());
        }
    }

    void append(std::string& text, int bar) const
    {
        for (const ColumnView& column : columns)
            appendCell(text, column, bar);
    }

    bool isValid(int bar) const
    {
        const int* flag = elementAt(result.barValid, bar);
        return flag && *flag != 0;
    }

    int barCount() const { return static_cast<int>(result.barTimes.size()); }

    const se::RPCFormulaResult& result;
    std::vector<ColumnView> columns;
    int position = 0; ///< next bar to be matched, for the formulas beside the first
};

/// Room for a text of that many rows and cells, so that it grows rarely; no more than any machine has, as the
/// records may promise cells that they do not hold.
void reserveFor(std::string& text, int rows, std::size_t cells)
{
    constexpr std::size_t timeLength = 17, cellLength = 13; // ",-1.23457e+08"
    constexpr std::size_t most = 256u << 20;
    const std::size_t rowLength = timeLength + std::min(cells, most) * cellLength;
    const auto count = std::min(static_cast<std::size_t>(rows), most / rowLength);
    text.reserve(text.size() + count * rowLength);
}

} // namespace

std::string IndexBaseData::getLengthStr(int value, int width)
{
    std::string text;
    appendPadded(text, value, width);
    return text;
}

std::string IndexBaseData::getTimeSlide(int bar, se::RPCFormulaResult& result, bool withTime)
{
    std::string text;
    if (const se::RPCBarTime* time = elementAt(result.barTimes, bar))
        LocalClock().append(text, time->msecs, withTime);
    return text;
}

std::string IndexBaseData::getDataSlide(int output, int bar, se::RPCFormulaResult& result,
                                        se::RPCFormulaMetaResult& meta)
{
    std::string text;
    const std::vector<int>* columns = elementAt(meta.outputColumns, output);
    if (columns && !columns->empty())
        appendCell(text, ColumnView(result, columns->front()), bar);
    return text;
}

std::string IndexBaseData::getResultTxtStr(se::RPCFormulaResult& result, se::RPCFormulaMetaResult& meta,
                                           bool withTime)
{
    std::string text = "时间";
    const ExportedFormula formula(result, meta, text);
    text += '\n';
    reserveFor(text, formula.barCount(), formula.columns.size());
    LocalClock clock;
    for (int bar = 0; bar < formula.barCount(); ++bar) {
        if (!formula.isValid(bar))
            continue;
        clock.append(text, result.barTimes[static_cast<std::size_t>(bar)].msecs, withTime);
        formula.append(text, bar);
        text += '\n';
    }
    return text;
}

std::string IndexBaseData::getResultTxtStr(std::vector<se::RPCFormulaResult>& results,
                                           std::vector<se::RPCFormulaMetaResult>& metas, bool withTime)
{
    std::string text = "时间";
    std::vector<ExportedFormula> formulas;
    for (std::size_t k = 0; k < std::min(results.size(), metas.size()); ++k)
        formulas.emplace_back(results[k], metas[k], text);
    text += '\n';
    // Deliberate: the first bar's validity decides for the whole body; later invalid bars are written.
    if (formulas.empty() || !formulas.front().isValid(0))
        return text;

    const ExportedFormula& master = formulas.front();
    LocalClock clock;
    for (int bar = 0; bar < master.barCount(); ++bar) {
        const std::int64_t time = master.result.barTimes[static_cast<std::size_t>(bar)].msecs;
        clock.append(text, time, withTime);
        master.append(text, bar);
        for (std::size_t k = 1; k < formulas.size(); ++k) {
            ExportedFormula& other = formulas[k];
            const se::RPCBarTime* next = elementAt(other.result.barTimes, other.position);
            // Deliberate: a bar that the master lacks is never passed, so that the rest is missing.
            if (next && next->msecs == time)
                other.append(text, other.position++);
        }
        text += '\n';
    }
    return text;
}

} // namespace TC
