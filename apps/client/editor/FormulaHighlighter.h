// SPDX-License-Identifier: MIT
#pragma once
/// @file Colours for the text of a formula.

#include <QHash>
#include <QSyntaxHighlighter>
#include <QTextCharFormat>

namespace client {

/// Colours the words that the language knows by their kind, and texts, numbers and comments.
class FormulaHighlighter : public QSyntaxHighlighter
{
public:
    explicit FormulaHighlighter(QTextDocument* document);

    /// Takes colours that can be read on a background.
    void setBackground(const QColor& background);

protected:
    void highlightBlock(const QString& text) override;

private:
    int endOfComment(const QString& text, int from);

    QHash<QString, int> m_kinds; ///< by name in capitals
    QTextCharFormat m_words[5];  ///< by kind of the word
    QTextCharFormat m_text, m_number, m_comment;
};

} // namespace client
