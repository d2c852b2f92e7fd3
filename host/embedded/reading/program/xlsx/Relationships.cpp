// SPDX-License-Identifier: MIT
#include "host/embedded/reading/program/xlsx/Relationships.h"

#include <QList>

#include <algorithm>

namespace workbook {

namespace {

QByteArray bytesOf(std::string_view text)
{
    return QByteArray(text.data(), static_cast<int>(text.size()));
}

bool isSame(const QByteArray& a, std::string_view b)
{
    return std::string_view(a.constData(), static_cast<std::size_t>(a.size())) == b;
}

/// "xl/workbook.xml" -> "xl/_rels/workbook.xml.rels"; the archive itself -> "_rels/.rels".
QByteArray relationshipsPart(const QByteArray& part)
{
    const int file = part.lastIndexOf('/') + 1;
    return part.left(file) + "_rels/" + part.mid(file) + ".rels";
}

struct Receiver : XmlReceiver
{
    Receiver(std::vector<Relationship>& made, const QByteArray& part)
        : list(made)
        , from(part)
    {
    }
    void startElement(std::string_view name, const XmlAttributes& attributes) override
    {
        if (name != "Relationship" || attributes.value("TargetMode") == "External")
            return;
        const QByteArray type = bytesOf(attributes.value("Type"));
        list.push_back({ bytesOf(attributes.value("Id")), type.mid(type.lastIndexOf('/') + 1),
                         partName(from, bytesOf(attributes.value("Target"))) });
    }

    std::vector<Relationship>& list;
    const QByteArray from;
};

} // namespace

QByteArray partName(const QByteArray& from, const QByteArray& target)
{
    const QByteArray path = QByteArray::fromPercentEncoding(target).replace('\\', '/');
    QList<QByteArray> steps = from.left(std::max<int>(from.lastIndexOf('/'), 0)).split('/');
    if (path.startsWith('/') || !from.contains('/'))
        steps.clear();
    const QList<QByteArray> further = path.split('/');
    for (const QByteArray& step : further) {
        if (step == ".." && !steps.isEmpty())
            steps.removeLast();
        else if (!step.isEmpty() && step != "." && step != "..")
            steps.append(step);
    }
    return steps.join('/');
}

Relationships::Relationships(Archive& archive, const QByteArray& part)
{
    Receiver receiver(m_list, part);
    m_isDamaged = readXml(archive, relationshipsPart(part), receiver) != Archive::End::Whole;
}

const Relationship* Relationships::withId(std::string_view id) const
{
    const auto found =
        std::find_if(m_list.begin(), m_list.end(), [&](const Relationship& r) { return isSame(r.id, id); });
    return found == m_list.end() ? nullptr : &*found;
}

const Relationship* Relationships::ofKind(std::string_view kind) const
{
    const auto found = std::find_if(m_list.begin(), m_list.end(),
                                    [&](const Relationship& r) { return isSame(r.kind, kind); });
    return found == m_list.end() ? nullptr : &*found;
}

} // namespace workbook
