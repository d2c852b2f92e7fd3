// SPDX-License-Identifier: MIT
#pragma once
/// @file Reading files that anybody may have put there.

#include <QByteArray>
#include <QString>

namespace TC::embedded {

/// Reads an ordinary file whole, or a resource of the program. Pipes, devices and folders are refused without
/// being opened.
/// @param most  bytes; a larger file is refused.
/// @param[out] bytes  written only on success.
/// @return empty on success, else the reason.
QString readOrdinaryFile(const QString& path, int most, QByteArray& bytes);

} // namespace TC::embedded
