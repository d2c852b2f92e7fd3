// SPDX-License-Identifier: MIT
#pragma once
/// @file A text with its colour and font: how the client measures and paints short labels.

#include "host/HostExport.h"

#include <QColor>
#include <QFont>
#include <QSize>
#include <QString>

class QPainter;

namespace WB {

/// A label. Colour and font are pointers into the skin: not owned, void once the skin changes, so that
/// labels are made where they are painted. GUI thread only.
class INDICATORHOST_EXPORT CSimpleText
{
public:
    /// Empty text without colour and font.
    CSimpleText() = default;
    /// `text` in the skin's colour and font of the given keys; null where the skin has none.
    CSimpleText(const QString& text, const QString& colorKey, const QString& fontKey);
    /// Copies share the skin's colour and font.
    CSimpleText(const CSimpleText&) = default;
    /// As the copy.
    CSimpleText& operator=(const CSimpleText&) = default;
    virtual ~CSimpleText();

    /// What is painted.
    const QString& text() const { return m_text; }
    /// The skin's; may be null.
    const QColor* color() const { return m_color; }
    /// The skin's; may be null.
    const QFont* font() const { return m_font; }

    /// Advance width and line height of a text in pixels.
    static QSize getSize(const QString& text, const QFont& font);
    /// The same in the skin's font of a key; a key that names no font measures with the application's
    /// default font.
    static QSize getSize(const QString& text, const QString& fontKey);

    /// Paints the label into `width` x `lineHeight` pixels at (x, y); paints nothing without a font.
    /// @param flags  Qt::AlignmentFlag values.
    virtual void drawText(QPainter* painter, int x, int y, int width, int lineHeight, int flags,
                          bool underline, bool bold) const;

protected:
    QString m_text;                  ///< what is painted
    const QColor* m_color = nullptr; ///< the skin's
    const QFont* m_font = nullptr;   ///< the skin's
};

} // namespace WB
