// SPDX-License-Identifier: MIT
#include "title/CIndexPanelBaseWidget.h"

namespace TC {

CIndexPanelBaseWidget::CIndexPanelBaseWidget(QString name, QWidget* parent)
    : CBaseWidget(name, false, parent)
{
}

CIndexPanelBaseWidget::~CIndexPanelBaseWidget()
{
    m_currentTradeDateFunc.clear();
    m_pairParamFunc.clear();
}

void CIndexPanelBaseWidget::adjustIndexWidgetSize(int) { }

void CIndexPanelBaseWidget::clear(bool) { }

void CIndexPanelBaseWidget::reloadStock() { }

void CIndexPanelBaseWidget::request(bool) { }

void CIndexPanelBaseWidget::setPeroid(EFormulaPeriod) { }

void CIndexPanelBaseWidget::unrequest() { }

QString CIndexPanelBaseWidget::getMarket() const
{
    return QString();
}

QString CIndexPanelBaseWidget::getStock() const
{
    return QString();
}

void CIndexPanelBaseWidget::setCurrentTradeDateFunc(boost::function<int()> function)
{
    boost::function<int()> copy(function); // may throw; the swap does not
    m_currentTradeDateFunc.swap(copy);
}

void CIndexPanelBaseWidget::updateView() { }

void CIndexPanelBaseWidget::setPairParamFunc(boost::function<void(QString)> function)
{
    boost::function<void(QString)> copy(function); // may throw; the swap does not
    m_pairParamFunc.swap(copy);
}

void CIndexPanelBaseWidget::viewVariable() { }

} // namespace TC
