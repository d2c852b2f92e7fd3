// SPDX-License-Identifier: MIT
#include "apps/client/tools/ActionTexts.h"

#include <QAction>
#include <QRegularExpression>
#include <QStringList>

namespace client {

QString plainText(const QAction& action)
{
    // In Chinese the letter stands in brackets behind the word.
    static const QRegularExpression letterBehind(QStringLiteral("\\(&.\\)|…$"));
    static const QRegularExpression letterInside(QStringLiteral("&(.)"));
    return action.text().remove(letterBehind).replace(letterInside, QStringLiteral("\\1"));
}

QString keysText(const QAction& action)
{
    QStringList texts;
    const QList<QKeySequence> keys = action.shortcuts();
    for (const QKeySequence& key : keys)
        texts << key.toString(QKeySequence::NativeText);
    return texts.join(QStringLiteral("  "));
}

QString toolTipText(const QAction& action)
{
    const QKeySequence key = action.shortcut();
    return key.isEmpty()
        ? plainText(action)
        : QStringLiteral("%1 (%2)").arg(plainText(action), key.toString(QKeySequence::NativeText));
}

} // namespace client
