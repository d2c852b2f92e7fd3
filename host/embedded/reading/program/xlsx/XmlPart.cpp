// SPDX-License-Identifier: MIT
#include "host/embedded/reading/program/xlsx/XmlPart.h"

#include <expat.h>

#include <memory>
#include <new>

namespace workbook {

namespace {

constexpr int kDeepest = 256; // elements

/// What the parser's callbacks share.
struct Reading
{
    XmlReceiver& receiver;
    XML_Parser parser;
    int depth = 0;
    bool isRefused = false;

    void refuse()
    {
        isRefused = true;
        XML_StopParser(parser, XML_FALSE);
    }
};

Reading& readingOf(void* data)
{
    return *static_cast<Reading*>(data);
}

std::string_view localName(std::string_view name)
{
    return name.substr(name.find(':') + 1); // npos + 1 is 0
}

void onStart(void* data, const char* name, const char** attributes)
{
    Reading& reading = readingOf(data);
    if (reading.isRefused)
        return; // the parser goes on for a little after it was stopped
    if (++reading.depth > kDeepest)
        reading.refuse();
    else
        reading.receiver.startElement(localName(name), XmlAttributes(attributes));
}

void onEnd(void* data, const char*)
{
    Reading& reading = readingOf(data);
    --reading.depth;
    if (!reading.isRefused)
        reading.receiver.endElement();
}

void onCharacters(void* data, const char* text, int length)
{
    Reading& reading = readingOf(data);
    if (!reading.isRefused)
        reading.receiver.characters(std::string_view(text, static_cast<std::size_t>(length)));
}

void onDocumentType(void* data, const char*, const char*, const char*, int)
{
    readingOf(data).refuse();
}

} // namespace

std::string_view XmlAttributes::value(std::string_view name) const
{
    for (const char* const* at = m_list; *at; at += 2) {
        if (name == *at)
            return at[1];
    }
    return {};
}

std::string_view XmlAttributes::prefixedValue(std::string_view name) const
{
    for (const char* const* at = m_list; *at; at += 2) {
        const std::string_view full = *at;
        if (full.size() > name.size() && localName(full) == name)
            return at[1];
    }
    return {};
}

Archive::End readXml(Archive& archive, const QByteArray& part, XmlReceiver& receiver)
{
    const std::unique_ptr<XML_ParserStruct, void (*)(XML_Parser)> parser(XML_ParserCreate(nullptr),
                                                                         XML_ParserFree);
    if (!parser)
        throw std::bad_alloc();
    Reading reading { receiver, parser.get() };
    XML_SetUserData(parser.get(), &reading);
    XML_SetElementHandler(parser.get(), onStart, onEnd);
    XML_SetCharacterDataHandler(parser.get(), onCharacters);
    XML_SetStartDoctypeDeclHandler(parser.get(), onDocumentType);

    const auto parse = [&](const char* bytes, int size, int isLast) {
        const bool isSound = XML_Parse(parser.get(), bytes, size, isLast) == XML_STATUS_OK;
        if (!isSound && XML_GetErrorCode(parser.get()) == XML_ERROR_NO_MEMORY)
            throw std::bad_alloc();
        return isSound;
    };
    const Archive::End end = archive.read(part, [&](const char* bytes, int size) {
        return parse(bytes, size, XML_FALSE) && receiver.wantsMore();
    });
    if (end == Archive::End::Stopped && receiver.wantsMore())
        return Archive::End::Damaged; // the parser stopped, not the receiver
    const bool isWhole = end == Archive::End::Whole && parse(nullptr, 0, XML_TRUE);
    return end == Archive::End::Whole && !isWhole ? Archive::End::Damaged : end;
}

} // namespace workbook
