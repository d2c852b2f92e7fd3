// SPDX-License-Identifier: MIT
#pragma once
/// @file Pictures of a skin.

#include <QDir>
#include <QPixmap>
#include <QString>

namespace TC::embedded {

/// Reads the SVG pictures of one skin and keeps what they take within bounds.
class SkinPictures
{
public:
    /// @param folder  where the pictures of relative names stand.
    explicit SkinPictures(const QDir& folder)
        : m_folder(folder)
    {
    }

    /// Draws the picture of a file, sharp up to a device pixel ratio of 3.
    /// @param[out] pixmap  written only on success.
    /// @return empty on success, else what is wrong with the picture.
    QString read(const QString& fileName, QPixmap& pixmap);

private:
    QDir m_folder;
    qint64 m_pixels = 0; ///< device pixels of all pictures so far
};

} // namespace TC::embedded
