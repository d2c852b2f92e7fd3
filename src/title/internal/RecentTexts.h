// SPDX-License-Identifier: MIT
#pragma once
/// @file What was found out about the texts asked for last.

#include <QHash>
#include <QString>

#include <utility>

namespace TC::detail {

/// Values by text, in two generations: when the young one is full it becomes the old one, and what was not
/// asked for since then is dropped.
template <class Value>
class RecentTexts
{
public:
    /// The kept value of a text, or else make(text), which is kept; valid until the next call.
    template <class Make>
    const Value& value(const QString& text, Make make)
    {
        const auto young = m_young.constFind(text);
        if (young != m_young.constEnd())
            return *young;
        const auto old = m_old.constFind(text);
        Value made = old != m_old.constEnd() ? *old : make(text);
        if (m_young.size() >= kGeneration)
            m_old = std::exchange(m_young, {});
        // A copy of its own: the text asked for may stand in memory that is not the key's to keep.
        return *m_young.insert(QString(text.constData(), text.size()), std::move(made));
    }

private:
    static constexpr int kGeneration = 1024;

    QHash<QString, Value> m_young, m_old;
};

} // namespace TC::detail
