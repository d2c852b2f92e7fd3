// SPDX-License-Identifier: MIT
#pragma once
/// @file A frame around the list, table or text that has the keyboard.

#include <QObject>
#include <QPointer>

class QAbstractScrollArea;
class QWidget;

namespace client {

/// Fields and buttons show by themselves that they have the keyboard, areas that scroll do not: this draws
/// the frame over the one that has it, in every window of the program. GUI thread only, after the
/// application.
class FocusOutline : public QObject
{
public:
    explicit FocusOutline(QObject* parent = nullptr);
    ~FocusOutline() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void follow(QWidget* focus);

    QPointer<QWidget> m_frame; ///< belongs to the area that it is drawn over
};

} // namespace client
