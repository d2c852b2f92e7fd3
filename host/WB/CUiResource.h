#pragma once
/// @file The skin: every colour, font and picture by key.

#include "host/HostExport.h"

#include <QColor>
#include <QFont>
#include <QPixmap>
#include <QString>

#include <memory>

namespace WB {

class CUiResourceChangeHandler;

/// Source of all colours, fonts and pictures; reached through utils::CSingletonT<CUiResource>.
/// GUI thread only. Answers stay owned by the skin and are valid until the skin changes.
class INDICATORHOST_EXPORT CUiResource
{
public:
    CUiResource();
    ~CUiResource();
    CUiResource(const CUiResource&) = delete;
    CUiResource& operator=(const CUiResource&) = delete;

    /// The colour of a key; null when the skin has none.
    QColor* getColor(const QString& key) const;
    /// The font of a key; null when the skin has none.
    QFont* getFont(const QString& key) const;
    /// The picture of a key; null when the skin has none.
    QPixmap* getPixmap(const QString& key) const;

    /// Registers an object that wants to hear of skin changes; see CUiResourceChangeHandler.
    void addChangeHandler(CUiResourceChangeHandler* handler);
    void removeChangeHandler(CUiResourceChangeHandler* handler);

    struct Private;
    /// The skin's own data, for the host that fills it.
    Private& data() const { return *m_data; }

private:
    std::unique_ptr<Private> m_data;
};

} // namespace WB
