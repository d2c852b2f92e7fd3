// SPDX-License-Identifier: MIT
#pragma once
/// @file A search over all instruments that opens where the user types.

#include "apps/client/lists/InstrumentList.h"

#include <QFrame>

namespace client {

/// A field with the best matches below it, codes that begin with what is typed first. Enter opens the chosen
/// one, cursor keys choose, Escape and a click elsewhere close it.
class InstrumentSearch : public QFrame
{
    Q_OBJECT

public:
    /// @param over  the widget in whose lower right corner it opens, and which gets the focus back.
    explicit InstrumentSearch(QWidget* over);

    /// Opens with a text that was typed already.
    void open(const std::vector<ListedInstrument>& instruments, const QString& typed);

Q_SIGNALS:
    void sigOpen(const QString& path);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void search(const QString& typed);
    void finish();
    void openChosen();

    QWidget* m_over;
    QLineEdit* m_field;
    QListWidget* m_found;
    std::vector<ListedInstrument> m_instruments;
};

} // namespace client
