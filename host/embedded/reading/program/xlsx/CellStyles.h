// SPDX-License-Identifier: MIT
#pragma once
/// @file Which styles show dates.

#include "host/embedded/reading/program/CellDates.h"
#include "host/embedded/reading/program/xlsx/XmlPart.h"

#include <QHash>

#include <vector>

namespace workbook {

/// Receives a part of styles.
class CellStyles : public XmlReceiver
{
public:
    void startElement(std::string_view name, const XmlAttributes& attributes) override;
    void endElement() override { m_path.pop_back(); }

    /// What the style of a cell shows; None for one that is not there.
    DateKind kind(std::size_t style) const;

private:
    enum class Place { Elsewhere, Formats, CellFormats };

    std::vector<Place> m_path;
    QHash<int, DateKind> m_formats; ///< those of this workbook, by their id
    std::vector<int> m_formatOfStyle;
};

/// A whole number; -1 for a text that is none.
int wholeNumber(std::string_view text);

} // namespace workbook
