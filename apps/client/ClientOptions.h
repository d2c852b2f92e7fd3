// SPDX-License-Identifier: MIT
#pragma once
/// @file The client's command line.

#include "apps/base/Result.h"

#include <QString>
#include <QStringList>

namespace client {

/// What to open. Names of files may be made of any bytes; see base::nameFromBytes.
struct ClientOptions
{
    QStringList bars;     ///< CSV files of price bars
    QString follow;       ///< CSV file of bars or trades that another program appends to; empty: none
    QString language;     ///< key of offeredLanguages(); empty: as the last run
    bool help = false;    ///< nothing else counts then
    bool version = false; ///< likewise
};

/// Text of --help.
QString clientUsage();
/// Text of --version.
QString clientVersionLine();

/// Reads the arguments (without the program's name). @return or one line that names what is wrong.
base::Result<ClientOptions> readClientOptions(const QStringList& arguments);

} // namespace client
