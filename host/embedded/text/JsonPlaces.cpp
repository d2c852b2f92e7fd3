// SPDX-License-Identifier: MIT
#include "host/embedded/text/JsonPlaces.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <cstring>

namespace TC::embedded {

namespace {

constexpr int kNoKey = -1;

} // namespace

JsonPlaces::JsonPlaces(const QByteArray& json)
    : m_json(json)
    , m_text(json)
{
    if (m_json.startsWith("\xEF\xBB\xBF"))
        m_position = 3;
    readValue(kNoKey);
}

QString JsonPlaces::placeOf(const QStringList& path) const
{
    return m_text.placeAt(find(path).offset);
}

QString JsonPlaces::keyPlaceOf(const QStringList& path) const
{
    return m_text.placeAt(find(path).keyOffset);
}

QString JsonPlaces::syntaxFault(const QByteArray& json, const QJsonParseError& error)
{
    const int offset = error.offset - 1; // it is given behind the offending character
    return QStringLiteral("%1: %2").arg(TextPlaces(json).placeAt(offset), error.errorString());
}

const JsonPlaces::Value& JsonPlaces::find(const QStringList& path) const
{
    int value = 0;
    for (const QString& step : path) {
        const int child = childOf(value, step);
        if (child < 0)
            break;
        value = child;
    }
    return m_values[static_cast<std::size_t>(value)];
}

/// The value of a key or at a position inside another value; below 0 when there is none.
int JsonPlaces::childOf(int value, const QString& step) const
{
    const Value& parent = m_values[static_cast<std::size_t>(value)];
    bool isNumber = false;
    const int position = step.toInt(&isNumber);
    if (isNumber && position >= 0 && position < parent.elementCount)
        return m_elements[static_cast<std::size_t>(parent.firstElement) + static_cast<std::size_t>(position)];
    return m_members.value({ value, step }, -1);
}

/// @return its place in m_values.
int JsonPlaces::readValue(int keyOffset)
{
    skipBlanks();
    const int value = static_cast<int>(m_values.size());
    m_values.push_back({ m_position, keyOffset == kNoKey ? m_position : keyOffset });
    if (take('{'))
        readObject(value);
    else if (take('['))
        readArray(value);
    else if (current() == '"')
        skipText();
    else
        while (m_position < m_json.size() && !std::strchr(",]} \t\r\n", m_json.at(m_position)))
            ++m_position;
    return value;
}

void JsonPlaces::readObject(int value)
{
    for (skipBlanks(); current() == '"'; skipBlanks()) {
        const int keyOffset = m_position;
        const QString key = readKey();
        skipBlanks();
        take(':');
        m_members.insert({ value, key }, readValue(keyOffset)); // the last of a repeated key counts
        skipBlanks();
        take(',');
    }
    take('}');
}

void JsonPlaces::readArray(int value)
{
    std::vector<int> elements;
    skipBlanks();
    while (m_position < m_json.size() && current() != ']') {
        elements.push_back(readValue(kNoKey));
        skipBlanks();
        take(',');
        skipBlanks();
    }
    take(']');
    Value& array = m_values[static_cast<std::size_t>(value)];
    array.firstElement = static_cast<int>(m_elements.size());
    array.elementCount = static_cast<int>(elements.size());
    m_elements.insert(m_elements.end(), elements.begin(), elements.end());
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
