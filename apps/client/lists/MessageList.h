// SPDX-License-Identifier: MIT
#pragma once
/// @file What the client has told its user.

#include <QPlainTextEdit>

namespace client {

/// Messages with their time, newest last; old ones are dropped.
class MessageList : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit MessageList(QWidget* parent = nullptr);

public Q_SLOTS:
    void slotShow(const QString& message);
};

} // namespace client
