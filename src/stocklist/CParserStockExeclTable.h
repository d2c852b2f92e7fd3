// SPDX-License-Identifier: MIT
#pragma once
/// @file The table in which a user holds a basket of stocks with their weights.

#include "host/TC/ParserStockDetail.h"
#include "host/WB/CStandardTable.h"
#include "indicatorui_export.h"

#include <QList>
#include <QMap>
#include <QVector>

#include <set>

namespace TC {

/// A basket of stocks: one row per stock, in the order of the stocks' keys, with weights by one of six rules.
///
/// Columns 0 to 5: market, code, name, relative weight, absolute weight in percent, shares. The rules:
///
/// | type | relative weight | absolute weight (a fraction of 1) |
/// |---|---|---|
/// | 0 | 1 | 1 / number of stocks |
/// | 1 (initial) | as entered | relative weight / sum of all |
/// | 2, 3 | figure 3015 or 3016 of the instrument / 100 | figure / sum of all |
/// | 4 | as entered | as entered |
/// | 5 | shares / 100 without the rest | shares / sum of all |
///
/// A sum of 0 gives weights that are infinite or no number; the table shows them as "非法值". The table never
/// imports by itself: its client listens to sigPasteTable, reads a source with one of the parsers and calls
/// addData. GUI thread only, except for parserCvs and parserExcel once the instruments are loaded.
class INDICATORUI_EXPORT CParserStockExeclTable : public WB::CStandardTable
{
    Q_OBJECT

public:
    /// @param tableId,parent,menu  go to the client's table.
    CParserStockExeclTable(int tableId, QWidget* parent, QFlags<WB::EBaseTableMenuFlag> menu);
    ~CParserStockExeclTable() override;

    // Readers. Each appends one record per recognised stock to `out`, in row order, duplicates included, and
    // lowers `minRelativeWeight` to the smallest relative weight that it met; the caller seeds it, with one
    // value for all rows of an import. None reports an error: what cannot be read gives fewer records.

    /// Text file with comma-separated fields. Only the code in the first field of a row counts: it must be
    /// exactly a code or key, and the record keeps its default weights and shares. Other rows give no record,
    /// but their third field, as a whole number (0 when it is none), counts for the minimum.
    static void parserCvs(QString path, QVector<ParserStockDetail>& out, double& minRelativeWeight);

    /// First sheet of a workbook: its first column holds codes (of 1 to 5 characters: filled with zeros to
    /// 6), the third relative weights, the fifth shares (whole lots of 100, never negative). Weights further
    /// than 1e-5 from zero count for the minimum, also in rows without a stock.
    static void parserExcel(QString path, QVector<ParserStockDetail>& out, double& minRelativeWeight);

    /// Clipboard text with tab-separated fields; otherwise as parserCvs. Lines end at "\n" alone.
    void parserPaste(QVector<ParserStockDetail>& out, double& minRelativeWeight);

    /// Adds stocks that are not yet in the basket; of records with the same key the first one counts, and
    /// what the basket already holds stays as it is. Recalculates, then shows all stocks as fillDetail does,
    /// whatever the filters and the sorting are; the stored weights stay unscaled. Emits nothing.
    void addData(QVector<ParserStockDetail>& details, double minRelativeWeight);

    /// Replaces the rows by `details`, relative weights multiplied by the power of ten that brings
    /// `minRelativeWeight` to 1 or more (1 for a minimum that is zero, negative or not finite).
    /// @param[in,out] details  the records' relative weights are scaled in place.
    void fillDetail(QVector<ParserStockDetail>& details, double minRelativeWeight);

    /// Recomputes the weights, refills the rows through filterColumn, and shows the sums over all stocks in
    /// the status line: relative weights with one decimal, absolute weights as a percentage.
    void reCalc();

    /// Applies the weight rule: writes the stocks' weights and both vectors, one entry per stock in key
    /// order. Type 4 is the exception: it writes no stock, appends to `absolute` and leaves `relative` alone.
    void getWeightValue(QVector<float>& relative, QVector<float>& absolute);
    /// Appends the share count of each stock, in key order.
    void getStockAmount(QList<int>& amounts) const;
    /// The key of each stock, in order.
    QVector<QString> getAllStock() const;

    /// Removes the stocks shown in the given rows (row ids) and recalculates. Rows whose market and code name
    /// no instrument stay. Emits nothing.
    void removeSelectRows(std::set<int> rows);
    /// Empties basket and rows; the status line stays, and nothing is emitted.
    void clearAll();

    /// Locks or frees the shares at once, and the relative weights from the next refill on.
    void setReadOnly(bool readOnly);
    /// Sets the weight rule without recalculating; absolute weights can be edited under type 4 alone.
    void setWeightType(int type);
    /// The rule in use, 0 to 5.
    int getWeightType() const { return m_weightType; }
    /// While `importing`, edits of relative weights are swallowed.
    void setImportBool(bool importing) { m_importing = importing; }
    /// Largest relative weight that the editor accepts.
    int getSpinMaxValue() const { return m_spinMaximum; }

    /// Shows the stocks whose market, code or name contains the text of every column filter, as it stands or
    /// as initials, then sorts. Filters of the first three columns look at their own column, any other filter
    /// at all three.
    void filterColumn() override;

    /// Handles edits (52, 88) and deletion (58) and emits sigChange after each; see WB::IBaseTable.
    bool handleEvent(int id, int row, int col, QString text, void* data) override;

    void uiResourceChanged() override;

Q_SIGNALS:
    /// The user has changed the basket: read weights, shares and stocks again.
    void sigChange();
    /// The user asks for an import from the clipboard.
    void sigPasteTable(bool paste);

public Q_SLOTS:
    /// Asks for a file and writes the table into it as text.
    void slotExportData();
    /// Copies the table as text.
    void slotCopyData();

protected:
    /// Makes columns and menu.
    void createUi();
    /// Ctrl+V sends sigPasteTable; then the key goes to the base.
    void keyPressEvent(QKeyEvent* event) override;

    /// One row of text fields: appends at most one record.
    static void parserToStockDetail(QList<QString>& fields, QVector<ParserStockDetail>& out,
                                    double& minRelativeWeight);

    /// Puts the shown table on the clipboard, tab-separated.
    virtual void copyData();
    /// Asks for a file and writes the shown table: ".txt" or ".csv"; other suffixes write nothing.
    /// @return false only when the user cancels.
    bool exportData();

private:
    ParserStockDetail* stockOfRow(int row);
    bool passesFilters(const ParserStockDetail& stock) const;

    int m_spinMaximum = 10000;
    int m_weightType = 1;
    bool m_importing = false;
    bool m_readOnly = false;
    QMap<QString, ParserStockDetail> m_stocks;
    QMap<QString, int> m_rows; ///< stock key -> row id
};

} // namespace TC
