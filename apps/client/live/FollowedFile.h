// SPDX-License-Identifier: MIT
#pragma once
/// @file Bars or trades that another program appends to a file.

#include "apps/base/Result.h"
#include "apps/chart/OpenedBars.h"
#include "apps/client/live/LiveFile.h"
#include "engine/files/BarFile.h"
#include "engine/files/TickFile.h"

#include <QObject>

#include <memory>

namespace client {

/// Hands out what stands in the file, and again whenever whole rows have come. A file that was cut or
/// replaced is read anew, and said to be. GUI thread only.
class FollowedFile : public QObject
{
    Q_OBJECT

public:
    /// @param path  any name; see base::nameFromBytes.
    explicit FollowedFile(QString path, QObject* parent = nullptr);

    /// Reads the file for the first time and hands out what stands there. @return why it cannot be followed.
    base::Result<void> open();

    const QString& path() const { return m_path; }

Q_SIGNALS:
    /// @param anew  other bars than before; else the ones before, the last one perhaps changed, and more.
    void sigBars(const chart::OpenedBars& opened, bool anew);
    /// @param anew  other trades than before; else the ones before and more.
    void sigTicks(const chart::OpenedTicks& opened, bool anew);
    void sigMessage(const QString& text);

private:
    base::Result<void> start();
    void readOn();
    void startAgain();
    void handOut(bool anew);
    QString failure() const;

    QString m_path;
    LiveFile m_file;
    chart::Instrument m_instrument;
    std::unique_ptr<engine::BarFollower> m_bars;   ///< one of the two,
    std::unique_ptr<engine::TickFollower> m_ticks; ///< or none while the file cannot be read
};

} // namespace client
