// SPDX-License-Identifier: MIT
#pragma once
/// @file What is said of an action outside its menu.

#include <QString>

class QAction;

namespace client {

/// Its text without the mark of a letter and without the dots that announce a question.
QString plainText(const QAction& action);
/// Its keys as the user's system writes them, "Ctrl+G"; several are parted by two blanks.
QString keysText(const QAction& action);
/// Text and, where it has one, its first key in brackets.
QString toolTipText(const QAction& action);

} // namespace client
