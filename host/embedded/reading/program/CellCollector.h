// SPDX-License-Identifier: MIT
#pragma once
/// @file Cells as the readers find them, within limits.

#include "host/embedded/ReadingSetup.h"
#include "host/embedded/reading/SheetCells.h"

#include <QStringView>

namespace workbook {

using Outcome = TC::embedded::WorkbookOutcome;

/// Collects the cells of a sheet; rows and columns count from 0. Cells outside the largest sheet that
/// spreadsheets know are left out and noted as lost. Past the limits the whole sheet is refused: it turns and
/// stays empty. An empty text leaves the cell empty.
class CellCollector
{
public:
    void setText(int row, int column, QStringView text);
    /// Plain text of a number: 15 digits, no ".0" behind an integral one. What is not finite is noted as
    /// lost.
    void setNumber(int row, int column, double number);
    void setBool(int row, int column, bool value);

    /// Adds a text that several cells may share; they count from 0 in the order in which they are added.
    void addShared(QStringView text);
    /// A cell with a shared text; an index that is not there is noted as lost.
    void setShared(int row, int column, std::size_t index);

    /// Something is damaged, or was left out without anyone having wished so.
    void noteLoss() { m_isIncomplete = true; }
    /// Empties the sheet for good, for the first reason given.
    void refuse(Outcome reason);
    bool isRefused() const { return m_refusal != Outcome::Read; }

    /// How the reading ended, once all cells have been set.
    Outcome outcome() const;
    bool isIncomplete() const { return m_isIncomplete; }
    const std::vector<TC::embedded::SheetCells::Cell>& cells() const { return m_cells; }
    const QString& texts() const { return m_texts; }

private:
    struct Stretch
    {
        quint32 from, length;
    };
    Stretch keep(QStringView text);
    void place(int row, int column, Stretch text);

    std::vector<TC::embedded::SheetCells::Cell> m_cells;
    QString m_texts;
    std::vector<Stretch> m_shared;
    Outcome m_refusal = Outcome::Read;
    bool m_isIncomplete = false;
};

} // namespace workbook
