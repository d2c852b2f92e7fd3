// SPDX-License-Identifier: MIT
#pragma once
/// @file The instrument that INDEXC and its like read.

#include "apps/base/Result.h"
#include "apps/chart/OpenedBars.h"

#include <QCoreApplication>
#include <QString>

#include <memory>

namespace client {

/// A bars file that formulas compare with, usually an index. Which one it is is kept with the settings, in
/// the file "comparedIndex" of TC::getConfigDir(). GUI thread only.
class ComparedIndex
{
    Q_DECLARE_TR_FUNCTIONS(client::ComparedIndex)

public:
    /// Opens a file and keeps its name. A file that cannot be opened changes nothing.
    base::Result<void> choose(const QString& path);
    /// Opens the file whose name was kept; nothing when there is none.
    base::Result<void> restore();
    /// Compares with nothing from now on.
    base::Result<void> forget();

    /// Key and name of the instrument; empty when there is none.
    QString name() const;
    /// The bars with the index beside them, or as they are when there is none.
    std::shared_ptr<const engine::BarSeries> beside(
        const std::shared_ptr<const engine::BarSeries>& bars) const;

private:
    chart::OpenedBars m_index;
};

} // namespace client
