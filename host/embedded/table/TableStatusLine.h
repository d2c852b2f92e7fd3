// SPDX-License-Identifier: MIT
#pragma once
/// @file The line of texts below the rows of a table.

#include <QColor>
#include <QMap>
#include <QWidget>

class QHeaderView;

namespace TC::embedded {

/// Shows each text under its column and follows the header's sizes, order and scrolling.
class TableStatusLine : public QWidget
{
    Q_OBJECT

public:
    TableStatusLine(QHeaderView* header, QWidget* parent);

    void setText(int column, const QString& text);
    QString text(int column) const { return m_texts.value(column); }
    void setColors(const QColor& background, const QColor& text, const QColor& border);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QHeaderView* m_header;
    QMap<int, QString> m_texts;
    QColor m_background, m_text, m_border;
};

} // namespace TC::embedded
