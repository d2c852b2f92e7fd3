// SPDX-License-Identifier: MIT
#pragma once
/// @file The instruments whose bars are at hand.

#include <QWidget>

class QLineEdit;
class QListWidget;

namespace client {

/// Bars files of a folder, shown by instrument name; a double click or the Enter key opens one.
class InstrumentList : public QWidget
{
    Q_OBJECT

public:
    explicit InstrumentList(QWidget* parent = nullptr);

    /// Lists the CSV files of a folder; a file's base name is its instrument's key.
    void listFolder(const QString& folder);

Q_SIGNALS:
    void sigOpen(const QString& path);

private:
    void filter(const QString& text);

    QLineEdit* m_filter;
    QListWidget* m_list;
};

} // namespace client
