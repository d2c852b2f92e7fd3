// SPDX-License-Identifier: MIT
#include "host/WB/CBaseWidget.h"
#include "host/WB/CEventDeliverer.h"
#include "host/WB/CUiResource.h"
#include "host/WB/CUiResourceChangeHandler.h"
#include "host/utils/CSingletonT.h"

#include <QMouseEvent>

#include <algorithm>

namespace WB {

CEventDeliverer::CEventDeliverer(CEventDeliverer* parent)
{
    setParentDeliverer(parent);
}

CEventDeliverer::~CEventDeliverer()
{
    setParentDeliverer(nullptr);
    for (CEventDeliverer* child : m_children)
        child->m_parent = nullptr;
}

void CEventDeliverer::setParentDeliverer(CEventDeliverer* parent)
{
    if (m_parent) {
        auto& siblings = m_parent->m_children;
        siblings.erase(std::remove(siblings.begin(), siblings.end(), this), siblings.end());
    }
    m_parent = parent;
    if (m_parent)
        m_parent->m_children.push_back(this);
}

bool CEventDeliverer::deliverEvent(int id, const QString& text, void* data)
{
    for (CEventDeliverer* link = this; link; link = link->parentDeliverer()) {
        if (link->handleDeliveredEvent(id, text, data))
            return true;
    }
    return false;
}

bool CEventDeliverer::handleDeliveredEvent(int, const QString&, void*)
{
    return false;
}

CUiResourceChangeHandler::CUiResourceChangeHandler()
{
    utils::CSingletonT<CUiResource>::instance()->addChangeHandler(this);
}

CUiResourceChangeHandler::~CUiResourceChangeHandler()
{
    utils::CSingletonT<CUiResource>::instance()->removeChangeHandler(this);
}

void CUiResourceChangeHandler::uiResourceChanged() { }

CBaseWidget::CBaseWidget(const QString& name, bool opaque, QWidget* parent)
    : CEventWidgetT<QWidget>(parent)
{
    setObjectName(name);
    setAttribute(Qt::WA_OpaquePaintEvent, opaque);
}

CBaseWidget::~CBaseWidget() = default;

void CBaseWidget::uiResourceChanged()
{
    update();
}

void CBaseWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    event->accept();
}

} // namespace WB
