// SPDX-License-Identifier: MIT
#pragma once
/// @file What a page shows while it has nothing to show: how to begin.

#include <QWidget>

namespace client {

/// A heading, what to do, and a button that does it, in the middle of the page.
class EmptyPage : public QWidget
{
    Q_OBJECT

public:
    EmptyPage(const QString& heading, const QString& advice, const QString& button,
              QWidget* parent = nullptr);

Q_SIGNALS:
    void sigOpen();
};

} // namespace client
