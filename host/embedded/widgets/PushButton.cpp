// SPDX-License-Identifier: MIT
#include "host/WB/CPushButton.h"

#include "host/WB/SkinLookup.h"

#include <QIcon>
#include <QPainter>

namespace {

QSize logicalSize(const QPixmap& pixmap)
{
    return (QSizeF(pixmap.size()) / pixmap.devicePixelRatio()).toSize();
}

} // namespace

namespace WB {

CPushButton::CPushButton(const QString& imageKey, int style, QWidget* parent)
    : QPushButton(parent)
    , m_imageKey(imageKey)
    , m_style(style)
{
    if (m_style == kPictureOnly)
        setFocusPolicy(Qt::NoFocus);
    showImage();
}

CPushButton::~CPushButton() = default;

void CPushButton::setImageKey(const QString& imageKey)
{
    if (m_imageKey == imageKey)
        return;
    m_imageKey = imageKey;
    showImage();
}

QSize CPushButton::sizeHint() const
{
    const QPixmap* pixmap = skinPicture(m_imageKey);
    return m_style == kPictureOnly && pixmap ? logicalSize(*pixmap) : QPushButton::sizeHint();
}

void CPushButton::uiResourceChanged()
{
    showImage();
}

void CPushButton::showImage()
{
    if (m_style != kPictureOnly) {
        const QPixmap* pixmap = skinPicture(m_imageKey);
        setIcon(pixmap ? QIcon(*pixmap) : QIcon());
    }
    updateGeometry();
    update();
}

void CPushButton::paintEvent(QPaintEvent* event)
{
    if (m_style != kPictureOnly) {
        QPushButton::paintEvent(event);
        return;
    }
    const QPixmap* active = m_underPointer ? skinPicture(m_imageKey + QStringLiteral("_a")) : nullptr;
    const QPixmap* pixmap = active ? active : skinPicture(m_imageKey);
    if (!pixmap)
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    QRect target(QPoint(), logicalSize(*pixmap));
    target.moveCenter(rect().center());
    painter.drawPixmap(target, *pixmap);
}

void CPushButton::enterEvent(utils::EnterEvent* event)
{
    m_underPointer = true;
    update();
    QPushButton::enterEvent(event);
}

void CPushButton::leaveEvent(QEvent* event)
{
    m_underPointer = false;
    update();
    QPushButton::leaveEvent(event);
}

} // namespace WB
