// SPDX-License-Identifier: MIT
#pragma once
/// @file What can be done, and by which keys.

#include <QDialog>

class QLineEdit;
class QMenuBar;
class QTreeWidget;

namespace client {

/// Lists every entry of the menus that has keys, in the order of the menus, with a field that searches both
/// columns. It reads the entries' own texts and keys, so that it says what is so.
class ShortcutSheet : public QDialog
{
    Q_OBJECT

public:
    explicit ShortcutSheet(const QMenuBar* menus, QWidget* parent = nullptr);

private:
    void setWords();
    /// Shows the lines that hold the text, and their menus.
    void search(const QString& text);

    const QMenuBar* m_menus;
    QLineEdit* m_field;
    QTreeWidget* m_lines;
};

} // namespace client
