// SPDX-License-Identifier: MIT
#pragma once
/// @file The renderer's command line.

#include "apps/base/Result.h"

#include <QSize>
#include <QString>
#include <QStringList>

#include <vector>

namespace render {

/// What to draw and where to. Names of files may be made of any bytes; see base::nameFromBytes.
struct Options
{
    QString bars;          ///< CSV file of price bars; or
    QString ticks;         ///< CSV file of trades
    bool bookRule = false; ///< tick volume sticks follow the order book
    QString instrument;    ///< key such as SH600000; by default the file's base name
    QString index;         ///< CSV file of the bars that INDEXC and its like answer from; empty: none
    QStringList overlays;  ///< CSV files of instruments that are laid over the first pane
    QString formula;       ///< file of a formula's text, to be drawn under its base name
    QString check;         ///< file of a formula's text, to be checked alone
    /// Formula names of each pane, top to bottom; empty: the usual ones.
    std::vector<QStringList> panes;
    int from = -1;            ///< first bar; -1: so that the last bar is shown
    int count = 250;          ///< bars shown at most
    QSize size { 1600, 900 }; ///< logical pixels
    double dpr = 1.0;         ///< device pixels per logical pixel
    QString skin;             ///< name of a shipped skin or path of a skin file; empty: the default
    QString output;           ///< picture: .png, .svg or .pdf
    QString exportTo;         ///< text of the first pane's formulas, .csv
    QString exportOne;        ///< name of the one formula to export; empty: all, side by side
    bool withTime = false;    ///< exported rows carry the time of day
    bool help = false;        ///< nothing else counts then
    bool version = false;     ///< likewise
};

/// Text of --help.
QString usage();
/// Text of --version.
QString versionLine();

/// Reads the arguments (without the program's name).
/// @return defaults where an option is not given; or one line that names the argument and what is wrong.
base::Result<Options> readOptions(const QStringList& arguments);

} // namespace render
