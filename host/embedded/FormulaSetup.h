#pragma once
/// @file Formulas that the embedded formula manager knows.

#include "host/HostExport.h"
#include "host/TC/CFormulaDetail.h"

namespace TC::embedded {

/// Adds a formula, or replaces the one of the same display name.
INDICATORHOST_EXPORT void setFormula(const CFormulaDetail& formula);

/// Forgets every formula.
INDICATORHOST_EXPORT void clearFormulas();

} // namespace TC::embedded
