// SPDX-License-Identifier: MIT
#pragma once
/// @file The field in which the text of a formula is written.

#include "engine/language/Problem.h"

#include <QPlainTextEdit>

#include <vector>

class QCompleter;

namespace client {

class FormulaHighlighter;

/// A text with line numbers, colours, completion of the language's words, and faults underlined. Ctrl+Space
/// or two letters of a word open the completion.
class FormulaText : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit FormulaText(QWidget* parent = nullptr);

    /// Underlines the faults of the present text, in the place of those before.
    void setProblems(const std::vector<engine::Problem>& problems);

    /// The fault at a place of the text, in characters of Qt's; empty when there is none.
    QString problemAt(int position) const;

    /// Puts the cursor where fault number `index` begins.
    void goToProblem(int index);

protected:
    bool viewportEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    class Margin;

    struct Fault
    {
        int begin = 0, end = 0; ///< positions in the document; the end is not included
        QString message;
    };

    int marginWidth() const;
    void layMargin();
    void paintMargin(const QRect& dirty);
    QString wordBeforeCursor() const;
    void showCompletion(const QString& beginning);
    void complete(const QString& word);

    FormulaHighlighter* m_highlighter;
    QCompleter* m_completer;
    Margin* m_margin;
    std::vector<Fault> m_faults;
};

} // namespace client
