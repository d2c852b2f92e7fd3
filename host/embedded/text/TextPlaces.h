// SPDX-License-Identifier: MIT
#pragma once
/// @file Where the bytes of a text stand, for messages about them.

#include <QByteArray>
#include <QString>

#include <vector>

namespace TC::embedded {

/// Lines and columns of a UTF-8 text. The text is walked once; after that a place costs at most kStride bytes
/// of walking twice, however long the text and its lines are.
class TextPlaces
{
public:
    static constexpr int kStride = 1024; ///< bytes

    explicit TextPlaces(const QByteArray& text);

    /// "LINE:COLUMN" of a byte position; both count from 1, columns in characters (UTF-16 units). Positions
    /// outside the text are those of its ends.
    QString placeAt(int offset) const;

    /// Bytes that were walked so far: the cost of all the places.
    qint64 walkedBytes() const { return m_walkedBytes; }

private:
    int unitsBefore(int offset) const;
    int unitsBetween(int begin, int end) const;

    QByteArray m_text;
    std::vector<int> m_lineStarts; ///< byte positions
    std::vector<int> m_units;      ///< UTF-16 units before each kStride bytes
    mutable qint64 m_walkedBytes = 0;
};

} // namespace TC::embedded
