#pragma once
/// @file A pane's results as text.

#include "data/IndexBaseData.h"

#include <QString>

#include <string>

namespace chart {

/// Comma-separated text of a pane's results: of one formula, or of all of them side by side in display order
/// when `formula` is empty. Formulas whose results have not arrived are left out; empty when none is there.
std::string exportText(TC::IndexBaseData& data, const QString& formula, bool withTime);

} // namespace chart
