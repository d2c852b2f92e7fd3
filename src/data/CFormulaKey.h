// SPDX-License-Identifier: MIT
#pragma once
/// @file What identifies one formula instance of a pane.

#include "indicatorui_export.h"

#include <QString>

namespace TC {

/// A formula computed for one instrument. Two instances of one formula for two instruments of a pane
/// have different keys.
struct INDICATORUI_EXPORT CFormulaKey
{
    CFormulaKey() = default;
    /// A key of both names.
    CFormulaKey(const QString& instrument, const QString& formula)
        : instrumentKey(instrument)
        , formulaName(formula)
    {
    }

    QString instrumentKey; ///< as TC::getDetailQsKey gives it ("SH600000")
    QString formulaName;   ///< display name or real name of the formula
};

/// Exact, case-sensitive comparison of both fields.
inline bool operator==(const CFormulaKey& a, const CFormulaKey& b)
{
    return a.instrumentKey == b.instrumentKey && a.formulaName == b.formulaName;
}

/// Either field differs.
inline bool operator!=(const CFormulaKey& a, const CFormulaKey& b)
{
    return !(a == b);
}

/// Order of the panes' maps: by instrument, then by formula, both by UTF-16 code unit.
inline bool operator<(const CFormulaKey& a, const CFormulaKey& b)
{
    return a.instrumentKey != b.instrumentKey ? a.instrumentKey < b.instrumentKey
                                              : a.formulaName < b.formulaName;
}

} // namespace TC
