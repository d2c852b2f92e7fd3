// SPDX-License-Identifier: MIT
#pragma once
/// @file The skin: every colour, font and picture by key.

#include "host/HostExport.h"

#include <QColor>
#include <QFont>
#include <QPixmap>
#include <QString>

namespace WB {

class CUiResourceChangeHandler;

/// Source of all colours, fonts and pictures; reached through utils::CSingletonT<CUiResource>.
/// GUI thread only. Answers stay owned by the skin and are valid until the skin changes.
class INDICATORHOST_EXPORT CUiResource
{
public:
    /// The colour of a key; null when the skin has none.
    QColor* getColor(const QString& key) const;
    /// The font of a key; null when the skin has none.
    QFont* getFont(const QString& key) const;
    /// The picture of a key; null when the skin has none.
    QPixmap* getPixmap(const QString& key) const;

    /// Registers an object that wants to hear of skin changes; see CUiResourceChangeHandler.
    void addChangeHandler(CUiResourceChangeHandler* handler);
    /// Forgets a handler; one that is not registered is ignored.
    void removeChangeHandler(CUiResourceChangeHandler* handler);
};

} // namespace WB
