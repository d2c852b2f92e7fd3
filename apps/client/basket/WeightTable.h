// SPDX-License-Identifier: MIT
#pragma once
/// @file The basket's table, with a word on where its weights come from.

#include "stocklist/CParserStockExeclTable.h"

namespace client {

/// Weights by market value that rest on synthetic figures say so in cells and headers; those of stocks whose
/// figure is not known say that. Cells of weights that the rule computes cannot be edited. Knows whether the
/// basket holds weights that somebody entered. GUI thread only.
class WeightTable : public TC::CParserStockExeclTable
{
    Q_OBJECT

public:
    explicit WeightTable(QWidget* parent);

    /// Adds stocks as addData does. @return whether any of them brings a weight.
    bool add(QVector<TC::ParserStockDetail> found, double minimum);
    /// Changes the rule and recalculates. Computed rules overwrite what was entered.
    void chooseRule(int rule);

    /// Whether a rule computes the relative weights.
    static bool isComputed(int rule);
    /// Whether the basket holds weights that were typed or imported and that the rule would overwrite.
    bool wouldOverwrite(int rule) const;

    void filterColumn() override;
    bool handleEvent(int id, int row, int col, QString text, void* block) override;

private:
    /// Says of every shown weight whether its figure is synthetic or missing.
    void markFigures();
    void markHeaders(bool synthetic);

    bool m_hasRelative = false; ///< somebody entered relative weights
    bool m_hasAbsolute = false; ///< likewise
};

} // namespace client
