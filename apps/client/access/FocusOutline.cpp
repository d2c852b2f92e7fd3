// SPDX-License-Identifier: MIT
#include "apps/client/access/FocusOutline.h"

#include "apps/client/chart/FocusFrame.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QEvent>
#include <QPainter>

namespace client {

namespace {

class Frame : public QWidget
{
public:
    explicit Frame(QWidget* area)
        : QWidget(area)
    {
        setObjectName(QStringLiteral("focusFrame"));
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
        setGeometry(area->rect());
        show();
        raise();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        paintFrame(painter, rect(), palette().color(QPalette::Highlight));
    }
};

} // namespace

FocusOutline::FocusOutline(QObject* parent)
    : QObject(parent)
{
    connect(qApp, &QApplication::focusChanged, this,
            [this](const QWidget*, QWidget* focus) { follow(focus); });
}

FocusOutline::~FocusOutline()
{
    delete m_frame;
}

void FocusOutline::follow(QWidget* focus)
{
    auto* area = qobject_cast<QAbstractScrollArea*>(focus);
    if (m_frame && m_frame->parentWidget() == area)
        return;
    if (m_frame) {
        m_frame->parentWidget()->removeEventFilter(this);
        delete m_frame;
    }
    if (!area)
        return;
    m_frame = new Frame(area);
    area->installEventFilter(this);
}

bool FocusOutline::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize && m_frame && m_frame->parent() == watched)
        m_frame->setGeometry(m_frame->parentWidget()->rect());
    return QObject::eventFilter(watched, event);
}

} // namespace client
