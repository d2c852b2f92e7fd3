// SPDX-License-Identifier: MIT
#pragma once
/// @file Pictures of the skin in logical pixels.

#include "host/WB/SkinLookup.h"

#include <QPixmap>
#include <QSize>

namespace TC::detail {

constexpr const char* kArrowUpPicture = "ic_img_arrow_up";
constexpr const char* kArrowDownPicture = "ic_img_arrow_down";

/// Size on the widget: pictures carry more pixels than that for dense screens. Empty for null.
inline QSize logicalSize(const QPixmap* picture)
{
    return picture ? (QSizeF(picture->size()) / picture->devicePixelRatio()).toSize() : QSize(0, 0);
}

/// Size of the arrow behind a legend piece; empty for none.
inline QSize arrowSize(int arrowType)
{
    switch (arrowType) {
    case 1: return logicalSize(WB::skinPicture(kArrowUpPicture));
    case 2: return logicalSize(WB::skinPicture(kArrowDownPicture));
    default: return QSize(0, 0);
    }
}

} // namespace TC::detail
