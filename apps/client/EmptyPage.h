// SPDX-License-Identifier: MIT
#pragma once
/// @file What a page shows while it has nothing to show: how to begin.

#include <QWidget>

#include <functional>

namespace client {

/// A heading, what to do, and a button that does it, in the middle of the page.
class EmptyPage : public QWidget
{
    Q_OBJECT

public:
    /// What the page says, in the chosen language.
    struct Words
    {
        QString heading, advice, button;
    };

    explicit EmptyPage(const std::function<Words()>& words, QWidget* parent = nullptr);

Q_SIGNALS:
    void sigOpen();
};

} // namespace client
