// SPDX-License-Identifier: MIT
#pragma once
/// @file What became of the rows of an imported list.

#include <QString>
#include <QStringList>
#include <QVector>

namespace client {

/// Counts over the rows of one source. Rows are judged by their code alone, as the readers do.
struct ImportReport
{
    int rows = 0;
    int recognised = 0;
    int empty = 0;
    int unknown = 0;      ///< no instrument bears the code
    int otherKind = 0;    ///< the instrument is no A share
    QStringList examples; ///< first codes that were not recognised, five at most
    QString trouble;      ///< why a file gave nothing, or that it may have given too little; else empty

    /// One line for the user.
    QString text(const QString& source) const;
};

/// Judges rows by their code column.
/// @param workbook  codes of 1 to 5 characters are padded with zeros and looked up on every market, as the
///        workbook reader does; otherwise texts are looked up as they stand.
ImportReport reportOn(const QVector<QString>& codes, bool workbook);

/// The same for a file: judges the first field of each text line, or the first column of a workbook, and says
/// what went wrong with reading it.
ImportReport reportOnFile(const QString& path, bool workbook);

} // namespace client
