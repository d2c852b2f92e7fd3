// SPDX-License-Identifier: MIT
#pragma once
/// @file The outstanding requests of a pane.

#include "data/IndexBaseDataReqItem.h"
#include "host/utils/QtVersions.h"
#include "indicatorui_export.h"

#include <QVector>

namespace TC {

/// Ordered table from formula instances to the identifiers of their requests: at most one entry a key, in
/// the order in which keys were first added. Identifiers are opaque and need not be unique; look-ups by
/// identifier take the first match. Texts are compared exactly. GUI thread only.
class INDICATORUI_EXPORT IndexBaseDataReq
{
public:
    IndexBaseDataReq() = default;
    /// Copies every item.
    IndexBaseDataReq(const IndexBaseDataReq&) = default;
    /// Replaces every item.
    IndexBaseDataReq& operator=(const IndexBaseDataReq&) = default;
    virtual ~IndexBaseDataReq() = default;

    /// Notes the request of a key; a known key keeps its place and takes the new identifier. Always true.
    bool add(const CFormulaKey& key, const QString& reqId);

    /// Whether a request of the key is noted.
    bool findKey(const CFormulaKey& key) const;
    /// Whether a request of the identifier is noted.
    bool findReq(const QString& reqId) const;

    /// Key of the first entry with the identifier. @return false, `key` untouched, when there is none.
    bool getKey(CFormulaKey& key, const QString& reqId) const;
    /// Identifier of a key's request. @return false, `reqId` untouched, when there is none.
    bool getReq(QString& reqId, const CFormulaKey& key) const;

    /// Removes the entry at a place; places that do not exist are ignored.
    void removeAt(int index);
    /// Removes the entry of a key, if there is one.
    void removeKey(const CFormulaKey& key);
    /// Removes the first entry with the identifier, if there is one.
    void removeReq(const QString& reqId);

    /// Every identifier, in order.
    QVector<QString> reqIds() const;
    /// Number of items.
    int count() const { return static_cast<int>(m_items.size()); }
    /// Forgets every item.
    void clear() { m_items.clear(); }

    /// Entry at `index % count()`. An empty table answers the shared s_defItem, and so does a negative index;
    /// writing to that changes it for every table, so test count() first. An entry stays where it is in
    /// memory while others come and go, unless the table was copied.
    IndexBaseDataReqItem& operator[](int index);
    /// The same for reading.
    const IndexBaseDataReqItem& operator[](int index) const;

    static IndexBaseDataReqItem s_defItem; ///< answer where there is no entry: all texts empty

private:
    int indexOf(const CFormulaKey& key) const;
    int indexOf(const QString& reqId) const;

    utils::LastingList<IndexBaseDataReqItem> m_items;
};

} // namespace TC
