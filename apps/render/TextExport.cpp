// SPDX-License-Identifier: MIT
#include "apps/render/TextExport.h"

#include "apps/base/WholeFile.h"
#include "apps/chart/ExportText.h"
#include "apps/chart/NamedFormula.h"

#include <algorithm>

namespace render {

namespace {

constexpr std::size_t kStretch = 16'384; // bars

/// The text of formulas over bars, a stretch after the other: together what the library makes of all bars.
class TextStretches
{
public:
    /// @param isPane  the formulas of a pane, side by side; else one formula by itself.
    TextStretches(const engine::BarSeries& bars, const QStringList& formulas, bool isPane, bool withTime)
        : m_bars(bars)
        , m_isPane(isPane)
        , m_withTime(withTime)
    {
        for (const QString& formula : formulas)
            m_evaluations.push_back(chart::evaluationOfNamed(formula));
    }

    /// The text of the next stretch into `text`. @return false behind the last.
    base::Result<bool> next(std::string& text)
    {
        if (m_done == m_bars.size() || m_isOver)
            return false;
        const std::size_t end = std::min(m_done + kStretch, m_bars.size());
        std::vector<se::RPCFormulaResult> results;
        std::vector<se::RPCFormulaMetaResult> metas;
        for (const auto& evaluation : m_evaluations) {
            if (!evaluation || !evaluation->advance(m_bars, m_done, end))
                return base::Failure { QStringLiteral("--export: the formulas take too much memory") };
            results.push_back(evaluation->records().result);
            metas.push_back(evaluation->records().meta);
        }
        text = textOf(results, metas);
        m_done = end;
        return true;
    }

private:
    std::string textOf(std::vector<se::RPCFormulaResult>& results,
                       std::vector<se::RPCFormulaMetaResult>& metas)
    {
        const bool isFirst = m_done == 0;
        if (m_isPane) { // its first bar decides for all whether there are rows
            std::vector<int>& valid = results.front().barValid;
            m_isOver = isFirst && valid.front() == 0;
            valid.front() = valid.front() != 0 || !isFirst;
        }
        std::string text = m_isPane ? m_library.getResultTxtStr(results, metas, m_withTime)
                                    : m_library.getResultTxtStr(results.front(), metas.front(), m_withTime);
        if (!isFirst)
            text.erase(0, text.find('\n') + 1); // the names stand above the first stretch
        return chart::withoutMissing(text);
    }

    const engine::BarSeries& m_bars;
    const bool m_isPane, m_withTime;
    std::vector<std::unique_ptr<engine::FormulaEvaluation>> m_evaluations;
    TC::IndexBaseData m_library { nullptr };
    std::size_t m_done = 0; ///< bars
    bool m_isOver = false;
};

base::Result<void> finished(base::WholeFile& file)
{
    if (const auto fault = file.finish())
        return base::Failure { fault->english() };
    return {};
}

base::Result<void> writeBars(const Options& options, const engine::BarSeries& bars, const QString& one,
                             const QStringList& pane)
{
    TextStretches stretches(bars, one.isEmpty() ? pane : QStringList(one), one.isEmpty(), options.withTime);
    base::WholeFile file(options.exportTo);
    for (std::string text;;) {
        base::Result<bool> isMore = stretches.next(text);
        if (!isMore.isGood())
            return isMore.failure();
        if (!*isMore || !file.append(text.data(), text.size()))
            return finished(file);
    }
}

base::Result<void> writeTrades(const Options& options, chart::PaneResults& pane, const QString& one)
{
    const std::string text = pane.exported(one, options.withTime);
    base::WholeFile file(options.exportTo);
    file.append(text.data(), text.size());
    return finished(file);
}

base::Result<void> writePane(const Options& options, LoadedChart& chart, chart::PaneResults& pane,
                             const QString& one)
{
    return chart.bars ? writeBars(options, *chart.bars, one, pane.getFormulas())
                      : writeTrades(options, pane, one);
}

} // namespace

base::Result<void> writeExport(const Options& options, LoadedChart& chart)
{
    const bool isOwn = !chart.ownFormula.isEmpty() && options.exportOne.isEmpty() && options.panes.empty();
    if (isOwn) {
        for (chart::PaneResults& pane : chart.results) {
            if (pane.getFormulas().contains(chart.ownFormula))
                return writePane(options, chart, pane, chart.ownFormula);
        }
    }
    chart::PaneResults& pane = chart.results.front();
    if (!options.exportOne.isEmpty() && !pane.getFormulas().contains(options.exportOne))
        return base::Failure {
            QStringLiteral("--export-one: the first pane has no formula \"%1\"").arg(options.exportOne)
        };
    return writePane(options, chart, pane, options.exportOne);
}

} // namespace render
