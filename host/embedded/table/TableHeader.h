// SPDX-License-Identifier: MIT
#pragma once
/// @file The header of a table in the skin's colours.

#include "host/embedded/table/TableColors.h"

#include <QHeaderView>

namespace TC::embedded {

/// Paints its sections itself: narrow columns need the whole width for their text, so that the sort mark
/// stands above it. (A style sheet would do for the colours but cuts the view off from its parent's font.)
class TableHeader : public QHeaderView
{
    Q_OBJECT

public:
    explicit TableHeader(QWidget* parent);
    void setColors(const TableColors& colors);

protected:
    void paintSection(QPainter* painter, const QRect& rect, int section) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    TableColors m_colors;
};

} // namespace TC::embedded
