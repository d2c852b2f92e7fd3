// SPDX-License-Identifier: MIT
#include "apps/client/editor/FormulaHighlighter.h"

#include "engine/language/Formula.h"

#include <QRegularExpression>

namespace client {

namespace {

/// Characters of a line that is still coloured: every piece of colour makes the line's layout slower.
constexpr int kLongestLine = 4096;
constexpr int kPlain = 0, kInComment = 1; // states of a line's end

QTextCharFormat colored(const char* onDark, const char* onLight, bool dark)
{
    QTextCharFormat format;
    format.setForeground(QColor(QLatin1String(dark ? onDark : onLight)));
    return format;
}

} // namespace

FormulaHighlighter::FormulaHighlighter(QTextDocument* document)
    : QSyntaxHighlighter(document)
{
    for (const engine::KnownWord& word : engine::knownWords())
        m_kinds.insert(QString::fromStdString(word.name).toUpper(), static_cast<int>(word.kind));
    setBackground(Qt::white);
}

void FormulaHighlighter::setBackground(const QColor& background)
{
    using Kind = engine::KnownWord::Kind;
    const bool dark = background.lightness() < 128;
    const auto word = [this](Kind kind) -> QTextCharFormat& { return m_words[static_cast<int>(kind)]; };
    word(Kind::BarValue) = colored("#4fc1ff", "#0050a0", dark);
    word(Kind::Function) = colored("#dcdc8b", "#795e00", dark);
    word(Kind::Drawing) = colored("#ffa657", "#a04000", dark);
    word(Kind::Attribute) = colored("#4ec9b0", "#00705c", dark);
    word(Kind::Keyword) = colored("#d695e0", "#8a1a9b", dark);
    word(Kind::Keyword).setFontWeight(QFont::Bold);
    m_text = colored("#f0a08a", "#b02020", dark);
    m_number = colored("#b5cea8", "#08703a", dark);
    m_comment = colored("#8a9a8a", "#5c6c5c", dark);
    m_comment.setFontItalic(true);
    rehighlight();
}

/// Where the comment that holds `from` ends on this line; a line without its end hands it to the next one.
int FormulaHighlighter::endOfComment(const QString& text, int from)
{
    const int brace = text.indexOf(QLatin1Char('}'), from);
    setCurrentBlockState(brace < 0 ? kInComment : kPlain);
    return brace < 0 ? text.size() : brace + 1;
}

void FormulaHighlighter::highlightBlock(const QString& text)
{
    static const QRegularExpression piece(
        QStringLiteral("(?<open>\\{)|(?<line>//.*)|(?<text>'[^']*'?)"
                       "|(?<number>(?:[0-9]+\\.?[0-9]*|\\.[0-9]+)(?:[eE][-+]?[0-9]+)?)|(?<word>[\\w]+)"),
        QRegularExpression::UseUnicodePropertiesOption);
    setCurrentBlockState(kPlain);
    if (text.size() > kLongestLine)
        return;
    int at = 0;
    if (previousBlockState() == kInComment) {
        at = endOfComment(text, 0);
        setFormat(0, at, m_comment);
    }
    for (auto match = piece.match(text, at); match.hasMatch(); match = piece.match(text, at)) {
        const int begin = match.capturedStart();
        at = match.capturedEnd();
        if (match.capturedLength(QStringLiteral("open")) > 0) {
            at = endOfComment(text, at);
            setFormat(begin, at - begin, m_comment);
        } else if (match.capturedLength(QStringLiteral("line")) > 0) {
            setFormat(begin, at - begin, m_comment);
        } else if (match.capturedLength(QStringLiteral("text")) > 0) {
            setFormat(begin, at - begin, m_text);
        } else if (match.capturedLength(QStringLiteral("number")) > 0) {
            setFormat(begin, at - begin, m_number);
        } else {
            const auto kind = m_kinds.constFind(match.captured().toUpper());
            if (kind != m_kinds.constEnd())
                setFormat(begin, at - begin, m_words[*kind]);
        }
    }
}

} // namespace client
