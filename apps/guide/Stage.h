// SPDX-License-Identifier: MIT
#pragma once
/// @file The client's window, set up for pictures of it.

#include "apps/client/MainWindow.h"

#include <QImage>
#include <QPoint>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>
#include <memory>

namespace guide {

/// A window of the client in folders of its own, worked as a user does. What cannot be done ends the program
/// with a line that says so: a guide without a picture is worse than none. GUI thread only.
class Stage
{
public:
    /// @param language  key of client::offeredLanguages.
    /// @param samples  folder of the bundled files.
    Stage(const QString& language, const QString& samples);
    ~Stage();

    client::MainWindow& window() { return *m_window; }
    client::ChartView* chart() { return m_window->chart(); }

    /// A bundled file, by its place below the folder.
    QString sample(const char* name) const { return m_samples + QLatin1Char('/') + QLatin1String(name); }

    /// Opens bundled bars and waits for the results of every pane.
    void openBars(const char* name);
    void awaitResults();
    void await(const char* what, const std::function<bool()>& condition);
    /// Lets the window settle after what was done.
    static void settle();

    /// Chooses an entry of the window's menus.
    /// @param entry  its text as the sources have it, in UTF-8.
    void choose(const char* entry);
    /// Brings a panel to the front.
    void raise(const QString& panel);

    /// Rests the pointer on a pane.
    void point(std::size_t pane, const QPoint& place);
    /// Drags with the left button over a pane.
    void drag(std::size_t pane, const QPoint& from, const QPoint& to, Qt::KeyboardModifiers keys);

    /// The window with the dialogs and menus that stand over it.
    QImage picture();
    /// A part of it.
    QImage picture(QWidget* only);

private:
    QString m_samples;
    QTemporaryDir m_folder;
    std::unique_ptr<client::MainWindow> m_window;
};

} // namespace guide
