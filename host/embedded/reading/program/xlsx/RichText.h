// SPDX-License-Identifier: MIT
#pragma once
/// @file Texts put together from runs.

#include <QString>

#include <string>
#include <string_view>

namespace workbook {

/// A text on its way: plain (t), or in runs (r with t) whose looks differ. Readings of Han letters (rPh) are
/// beside the text, not part of it. Told of every element within the text's own element.
class RichText
{
public:
    void clear();
    void startElement(std::string_view name);
    void endElement();
    void characters(std::string_view utf8);

    /// The text with its escapes ("_x000D_") resolved.
    const QString& text();

private:
    std::string m_utf8;
    QString m_text;
    int m_depth = 0;     ///< elements open below the text's own
    int m_hidden = 0;    ///< depth of the outermost element whose texts do not count; 0 for none
    bool m_isIn = false; ///< within a t that counts
};

/// UTF-8 with its escapes resolved: _xHHHH_ stands for the UTF-16 unit, _x005F_ keeps a "_" from being one.
/// Bytes past the longest text that is kept may be left out.
void decodeInto(QString& text, std::string_view utf8);

} // namespace workbook
