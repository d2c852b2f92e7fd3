// SPDX-License-Identifier: MIT
#pragma once
/// @file Texts are shown as they are written, whatever markup their characters may look like.

#include <QObject>
#include <QString>

class QWidget;

namespace client {

/// While it lives, every label of the application that leaves the form of its text open shows it as plain
/// text: labels, tool tips, message boxes, ours and the library's.
class PlainTexts : public QObject
{
public:
    PlainTexts();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

/// A name as the text of a menu's entry, where a single & would mark a letter.
QString menuText(const QString& name);

/// Asks the user. Nothing is done unless the user chooses to: that answer is never the default one.
/// @param yes  on the button that agrees.
bool isConfirmed(QWidget* parent, const QString& question, const QString& yes);

} // namespace client
