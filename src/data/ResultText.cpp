/// @file Results as comma-separated text.

#include "data/IndexBaseData.h"

#include "data/internal/ElementAt.h"
#include "data/internal/LocalClock.h"
#include "data/internal/NumberText.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace TC {

namespace {

using detail::elementAt;
using detail::LocalClock;

enum ColumnType { Fixed = 0, General = 1, Flag = 2, Text = 3 };

/// The series behind an output with one column, looked up once for all its cells.
class ExportedColumn
{
public:
    ExportedColumn(const se::RPCFormulaResult& result, const std::vector<int>& columns)
    {
        const int* column = elementAt(columns, 0);
        const int* series = column ? elementAt(result.columnSeries, *column) : nullptr;
        const int* type = column ? elementAt(result.columnType, *column) : nullptr;
        if (!series || !type)
            return;
        m_type = *type;
        if (m_type == Text)
            m_texts = elementAt(result.textSeries, *series);
        else
            m_numbers = elementAt(result.numberSeries, *series);
    }

    /// Appends a cell. Deliberate: other column types write nothing, not even the comma.
    void append(std::string& text, int bar) const
    {
        if (m_type == Text) {
            if (const std::string* value = m_texts ? elementAt(*m_texts, bar) : nullptr)
                text.append(1, ',').append(*value);
            return;
        }
        const double* value = m_numbers ? elementAt(*m_numbers, bar) : nullptr;
        if (!value || (m_type != Fixed && m_type != General && m_type != Flag))
            return;
        text += ',';
        if (m_type == Fixed)
            detail::appendFixed4(text, *value);
        else
            detail::appendGeneral6(text, *value);
    }

private:
    int m_type = -1;
    const std::vector<double>* m_numbers = nullptr;
    const std::vector<std::string>* m_texts = nullptr;
};

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
            columns.emplace_back(result, *columnsOfOutput);
        }
    }

    void append(std::string& text, int bar) const
    {
        for (const ExportedColumn& column : columns)
            column.append(text, bar);
    }

    bool isValid(int bar) const
    {
        const int* flag = elementAt(result.barValid, bar);
        return flag && *flag != 0;
    }

    int barCount() const { return static_cast<int>(result.barTimes.size()); }

    const se::RPCFormulaResult& result;
    std::vector<ExportedColumn> columns;
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
    detail::appendPadded(text, value, width);
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
    if (const std::vector<int>* columns = elementAt(meta.outputColumns, output))
        ExportedColumn(result, *columns).append(text, bar);
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
