// SPDX-License-Identifier: MIT
#pragma once
/// @file A pane's data holder, open to tests.

#include "data/IndexBaseData.h"
#include "tests/support/Legend.h"

#include <boost/thread/lock_types.hpp>

#include <future>

namespace test {

/// Derives as the client's panes do and opens what they fill.
class Pane : public TC::IndexBaseData
{
public:
    explicit Pane(WB::CEventDeliverer* parent = nullptr)
        : IndexBaseData(parent)
    {
    }

    /// Adds an instance and makes its formula known.
    void add(const QString& formula, const TC::RPCFormulaResultCache& cache,
             const QString& instrumentKey = QStringLiteral("SH600000"))
    {
        knowFormula(formula);
        m_data[TC::CFormulaKey(instrumentKey, formula)] = cache;
        if (!m_formulas.contains(formula))
            m_formulas.append(formula);
    }
    void clearAll()
    {
        m_data.clear();
        m_formulas.clear();
    }

    /// Whether another thread could take the data lock now.
    bool isDataLockFree()
    {
        const auto tryIt = [this] {
            return boost::unique_lock<boost::recursive_mutex>(m_dataLock, boost::try_to_lock).owns_lock();
        };
        return std::async(std::launch::async, tryIt).get();
    }

    using IndexBaseData::m_data;
    using IndexBaseData::m_dataLock;
    using IndexBaseData::m_formulas;
    using IndexBaseData::m_marks;
    using IndexBaseData::m_maxMinMap;
    using IndexBaseData::m_requests;
    using IndexBaseData::m_secondNames;
    using IndexBaseData::m_spans;
    using IndexBaseData::m_word;
    using IndexBaseData::updateStrategyBacktestData;
};

} // namespace test
