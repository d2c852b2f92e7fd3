// SPDX-License-Identifier: MIT
#include "host/WB/CSimpleText.h"

#include "host/WB/SkinLookup.h"

#include <QFontMetrics>
#include <QPainter>

namespace WB {

CSimpleText::CSimpleText(const QString& text, const QString& colorKey, const QString& fontKey)
    : m_text(text)
    , m_color(utils::CSingletonT<CUiResource>::instance()->getColor(colorKey))
    , m_font(utils::CSingletonT<CUiResource>::instance()->getFont(fontKey))
{
}

CSimpleText::~CSimpleText() = default;

QSize CSimpleText::getSize(const QString& text, const QFont& font)
{
    const QFontMetrics metrics(font);
    return QSize(metrics.horizontalAdvance(text), metrics.height());
}

QSize CSimpleText::getSize(const QString& text, const QString& fontKey)
{
    return getSize(text, skinFont(fontKey));
}

void CSimpleText::drawText(QPainter* painter, int x, int y, int width, int lineHeight, int flags,
                           bool underline, bool bold) const
{
    if (!m_font)
        return;
    QFont font(*m_font);
    if (underline)
        font.setUnderline(true);
    if (bold)
        font.setBold(true);
    painter->setFont(font);
    painter->setPen(m_color ? *m_color : QColor(Qt::black));
    painter->drawText(QRect(x, y, width, lineHeight), flags, m_text);
}

} // namespace WB
