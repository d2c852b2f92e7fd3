// SPDX-License-Identifier: MIT
#pragma once
/// @file What bears another name in Qt 5 than in Qt 6.

#include <QtGlobal>

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
#include <QList>
#else
#include <list>
#endif

QT_BEGIN_NAMESPACE
class QEvent;
class QEnterEvent;
QT_END_NAMESPACE

namespace utils {

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
using EnterEvent = QEvent; ///< what QWidget::enterEvent takes
/// A list whose records stay where they are in memory while others come and go.
template <typename Record>
using LastingList = QList<Record>;
#else
using EnterEvent = QEnterEvent; ///< what QWidget::enterEvent takes
/// A list whose records stay where they are in memory while others come and go.
template <typename Record>
using LastingList = std::list<Record>;
#endif

} // namespace utils
