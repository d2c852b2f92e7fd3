// SPDX-License-Identifier: MIT
#include "data/IndexBaseDataReq.h"

#include <algorithm>

namespace TC {

IndexBaseDataReqItem IndexBaseDataReq::s_defItem;

int IndexBaseDataReq::indexOf(const CFormulaKey& key) const
{
    const auto found = std::find_if(m_items.begin(), m_items.end(),
                                    [&](const IndexBaseDataReqItem& item) { return item.key == key; });
    return found == m_items.end() ? -1 : static_cast<int>(found - m_items.begin());
}

int IndexBaseDataReq::indexOf(const QString& reqId) const
{
    const auto found = std::find_if(m_items.begin(), m_items.end(),
                                    [&](const IndexBaseDataReqItem& item) { return item.reqId == reqId; });
    return found == m_items.end() ? -1 : static_cast<int>(found - m_items.begin());
}

bool IndexBaseDataReq::add(const CFormulaKey& key, const QString& reqId)
{
    const int known = indexOf(key);
    if (known >= 0)
        m_items[known].reqId = reqId;
    else
        m_items.append({ key, reqId });
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
    key = m_items[place].key;
    return true;
}

bool IndexBaseDataReq::getReq(QString& reqId, const CFormulaKey& key) const
{
    const int place = indexOf(key);
    if (place < 0)
        return false;
    reqId = m_items[place].reqId;
    return true;
}

void IndexBaseDataReq::removeAt(int index)
{
    if (index >= 0 && index < m_items.size())
        m_items.removeAt(index);
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
    ids.reserve(m_items.size());
    for (const IndexBaseDataReqItem& item : m_items)
        ids.append(item.reqId);
    return ids;
}

// Deliberate: without an entry the one default of all tables is handed out, even where it can be written to.
IndexBaseDataReqItem& IndexBaseDataReq::operator[](int index)
{
    return m_items.isEmpty() || index < 0 ? s_defItem : m_items[index % m_items.size()];
}

const IndexBaseDataReqItem& IndexBaseDataReq::operator[](int index) const
{
    return m_items.isEmpty() || index < 0 ? s_defItem : m_items[index % m_items.size()];
}

} // namespace TC
