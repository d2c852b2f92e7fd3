// SPDX-License-Identifier: MIT
#pragma once
/// @file Where the values of a JSON text stand, for messages about them.

#include "host/embedded/text/TextPlaces.h"

#include <QHash>
#include <QPair>
#include <QStringList>

struct QJsonParseError;

namespace TC::embedded {

/// Places of all values of a JSON text that is known to be sound. A path names a value by the keys and
/// positions that lead to it: { "formulas", "2", "base" }. Where a path leads nowhere, the nearest value
/// around answers.
class JsonPlaces
{
public:
    explicit JsonPlaces(const QByteArray& json);

    /// "LINE:COLUMN" of a value.
    QString placeOf(const QStringList& path) const;
    /// The same of the key before it; of the value itself where it has no key.
    QString keyPlaceOf(const QStringList& path) const;

    /// What is wrong with a text that is not sound: "LINE:COLUMN: reason".
    static QString syntaxFault(const QByteArray& json, const QJsonParseError& error);

    /// Bytes that were walked so far to find places.
    qint64 walkedBytes() const { return m_text.walkedBytes(); }

private:
    struct Value
    {
        int offset, keyOffset; ///< byte positions
        int firstElement = 0;  ///< of an array, in m_elements
        int elementCount = 0;
    };

    const Value& find(const QStringList& path) const;
    int childOf(int value, const QString& step) const;
    int readValue(int keyOffset);
    void readObject(int value);
    void readArray(int value);
    QString readKey();
    void skipText();
    void skipBlanks();
    bool take(char mark);
    char current() const { return m_position < m_json.size() ? m_json.at(m_position) : '\0'; }

    QByteArray m_json;
    TextPlaces m_text;
    int m_position = 0;
    std::vector<Value> m_values;               ///< the outermost first
    std::vector<int> m_elements;               ///< of all arrays, each one's together
    QHash<QPair<int, QString>, int> m_members; ///< by object and key
};

} // namespace TC::embedded
