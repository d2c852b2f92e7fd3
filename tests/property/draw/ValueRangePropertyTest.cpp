// SPDX-License-Identifier: MIT
#include "draw/CDrawStyle.h"
#include "tests/support/DamagedFormula.h"
#include "tests/support/Seeds.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>

namespace {

using Cache = TC::RPCFormulaResultCache;

template <class Value>
const Value* at(const std::vector<Value>& values, long long index)
{
    return index >= 0 && index < static_cast<long long>(values.size())
        ? &values[static_cast<std::size_t>(index)]
        : nullptr;
}

/// A plain, slow statement of the range of all outputs: one bar, one column at a time.
struct PlainRange
{
    double max, min;
    bool counted = false;

    void count(double value)
    {
        max = counted ? std::max(max, value) : value;
        min = counted ? std::min(min, value) : value;
        counted = true;
    }

    void scan(const Cache& cache, int start, int end, bool countZero, double scale)
    {
        const auto& meta = cache.meta;
        const auto& result = cache.result;
        if (result.barTimes.empty() || result.columnType.empty() || result.barValid.empty()) {
            max = min = 0.0;
            return;
        }
        for (long long output = 0; output < std::min<long long>(meta.outputCount, 100); ++output) {
            const int *type = at(meta.drawType, output), *width = at(meta.lineWidth, output);
            const auto* columns = at(meta.outputColumns, output);
            if (!type || !width || *width == 0 || *type == 31 || !columns)
                continue;
            for (std::size_t k = 0; k < columns->size(); ++k) {
                if ((*type == 42 && k > 0) || (*type == 13 && k > 1))
                    continue;
                scanColumn(cache, *type, *columns, (*columns)[k], start, end, countZero, scale);
            }
        }
    }

    static const double* value(const Cache& cache, int column, long long bar)
    {
        const int* series = at(cache.result.columnSeries, column);
        const auto* values = series ? at(cache.result.numberSeries, *series) : nullptr;
        return values ? at(*values, bar) : nullptr;
    }

    void scanColumn(const Cache& cache, int drawType, const std::vector<int>& columns, int column, int start,
                    int end, bool countZero, double scale)
    {
        const int *type = at(cache.result.columnType, column),
                  *axis = at(cache.result.columnNeedsAxis, column);
        if (!type || !axis || *type == 3 || *axis == 0)
            return;
        const long long last =
            std::min<long long>(end, static_cast<long long>(cache.result.barTimes.size()) - 1);
        for (long long bar = std::max(start, 0); bar <= last; ++bar) {
            const int* valid = at(cache.result.barValid, bar);
            const double* own = value(cache, column, bar);
            if (!own)
                break;
            if (!valid || *valid == 0)
                continue;
            const double* gate = drawType == 13 ? value(cache, columns[0], bar) : nullptr;
            if (drawType == 13 && (!gate || *gate == 0.0))
                continue;
            if (*type >= 2 && *type != 200) {
                if (*type == 2 && drawType == 37) {
                    max = std::max(max, 1.0);
                    min = std::min(min, 0.0);
                    counted = true;
                }
                continue;
            }
            double number = *own;
            if (drawType == 42) {
                number = 0.0;
                for (int each : columns)
                    number += value(cache, each, bar) ? *value(cache, each, bar) : 0.0;
            }
            number *= scale;
            if (std::isfinite(number) && number != DBL_MAX && (countZero || std::abs(number) > 1e-5))
                count(number);
        }
    }
};

} // namespace

TEST(CalcMaxMin, AgreesWithAPlainStatementOnDamagedRecords)
{
    for (int drawType : { 0, 13, 31, 37, 42 }) {
        for (const unsigned seed : test::seedsFor("value_range", 600)) {
            SCOPED_TRACE(testing::Message() << "draw type " << drawType << " seed " << seed);
            test::DamagedFormula formula(seed, drawType, 3);
            const bool countZero = formula.flag(), useScale = formula.flag();
            if (drawType == 37 && !formula.cache().result.columnType.empty())
                formula.cache().result.columnType.front() = 2;
            PlainRange plain { 55.0, -55.0 };
            plain.scan(formula.cache(), formula.start(), formula.end(), countZero, useScale ? 0.5 : 1.0);
            double max = 55.0, min = -55.0;
            const bool counted =
                TC::CDrawStyle::calcMaxMin(max, min, formula.start(), formula.end(), formula.cache(), QRect(),
                                           countZero, useScale, 0.5f);
            EXPECT_EQ(counted, plain.counted);
            EXPECT_EQ(max, plain.max);
            EXPECT_EQ(min, plain.min);
            TC::CDrawStyle::calcMaxMin(max, min, formula.start(), formula.end(), formula.cache(),
                                       formula.output(), QRect());
        }
    }
}
