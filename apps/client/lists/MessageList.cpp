// SPDX-License-Identifier: MIT
#include "apps/client/lists/MessageList.h"

#include "apps/client/language/Language.h"

#include <QTime>

namespace client {

MessageList::MessageList(QWidget* parent)
    : QPlainTextEdit(parent)
{
    constexpr int kept = 1000;
    setReadOnly(true);
    setMaximumBlockCount(kept);
    followLanguage(this, [this] { setPlaceholderText(tr("消息")); });
}

void MessageList::slotShow(const QString& message)
{
    appendPlainText(QTime::currentTime().toString(QStringLiteral("HH:mm:ss  ")) + message);
}

} // namespace client
