/// @file Painters of texts and numbers. They share the columns condition and price, and the position code
/// of the result's first output.

#include "draw/CDrawStyle.h"

#include "draw/internal/LabelPlacement.h"
#include "draw/internal/Layout.h"
#include "draw/internal/Pens.h"

#include "host/WB/NumberFormat.h"
#include "host/WB/TextConversion.h"

#include <QFontMetrics>
#include <QPainter>

namespace TC {

namespace {

using namespace detail;

/// Position code of every text and number. Deliberate: the first output's, whichever output is painted.
int textPosition(const se::RPCFormulaMetaResult& meta)
{
    constexpr int atPoint = 1;
    const int* code = elementAt(meta.position, 0);
    return code ? *code : atPoint;
}

/// Where a run of labels stands. Deliberate: x counts from 0 whatever the pane's left edge is, and runs
/// are not right-aligned.
struct LabelLayout
{
    QRect pane;
    int position = 0; ///< position code
    SlotLayout slots;
    ValueScale scale;

    /// Paints the text of a bar, if it has a place.
    void paint(QPainter* painter, const QFontMetrics& metrics, int bar, double price, const QString& text) const
    {
        if (!hasPixel(slots.at(bar)))
            return;
        const auto row = hasPixel(scale.at(price)) ? std::optional<int>(scale.row(price)) : std::nullopt;
        const QSize size(metrics.horizontalAdvance(text), metrics.height());
        if (const auto point = textPoint(position, pane, size, slots.x(bar), row))
            painter->drawText(*point, text);
    }
};

void setTitleFont(QPainter* painter)
{
    const auto* skin = utils::CSingletonT<WB::CUiResource>::instance();
    if (const QFont* font = skin->getFont(QString::fromLatin1(kTitleFont)))
        painter->setFont(*font);
}

/// Scale of texts: on a flat range the height spans the maximum itself, not the range.
ValueScale textScale(const QRect& rect, const QPair<double, double>& range)
{
    ValueScale scale = spanning(rect, range);
    if (isFlat(range))
        scale.pixelsPerUnit = isZero(range.first) ? 1.0 : rect.height() / range.first;
    return scale;
}

/// Last value of a column; empty without values.
std::optional<double> lastOf(const ColumnView& column)
{
    return column.raw(column.size() - 1);
}

/// Whether a number is `code` once its fraction is cut off.
bool isCode(double number, int code)
{
    return hasPixel(number) && toPixel(number) == code;
}

} // namespace

void CDrawStyle::drawText(QPainter* painter, QRect& rect, RPCFormulaResultCache& cache,
                          QPair<double, double> range, int outputIndex, int startIndex, int endIndex,
                          int xOffset, int barCount)
{
    const OutputView output(cache, outputIndex);
    const ColumnView condition = output.column(0), prices = output.column(1);
    const std::vector<std::string>* texts = output.texts(2);
    // Deliberate: with a fourth column the output's colour entry counts even where the formula set none.
    const std::optional<int> color =
        output.columnCount() >= 4 ? output.entry(&se::RPCFormulaMetaResult::color) : outputColor(output);
    if (!condition.exists() || !texts || !color || output.lineWidth() == 0)
        return;

    painter->setPen(linePen(fromPacked(*color), output.lineWidth(), Qt::SolidLine));
    setTitleFont(painter);
    const QFontMetrics metrics = painter->fontMetrics();
    const BarWindow bars { startIndex, endIndex, barCount, false };
    const LabelLayout layout { rect,
                               textPosition(cache.meta),
                               { startIndex, slotWidth(rect, bars.divisor()), static_cast<double>(xOffset) },
                               textScale(rect, range) };
    // Deliberate: a result with fewer bars than slots is walked from its first bar, which then stands left
    // of the pane when the window starts later.
    const int first = barTotal(cache.result) < barCount ? 0 : startIndex;
    forEachValidBar(cache.result, first, endIndex, [&](int bar) {
        const std::string* bytes = elementAt(*texts, bar);
        if (!isOn(condition, bar) || !bytes)
            return;
        const QString text = WB::sToQs(*bytes);
        if (!text.trimmed().isEmpty())
            layout.paint(painter, metrics, bar, prices.at(bar).value_or(NAN), text);
    });
}
