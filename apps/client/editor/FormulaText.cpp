// SPDX-License-Identifier: MIT
#include "apps/client/editor/FormulaText.h"

#include "apps/client/FixedFont.h"
#include "apps/client/editor/FormulaHighlighter.h"
#include "apps/client/language/Language.h"
#include "engine/language/Formula.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTextBlock>
#include <QToolTip>

#include <algorithm>

namespace client {

namespace {

constexpr int kMarginGap = 6;        // pixels on either side of a line number
constexpr int kLettersForOffer = 2;  // from here on words are offered unasked
constexpr int kCompletionExtra = 30; // pixels beside the longest word

/// The words of the language with what they mean as tool tips.
QStandardItemModel* wordModel(QObject* parent)
{
    auto* model = new QStandardItemModel(parent);
    for (const engine::KnownWord& word : engine::knownWords()) {
        auto* item = new QStandardItem(QString::fromStdString(word.name));
        const QString arguments = QString::fromStdString(word.arguments);
        const QString call = arguments.isEmpty()
            ? item->text()
            : item->text() + QLatin1Char('(') + arguments + QLatin1Char(')');
        item->setToolTip(QStringLiteral("%1  %2").arg(call, ownWords(word.chinese, word.english)));
        model->appendRow(item);
    }
    model->sort(0);
    return model;
}

bool isWordCharacter(QChar character)
{
    return character.isLetterOrNumber() || character == QLatin1Char('_');
}

/// Position behind `count` code points from a position; never behind the text's end.
int behind(const QString& text, int position, int count)
{
    for (; count > 0 && position < text.size(); --count)
        position += text[position].isHighSurrogate() && position + 1 < text.size() ? 2 : 1;
    return position;
}

} // namespace

/// The strip with the line numbers.
class FormulaText::Margin : public QWidget
{
public:
    explicit Margin(FormulaText* text)
        : QWidget(text)
        , m_text(text)
    {
    }

protected:
    void paintEvent(QPaintEvent* event) override { m_text->paintMargin(event->rect()); }

private:
    FormulaText* m_text;
};

FormulaText::FormulaText(QWidget* parent)
    : QPlainTextEdit(parent)
    , m_highlighter(new FormulaHighlighter(document()))
    , m_completer(new QCompleter(this))
    , m_margin(new Margin(this))
{
    setFont(fixedFont());
    setLineWrapMode(NoWrap);
    setTabStopDistance(fontMetrics().horizontalAdvance(QLatin1Char(' ')) * 4);
    m_highlighter->setBackground(palette().color(QPalette::Base));

    m_completer->setModel(wordModel(m_completer));
    m_completer->setCaseSensitivity(Qt::CaseInsensitive);
    m_completer->setWidget(this);
    connect(m_completer, QOverload<const QString&>::of(&QCompleter::activated), this, &FormulaText::complete);
    connect(this, &QPlainTextEdit::blockCountChanged, this, &FormulaText::layMargin);
    connect(this, &QPlainTextEdit::updateRequest, m_margin, [this](const QRect& rect, int dy) {
        if (dy != 0)
            m_margin->scroll(0, dy);
        else
            m_margin->update(0, rect.y(), m_margin->width(), rect.height());
    });
    layMargin();
}

void FormulaText::setProblems(const std::vector<engine::Problem>& problems)
{
    const QString text = toPlainText();
    const QByteArray bytes = text.toUtf8();
    QList<QTextEdit::ExtraSelection> selections;
    m_faults.clear();
    int walked = 0, place = 0; // bytes, and the characters that they are; the problems come in order
    for (const engine::Problem& problem : problems) {
        const int offset = static_cast<int>(
            std::min<std::size_t>(problem.place.offset, static_cast<std::size_t>(bytes.size())));
        if (offset < walked)
            walked = place = 0;
        place += QString::fromUtf8(bytes.constData() + walked, offset - walked).size();
        walked = offset;
        Fault fault;
        fault.begin = place;
        fault.end = behind(text, fault.begin, std::max(1, problem.place.length));
        if (fault.end == fault.begin && fault.begin > 0) // at the text's end: what stands before it
            --fault.begin;
        fault.message = ownWords(problem.chinese, problem.english);
        QTextEdit::ExtraSelection selection;
        selection.cursor = QTextCursor(document());
        selection.cursor.setPosition(fault.begin);
        selection.cursor.setPosition(fault.end, QTextCursor::KeepAnchor);
        selection.format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
        selection.format.setUnderlineColor(QColor(230, 50, 50));
        selections << selection;
        m_faults.push_back(fault);
    }
    setExtraSelections(selections);
}

QString FormulaText::problemAt(int position) const
{
    for (const Fault& fault : m_faults) {
        if (position >= fault.begin && position < fault.end)
            return fault.message;
    }
    return QString();
}

void FormulaText::goToProblem(int index)
{
    if (index < 0 || index >= extraSelections().size())
        return;
    QTextCursor cursor = extraSelections().at(index).cursor;
    cursor.setPosition(cursor.selectionStart());
    setTextCursor(cursor);
    setFocus();
}

bool FormulaText::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QPlainTextEdit::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const QString message = problemAt(cursorForPosition(help->pos()).position());
    if (message.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), message, viewport());
    return true;
}

void FormulaText::changeEvent(QEvent* event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && m_highlighter)
        m_highlighter->setBackground(palette().color(QPalette::Base));
    if (event->type() == QEvent::FontChange && m_margin)
        layMargin();
}

void FormulaText::resizeEvent(QResizeEvent* event)
{
    QPlainTextEdit::resizeEvent(event);
    layMargin();
}

void FormulaText::keyPressEvent(QKeyEvent* event)
{
    const bool asked = event->key() == Qt::Key_Space && event->modifiers() == Qt::ControlModifier;
    const bool choosing = m_completer->popup()->isVisible();
    if (choosing
        && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Tab
            || event->key() == Qt::Key_Escape)) {
        event->ignore(); // they are the completer's
        return;
    }
    if (!asked)
        QPlainTextEdit::keyPressEvent(event);
    const bool typed = !event->text().isEmpty() && isWordCharacter(event->text().back());
    const QString beginning = wordBeforeCursor();
    if (!isReadOnly() && (asked || ((typed || choosing) && beginning.size() >= kLettersForOffer)))
        showCompletion(beginning);
    else
        m_completer->popup()->hide();
}

int FormulaText::marginWidth() const
{
    const int digits = std::max<int>(2, QString::number(blockCount()).size());
    return 2 * kMarginGap + digits * fontMetrics().horizontalAdvance(QLatin1Char('9'));
}

void FormulaText::layMargin()
{
    setViewportMargins(marginWidth(), 0, 0, 0);
    const QRect inside = contentsRect();
    m_margin->setGeometry(inside.left(), inside.top(), marginWidth(), inside.height());
}

void FormulaText::paintMargin(const QRect& dirty)
{
    QPainter painter(m_margin);
    painter.fillRect(dirty, palette().color(QPalette::Window));
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.setFont(font());
    QTextBlock block = firstVisibleBlock();
    double top = blockBoundingGeometry(block).translated(contentOffset()).top();
    for (; block.isValid() && top <= dirty.bottom(); block = block.next()) {
        const double height = blockBoundingRect(block).height();
        painter.drawText(QRectF(0, top, m_margin->width() - kMarginGap, height),
                         Qt::AlignRight | Qt::AlignVCenter, QString::number(block.blockNumber() + 1));
        top += height;
    }
}

QString FormulaText::wordBeforeCursor() const
{
    const QTextCursor cursor = textCursor();
    const QString line = cursor.block().text().left(cursor.positionInBlock());
    int begin = line.size();
    while (begin > 0 && isWordCharacter(line[begin - 1]))
        --begin;
    return line.mid(begin);
}

void FormulaText::showCompletion(const QString& beginning)
{
    m_completer->setCompletionPrefix(beginning);
    const bool isWhole = m_completer->completionCount() == 1
        && m_completer->currentCompletion().compare(beginning, Qt::CaseInsensitive) == 0;
    if (m_completer->completionCount() == 0 || isWhole) {
        m_completer->popup()->hide();
        return;
    }
    QAbstractItemView* popup = m_completer->popup();
    popup->setCurrentIndex(m_completer->completionModel()->index(0, 0));
    QRect place = cursorRect().translated(marginWidth(), 0);
    place.setWidth(popup->sizeHintForColumn(0) + kCompletionExtra);
    m_completer->complete(place);
}

void FormulaText::complete(const QString& word)
{
    QTextCursor cursor = textCursor();
    cursor.movePosition(QTextCursor::PreviousCharacter, QTextCursor::KeepAnchor, wordBeforeCursor().size());
    cursor.insertText(word);
    setTextCursor(cursor);
}

} // namespace client
