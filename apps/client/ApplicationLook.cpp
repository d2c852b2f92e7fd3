// SPDX-License-Identifier: MIT
#include "apps/client/ApplicationLook.h"

#include "apps/client/chart/FocusFrame.h"
#include "draw/CDrawStyle.h"
#include "host/WB/SkinLookup.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>
#include <QWidget>

namespace client {

namespace {

constexpr int kFieldsOutline = 90; ///< opacity, of 255: there are many fields

/// Fusion with an outline around what its own shades leave without one on a dark ground: menus over a chart,
/// fields and boxes to check. What shows a menu points down at it from the middle of its height.
class OutlinedLook : public QProxyStyle
{
public:
    OutlinedLook()
        : QProxyStyle(QStringLiteral("Fusion"))
    {
    }

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override
    {
        return metric == PM_MenuPanelWidth ? 1 : QProxyStyle::pixelMetric(metric, option, widget);
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override
    {
        if (element != PE_FrameMenu)
            QProxyStyle::drawPrimitive(element, option, painter, widget);
        QColor color = option->palette.color(QPalette::Disabled, QPalette::Text);
        const bool isFocused = option->state & State_HasFocus; // Fusion shows that itself
        if (element == PE_FrameLineEdit && !isFocused)
            color.setAlpha(kFieldsOutline);
        else if (element != PE_FrameMenu && element != PE_IndicatorCheckBox)
            return;
        paintFrame(*painter, option->rect, color);
    }

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override
    {
        const auto* button = qstyleoption_cast<const QStyleOptionToolButton*>(option);
        if (control != CC_ToolButton || !button || !(button->features & QStyleOptionToolButton::HasMenu))
            return QProxyStyle::drawComplexControl(control, option, painter, widget);
        QStyleOptionToolButton plain(*button);
        plain.features &= ~QStyleOptionToolButton::HasMenu;
        QProxyStyle::drawComplexControl(control, &plain, painter, widget);
        constexpr int arrow = 8, margin = 4; // pixels
        QStyleOption mark(*option);
        mark.rect = QRect(option->rect.right() - margin - arrow, option->rect.center().y() - arrow / 2 + 1,
                          arrow, arrow);
        QProxyStyle::drawPrimitive(PE_IndicatorArrowDown, &mark, painter, widget);
    }
};

/// A style sheet, and all that stands inside its widget, keeps the palette that it was read in.
void renewStyleSheets()
{
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget* widget : widgets) {
        const QString sheet = widget->styleSheet();
        if (sheet.isEmpty())
            continue;
        widget->setStyleSheet(QString());
        widget->setStyleSheet(sheet);
    }
}

} // namespace

ApplicationLook::ApplicationLook()
{
    // The docks' style sheet would keep palettes from reaching the widgets inside.
    QApplication::setAttribute(Qt::AA_UseStyleSheetPropagationInWidgetStyles);
    QApplication::setStyle(new OutlinedLook);
    ApplicationLook::uiResourceChanged();
}

void ApplicationLook::uiResourceChanged()
{
    TC::CDrawStyle::resetDrawStyleColor();
    const QColor base = WB::skinColor("ic_clr_graph_kline_bg", Qt::white),
                 text = WB::skinColor("clr_default", Qt::black),
                 muted = WB::skinColor("clr_stock_index", Qt::gray);
    const bool dark = base.lightness() < 128;
    const QColor window = dark ? base.lighter(150) : base.darker(106);
    QPalette palette(window);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, window);
    for (QPalette::ColorRole role : { QPalette::Text, QPalette::WindowText, QPalette::ButtonText })
        palette.setColor(role, text);
    palette.setColor(QPalette::PlaceholderText, muted);
    palette.setColor(QPalette::Dark, muted); // texts of tabs that lie behind
    palette.setColor(QPalette::Light, dark ? window.lighter(130) : window.darker(110)); // frames of docks
    palette.setColor(QPalette::Highlight, QColor(52, 110, 190));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    for (QPalette::ColorRole role : { QPalette::Text, QPalette::WindowText, QPalette::ButtonText })
        palette.setColor(QPalette::Disabled, role, muted);
    QApplication::setPalette(palette);
    QFont font = QApplication::font(); // one family for legends, axes and widgets
    font.setFamily(WB::skinFont("fnt_default", font).family());
    if (font != QApplication::font())
        QApplication::setFont(font);
    renewStyleSheets();
}

} // namespace client
