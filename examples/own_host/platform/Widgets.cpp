// SPDX-License-Identifier: MIT
/// @file The second host's widgets: they show nothing and hold nothing.

#include "host/WB/CBaseWidget.h"
#include "host/WB/CIntValidator.h"
#include "host/WB/CLineEdit.h"
#include "host/WB/CPushButton.h"
#include "host/WB/CSimpleText.h"
#include "host/WB/CStandardTable.h"
#include "host/WB/IDockableWidget.h"

#include <QFontMetrics>
#include <QKeyEvent>

namespace WB {

CEventDeliverer::CEventDeliverer(CEventDeliverer*) { }
CEventDeliverer::~CEventDeliverer() = default;

bool CEventDeliverer::deliverEvent(int, const QString&, void*)
{
    return false;
}

bool CEventDeliverer::handleDeliveredEvent(int, const QString&, void*)
{
    return false;
}

CUiResourceChangeHandler::CUiResourceChangeHandler() = default;
CUiResourceChangeHandler::~CUiResourceChangeHandler() = default;
void CUiResourceChangeHandler::uiResourceChanged() { }

CBaseWidget::CBaseWidget(const QString&, bool, QWidget* parent)
    : CEventWidgetT<QWidget>(parent)
{
}
CBaseWidget::~CBaseWidget() = default;
void CBaseWidget::uiResourceChanged() { }
void CBaseWidget::mouseDoubleClickEvent(QMouseEvent*) { }

CSimpleText::CSimpleText(const QString& text, const QString&, const QString&)
    : m_text(text)
{
}
CSimpleText::~CSimpleText() = default;

QSize CSimpleText::getSize(const QString& text, const QFont& font)
{
    const QFontMetrics metrics(font);
    return { metrics.horizontalAdvance(text), metrics.height() };
}

QSize CSimpleText::getSize(const QString& text, const QString&)
{
    return getSize(text, QFont());
}

void CSimpleText::drawText(QPainter*, int, int, int, int, int, bool, bool) const { }

CPushButton::CPushButton(const QString& imageKey, int style, QWidget* parent)
    : QPushButton(parent)
    , m_imageKey(imageKey)
    , m_style(style)
{
}
CPushButton::~CPushButton() = default;

void CPushButton::setImageKey(const QString& imageKey)
{
    m_imageKey = imageKey;
}

QSize CPushButton::sizeHint() const
{
    return QPushButton::sizeHint();
}

void CPushButton::uiResourceChanged() { }

void CPushButton::paintEvent(QPaintEvent* event)
{
    QPushButton::paintEvent(event);
}

void CPushButton::enterEvent(utils::EnterEvent* event)
{
    m_underPointer = true;
    QPushButton::enterEvent(event);
}

void CPushButton::leaveEvent(QEvent* event)
{
    m_underPointer = false;
    QPushButton::leaveEvent(event);
}

CLineEdit::CLineEdit(QWidget* parent)
    : QLineEdit(parent)
{
}

CIntValidator::CIntValidator(int bottom, int top, QObject* parent)
    : QIntValidator(bottom, top, parent)
{
}

IDockableWidget::IDockableWidget(bool opaque, const QString& panelId, const QString& title, QWidget* parent,
                                 int dockOptions)
    : CBaseWidget(panelId, opaque, parent)
    , m_panelId(panelId)
    , m_title(title)
    , m_dockOptions(dockOptions)
{
}
IDockableWidget::~IDockableWidget() = default;
void IDockableWidget::acquire() { }
void IDockableWidget::release() { }

bool IDockableWidget::isSimpleHeaderTitle()
{
    return false;
}

bool IDockableWidget::isCloseEnable() const
{
    return true;
}

IBaseTable::IBaseTable(int, QWidget* parent)
    : CBaseWidget(QString(), false, parent)
{
}

CBaseNormalTable::CBaseNormalTable(int tableId, QWidget* parent, QFlags<EBaseTableMenuFlag>)
    : IBaseTable(tableId, parent)
{
}
CBaseNormalTable::~CBaseNormalTable() = default;
void CBaseNormalTable::setColumnCount(int) { }
int CBaseNormalTable::columnCount() const
{
    return 0;
}
int CBaseNormalTable::columnID(int index) const
{
    return index;
}
void CBaseNormalTable::setColumnHeader(int, const QString&) { }
QString CBaseNormalTable::columnHeader(int) const
{
    return QString();
}
void CBaseNormalTable::setColumnWidth(int, int) { }
void CBaseNormalTable::setColumnVisible(int, bool) { }
bool CBaseNormalTable::columnVisible(int) const
{
    return false;
}
void CBaseNormalTable::setColumnEditable(int, bool) { }
void CBaseNormalTable::setColumnEditor(int, QWidget*) { }
void CBaseNormalTable::clearRows() { }
QVector<int> CBaseNormalTable::setRowCount(int count)
{
    return QVector<int>(count);
}
int CBaseNormalTable::rowCount() const
{
    return 0;
}
int CBaseNormalTable::rowID(int index) const
{
    return index;
}
void CBaseNormalTable::setCellText(int, int, const QString&) { }
void CBaseNormalTable::setCellNumber(int, int, double, int, FormatNumberFlags) { }
void CBaseNormalTable::setCellInteger(int, int, int, int, FormatNumberFlags) { }
void CBaseNormalTable::setCellEditable(int, int, bool) { }
bool CBaseNormalTable::cellEditable(int, int) const
{
    return false;
}
QString CBaseNormalTable::cellText(int, int) const
{
    return QString();
}
std::set<int> CBaseNormalTable::selectedRows() const
{
    return {};
}
void CBaseNormalTable::selectRows(const std::set<int>&) { }
void CBaseNormalTable::setHeaderHeight(int) { }
void CBaseNormalTable::setRowHeight(int) { }
QMenu* CBaseNormalTable::contextMenu() const
{
    return nullptr;
}
bool CBaseNormalTable::handleEvent(int, int, int, QString, void*)
{
    return false;
}
void CBaseNormalTable::uiResourceChanged() { }
void CBaseNormalTable::keyPressEvent(QKeyEvent*) { }

CStandardTable::CStandardTable(int tableId, QWidget* parent, QFlags<EBaseTableMenuFlag> menu)
    : CBaseNormalTable(tableId, parent, menu)
{
}
CStandardTable::~CStandardTable() = default;
void CStandardTable::setStatText(int, const QString&) { }
const QMap<int, QString>& CStandardTable::columnFilters() const
{
    static const QMap<int, QString> none;
    return none;
}
void CStandardTable::sortByColumn(int, Qt::SortOrder) { }
int CStandardTable::getSortColumnID() const
{
    return -1;
}
Qt::SortOrder CStandardTable::getSortOrder() const
{
    return Qt::AscendingOrder;
}
void CStandardTable::filterColumn() { }
void CStandardTable::uiResourceChanged() { }
void CStandardTable::slotHeaderClicked(int) { }
void CStandardTable::slotHeaderMenu(const QPoint&) { }

} // namespace WB
