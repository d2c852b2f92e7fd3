#include "host/embedded/skin/JsonPlaces.h"

#include <QJsonDocument>
#include <QJsonArray>

#include <algorithm>
#include <cstring>

namespace TC::embedded {

JsonPlaces::JsonPlaces(const QByteArray& json)
    : m_json(json)
{
    if (m_json.startsWith("\xEF\xBB\xBF"))
        m_position = 3;
    readValue(QString());
}

QString JsonPlaces::placeOf(QString path) const
{
    while (!m_offsets.contains(path) && !path.isEmpty())
        path.truncate(std::max(0, path.lastIndexOf(QLatin1Char('/'))));
    return placeAt(m_json, m_offsets.value(path));
}

QString JsonPlaces::placeAt(const QByteArray& json, int offset)
{
    const QByteArray before = json.left(std::max(offset, 0));
    const int line = before.count('\n') + 1;
    const int column = QString::fromUtf8(before.mid(before.lastIndexOf('\n') + 1)).size() + 1;
    return QStringLiteral("%1:%2").arg(line).arg(column);
}

void JsonPlaces::readValue(const QString& path)
{
    skipBlanks();
    m_offsets.insert(path, m_position);
    if (take('{'))
        readObject(path.isEmpty() ? path : path + QLatin1Char('/'));
    else if (take('['))
        readArray(path.isEmpty() ? path : path + QLatin1Char('/'));
    else if (current() == '"')
        skipText();
    else
        while (m_position < m_json.size() && !std::strchr(",]} \t\r\n", m_json.at(m_position)))
            ++m_position;
}

/// @param path  with its separator.
void JsonPlaces::readObject(const QString& path)
{
    for (skipBlanks(); current() == '"'; skipBlanks()) {
        const QString key = readKey();
        skipBlanks();
        take(':');
        readValue(path + key);
        skipBlanks();
        take(',');
    }
    take('}');
}

void JsonPlaces::readArray(const QString& path)
{
    skipBlanks();
    for (int position = 0; m_position < m_json.size() && current() != ']'; ++position) {
        readValue(path + QString::number(position));
        skipBlanks();
        take(',');
        skipBlanks();
    }
    take(']');
}

QString JsonPlaces::readKey()
{
    const int begin = m_position;
    skipText();
    // As the only element of an array the key is a document of its own, with all escapes.
    return QJsonDocument::fromJson('[' + m_json.mid(begin, m_position - begin) + ']')
        .array()
        .at(0)
        .toString();
}

void JsonPlaces::skipText()
{
    for (++m_position; m_position < m_json.size() && current() != '"'; ++m_position) {
        if (current() == '\\')
            ++m_position;
    }
    take('"');
}

void JsonPlaces::skipBlanks()
{
    while (m_position < m_json.size() && std::strchr(" \t\r\n", m_json.at(m_position)))
        ++m_position;
}

bool JsonPlaces::take(char mark)
{
    if (current() != mark || m_position >= m_json.size())
        return false;
    ++m_position;
    return true;
}

} // namespace TC::embedded
