// SPDX-License-Identifier: MIT
#pragma once
/// @file A large bars file is read while the window goes on.

#include "apps/base/LatestJob.h"
#include "apps/base/Result.h"
#include "engine/series/BarSeries.h"

#include <QWidget>

class QProgressBar;

namespace client {

/// Reads one bars file on a thread of its own and shows how far it is, with a button that ends it; hidden
/// while nothing is read. A later file takes the place of that which is being read.
class BarsOpening : public QWidget
{
    Q_OBJECT

public:
    using Bars = base::Result<engine::BarSeries>;
    /// Takes the bars or why there are none; never called for a reading that was ended or replaced.
    using Taker = std::function<void(Bars bars)>;

    explicit BarsOpening(QWidget* parent = nullptr);

    /// Whether a file of this size in bytes should be read here: a smaller one takes less time than the eye
    /// needs.
    static bool isLarge(qint64 size) { return size > kAtOnce; }

    /// @param path  any name; see base::nameFromBytes.
    void start(const QString& path, Taker taker);
    /// Ends the reading, if any.
    void forget();
    bool isReading() const { return m_job.isBusy(); }

Q_SIGNALS:
    void sigCancelled();

private:
    static constexpr qint64 kAtOnce = qint64 { 4 } << 20;

    QProgressBar* m_bar;
    base::LatestJob m_job; ///< last: it ends before what it shows
};

} // namespace client
