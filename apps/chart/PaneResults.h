#pragma once
/// @file Results of a pane that are computed at once instead of asked for.

#include "data/IndexBaseData.h"
#include "engine/Formulas.h"

namespace chart {

/// Holds a pane's formulas with their results.
class PaneResults : public TC::IndexBaseData
{
public:
    PaneResults()
        : TC::IndexBaseData(nullptr)
    {
    }

    /// Adds a formula behind the others, or replaces its records.
    void add(const TC::CFormulaKey& key, engine::FormulaRecords records)
    {
        if (!m_formulas.contains(key.formulaName))
            m_formulas << key.formulaName;
        TC::RPCFormulaResultCache& cache = m_data[key];
        cache.meta = std::move(records.meta);
        cache.result = std::move(records.result);
    }

    /// Forgets every formula.
    void clear()
    {
        m_formulas.clear();
        m_data.clear();
    }

    /// Records of a formula; null when it was not added.
    TC::RPCFormulaResultCache* recordsOf(const TC::CFormulaKey& key)
    {
        const auto found = m_data.find(key);
        return found == m_data.end() ? nullptr : &found.value();
    }
};

} // namespace chart
