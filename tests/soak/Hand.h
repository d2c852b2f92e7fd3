// SPDX-License-Identifier: MIT
#pragma once
/// @file A hand that does anything to the client: random moves, clicks and keys, and every tool of the menus.

#include <QMap>
#include <QString>
#include <QStringList>

#include <random>

namespace soak {

/// Size of the screen that the hand works on, pixels.
constexpr int kWidth = 1600, kHeight = 1000;

/// What one hand does is decided by its seed alone. Each event is told in the words of xdotool.
class Hand
{
public:
    /// @param folder  where files lie that the hand opens; it saves there as well.
    Hand(unsigned seed, const QString& folder);

    QStringList nextEvent();
    /// The arguments of the client's next start.
    QStringList nextArguments();
    /// A number from 0 to limit - 1.
    int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }

    /// How often each tool was taken, by its name.
    const QMap<QString, int>& taken() const { return m_taken; }

private:
    QStringList plainEvent();
    QStringList toolEvent();
    QStringList move();
    /// A point on the chart's panes.
    QStringList moveOverChart();
    QStringList drag();
    QString file(const char* name) const { return m_folder + QLatin1Char('/') + QLatin1String(name); }

    std::mt19937 m_random;
    QString m_folder;
    QMap<QString, int> m_taken;
};

} // namespace soak
