// SPDX-License-Identifier: MIT
#pragma once
/// @file The texts that cells share.

#include "host/embedded/reading/program/xlsx/RichText.h"
#include "host/embedded/reading/program/xlsx/XmlPart.h"

namespace workbook {

/// Receives a part of shared texts (sst) into the cells.
class SharedTexts : public XmlReceiver
{
public:
    explicit SharedTexts(CellCollector& cells)
        : m_cells(cells)
    {
    }
    void startElement(std::string_view name, const XmlAttributes&) override;
    void endElement() override;
    void characters(std::string_view utf8) override { m_text.characters(utf8); }
    bool wantsMore() const override { return !m_cells.isRefused(); }

private:
    CellCollector& m_cells;
    RichText m_text;
    int m_depth = 0;
    bool m_isItem = false;
};

} // namespace workbook
