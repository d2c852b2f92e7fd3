// SPDX-License-Identifier: MIT
#pragma once
/// @file The elements of an XML part of an archive.

#include "host/embedded/reading/program/xlsx/Archive.h"

#include <string_view>

namespace workbook {

/// Attributes of an element: names and values in turn, ended by a null.
class XmlAttributes
{
public:
    explicit XmlAttributes(const char* const* list)
        : m_list(list)
    {
    }
    /// Value of an attribute without a prefix; empty when it is not there.
    std::string_view value(std::string_view name) const;
    /// The same for an attribute with a prefix, whichever it is: "id" finds r:id.
    std::string_view prefixedValue(std::string_view localName) const;

private:
    const char* const* m_list;
};

/// Receives what stands in a part. Names come without their prefix: workbooks differ in prefixes and, between
/// the transitional and the strict form, in namespaces, and in nothing else that is read here.
class XmlReceiver
{
public:
    virtual ~XmlReceiver() = default;
    virtual void startElement(std::string_view name, const XmlAttributes& attributes) = 0;
    virtual void endElement() { }
    virtual void characters(std::string_view) { }
    /// False stops the reading; asked once in a while.
    virtual bool wantsMore() const { return true; }
};

/// Reads a part. A document type is refused, so that no entity reaches outside or grows; so are elements
/// deeper than any workbook has them.
Archive::End readXml(Archive& archive, const QByteArray& part, XmlReceiver& receiver);

} // namespace workbook
