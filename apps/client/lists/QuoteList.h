// SPDX-License-Identifier: MIT
#pragma once
/// @file A table of what the instruments at hand stand at.

#include "apps/client/lists/QuoteModel.h"

#include <QTableView>

namespace client {

/// Last price, change and volume of every instrument; a click on a header sorts. A double click or the Enter
/// key opens an instrument. Files are read when the table is first seen.
class QuoteList : public QTableView
{
    Q_OBJECT

public:
    explicit QuoteList(QWidget* parent = nullptr);

    void setInstruments(const std::vector<ListedInstrument>& instruments);
    /// Takes the figures of one instrument from its bars, where its file is not read any more.
    void setBars(const QString& path, const engine::BarSeries& bars) { m_model.setBars(path, bars); }

    QuoteModel* quotes() { return &m_model; }

Q_SIGNALS:
    void sigOpen(const QString& path);

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void openRow(const QModelIndex& index);

    QuoteModel m_model;
    std::vector<ListedInstrument> m_waiting; ///< to be read when the table is seen
    bool m_isDue = false;
};

} // namespace client
