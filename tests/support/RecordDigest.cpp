// SPDX-License-Identifier: MIT
#include "tests/support/RecordDigest.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>

namespace test {

namespace {

/// FNV-1a over 64 bits.
class Digest
{
public:
    void add(const void* bytes, std::size_t size)
    {
        for (std::size_t index = 0; index < size; ++index)
            m_hash = (m_hash ^ static_cast<const unsigned char*>(bytes)[index]) * 0x100000001B3ULL;
    }

    void add(const std::string& text)
    {
        add(static_cast<int>(text.size()));
        add(text.data(), text.size());
    }

    void add(int number) { add(&number, sizeof number); }

    void add(double number)
    {
        const bool isMissing = !(std::abs(number) < std::numeric_limits<double>::max());
        const double written = isMissing ? std::numeric_limits<double>::max() : number + 0.0; // no -0
        add(&written, sizeof written);
    }

    std::string text() const
    {
        char hex[17];
        std::snprintf(hex, sizeof hex, "%016llx", static_cast<unsigned long long>(m_hash));
        return hex;
    }

private:
    std::uint64_t m_hash = 0xCBF29CE484222325ULL;
};

} // namespace

std::string digestOf(const engine::FormulaRecords& records)
{
    const auto& [meta, result] = records;
    Digest digest;
    for (std::size_t output = 0; output < meta.outputNames.size(); ++output) {
        digest.add(meta.outputNames[output]);
        for (const int part : { meta.drawType[output], meta.colorSet[output],
                                meta.colorSet[output] > 0 ? meta.color[output] : 0, meta.lineStyle[output],
                                meta.lineWidth[output], meta.position[output], meta.valueKind[output] })
            digest.add(part);
        for (const int position : meta.outputColumns[output]) {
            const auto column = static_cast<std::size_t>(position);
            const auto series = static_cast<std::size_t>(result.columnSeries[column]);
            digest.add(result.columnType[column]);
            digest.add(result.columnNeedsAxis[column]);
            if (result.columnType[column] == 3) {
                for (const std::string& text : result.textSeries[series])
                    digest.add(text);
            } else {
                for (const double value : result.numberSeries[series])
                    digest.add(value);
            }
        }
    }
    return digest.text();
}

} // namespace test
