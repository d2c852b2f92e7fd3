// SPDX-License-Identifier: MIT
#pragma once
/// @file The cells of a sheet.

#include "host/embedded/reading/program/xlsx/CellStyles.h"
#include "host/embedded/reading/program/xlsx/RichText.h"

namespace workbook {

/// Receives a part of a sheet. Hidden rows and columns are read like others; of merged cells each holds what
/// it holds in the file, which is nothing but for the first; formulas give their stored result.
class SheetPart : public XmlReceiver
{
public:
    /// @param styles,cells  must outlive the reading; `cells` has the shared texts already.
    SheetPart(const CellStyles& styles, bool is1904, CellCollector& cells);

    void startElement(std::string_view name, const XmlAttributes& attributes) override;
    void endElement() override;
    void characters(std::string_view utf8) override;
    bool wantsMore() const override { return !m_cells.isRefused(); }
    /// Whether the part was one of a sheet at all.
    bool hasSheet() const { return m_hasSheet; }

private:
    enum class Place { Elsewhere, Sheet, Rows, Row, Cell, Value, Inline };

    Place placeBelow(Place around, std::string_view name) const;
    void startRow(const XmlAttributes& attributes);
    void startCell(const XmlAttributes& attributes);
    void endCell();
    void takeNumber(std::string_view text);
    void takeDate(std::string_view text);

    const CellStyles& m_styles;
    const bool m_is1904;
    CellCollector& m_cells;

    std::vector<Place> m_path;
    RichText m_inline;
    bool m_hasSheet = false;
    int m_row = -1, m_column = -1;
    std::string m_type;  ///< of the cell: "n", "s", "str", ...
    std::string m_value; ///< its v
    QString m_text;
    std::size_t m_style = 0;
};

} // namespace workbook
