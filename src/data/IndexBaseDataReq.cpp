// SPDX-License-Identifier: MIT
#include "data/IndexBaseDataReq.h"

#include <algorithm>
#include <iterator>

namespace TC {

namespace {

/// -1 when no entry is what is looked for.
template <typename Items, typename IsWanted>
int placeOf(const Items& items, IsWanted isWanted)
{
    const auto found = std::find_if(items.begin(), items.end(), isWanted);
    return found == items.end() ? -1 : static_cast<int>(std::distance(items.begin(), found));
}

} // namespace

IndexBaseDataReqItem IndexBaseDataReq::s_defItem;

int IndexBaseDataReq::indexOf(const CFormulaKey& key) const
{
    return placeOf(m_items, [&](const IndexBaseDataReqItem& item) { return item.key == key; });
}

int IndexBaseDataReq::indexOf(const QString& reqId) const
{
    return placeOf(m_items, [&](const IndexBaseDataReqItem& item) { return item.reqId == reqId; });
}

bool IndexBaseDataReq::add(const CFormulaKey& key, const QString& reqId)
{
    const int known = indexOf(key);
    if (known >= 0)
        std::next(m_items.begin(), known)->reqId = reqId;
    else
        m_items.push_back({ key, reqId });
    return true;
}

bool IndexBaseDataReq::findKey(const CFormulaKey& key) const
{
    return indexOf(key) >= 0;
}

bool IndexBaseDataReq::findReq(const QString& reqId) const
{
    return indexOf(reqId) >= 0;
}

bool IndexBaseDataReq::getKey(CFormulaKey& key, const QString& reqId) const
{
    const int place = indexOf(reqId);
    if (place < 0)
        return false;
    key = std::next(m_items.begin(), place)->key;
    return true;
}

bool IndexBaseDataReq::getReq(QString& reqId, const CFormulaKey& key) const
{
    const int place = indexOf(key);
    if (place < 0)
        return false;
    reqId = std::next(m_items.begin(), place)->reqId;
    return true;
}

void IndexBaseDataReq::removeAt(int index)
{
    if (index >= 0 && index < count())
        m_items.erase(std::next(m_items.begin(), index));
}

void IndexBaseDataReq::removeKey(const CFormulaKey& key)
{
    removeAt(indexOf(key));
}

void IndexBaseDataReq::removeReq(const QString& reqId)
{
    removeAt(indexOf(reqId));
}

QVector<QString> IndexBaseDataReq::reqIds() const
{
    QVector<QString> ids;
    ids.reserve(count());
    for (const IndexBaseDataReqItem& item : m_items)
        ids.append(item.reqId);
    return ids;
}

// Deliberate: without an entry the one default of all tables is handed out, even where it can be written to.
IndexBaseDataReqItem& IndexBaseDataReq::operator[](int index)
{
    return m_items.empty() || index < 0 ? s_defItem : *std::next(m_items.begin(), index % count());
}

const IndexBaseDataReqItem& IndexBaseDataReq::operator[](int index) const
{
    return m_items.empty() || index < 0 ? s_defItem : *std::next(m_items.begin(), index % count());
}

} // namespace TC
