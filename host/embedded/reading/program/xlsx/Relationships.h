// SPDX-License-Identifier: MIT
#pragma once
/// @file Which part leads to which.

#include "host/embedded/reading/program/xlsx/XmlPart.h"

#include <vector>

namespace workbook {

/// One way from a part to another part of the same archive.
struct Relationship
{
    QByteArray id;
    QByteArray kind; ///< last word of the type, the same in the transitional and the strict form: "worksheet"
    QByteArray target; ///< name of the part, from the root, without a leading "/"
};

/// What a part leads to.
class Relationships
{
public:
    /// @param part  empty for the archive itself.
    Relationships(Archive& archive, const QByteArray& part);

    bool isDamaged() const { return m_isDamaged; }
    /// Null when there is none.
    const Relationship* withId(std::string_view id) const;
    const Relationship* ofKind(std::string_view kind) const;

private:
    std::vector<Relationship> m_list;
    bool m_isDamaged = false;
};

/// Name of the part that a target means, seen from a part: "../x", "/x", percent signs and all.
QByteArray partName(const QByteArray& from, const QByteArray& target);

} // namespace workbook
