#pragma once
/// @file Where the values of a JSON text stand, for messages about them.

#include <QByteArray>
#include <QHash>
#include <QString>

namespace TC::embedded {

/// Places of all values of a JSON text that is known to be sound, by their path: keys and positions joined by
/// '/', as in "formulas/2/base".
class JsonPlaces
{
public:
    explicit JsonPlaces(const QByteArray& json);

    /// "LINE:COLUMN" of the value at a path, or of the nearest value around it; both count from 1, columns in
    /// characters.
    QString placeOf(QString path) const;

    /// "LINE:COLUMN" of a byte position.
    static QString placeAt(const QByteArray& json, int offset);

private:
    void readValue(const QString& path);
    void readObject(const QString& path);
    void readArray(const QString& path);
    QString readKey();
    void skipText();
    void skipBlanks();
    bool take(char mark);
    char current() const { return m_position < m_json.size() ? m_json.at(m_position) : '\0'; }

    QByteArray m_json;
    int m_position = 0;
    QHash<QString, int> m_offsets;
};

} // namespace TC::embedded
