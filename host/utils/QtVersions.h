// SPDX-License-Identifier: MIT
#pragma once
/// @file What bears another name in Qt 5 than in Qt 6.

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QEvent;
class QEnterEvent;
QT_END_NAMESPACE

namespace utils {

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
using EnterEvent = QEvent; ///< what QWidget::enterEvent takes
#else
using EnterEvent = QEnterEvent; ///< what QWidget::enterEvent takes
#endif

} // namespace utils
