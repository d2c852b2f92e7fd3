// SPDX-License-Identifier: MIT
#pragma once
/// @file The client as a trader has it: a program of its own on a screen, worked with mouse and keyboard.

#include <QByteArray>
#include <QImage>
#include <QList>
#include <QPoint>
#include <QProcess>
#include <QRect>
#include <QString>
#include <QTemporaryDir>

#include <functional>
#include <optional>
#include <string>

namespace test {

/// Something that stands on the screen.
struct Seen
{
    QString window;     ///< title of its window
    QString windowKind; ///< class of its window
    QString kind;       ///< class of the widget; "entry" for an entry of a menu
    QString name;
    QString text;
    QRect place;          ///< pixels of the screen, only the part that its parents do not cut off
    int rows = 0;         ///< of a list
    bool checked = false; ///< of a menu's entry

    QPoint middle() const { return place.center(); }
};

/// A painted window has more colours than these: lines of charts, and the edges of texts above all.
constexpr int kLeastColours = 40;

/// Different colours in a part of a picture.
int coloursIn(const QImage& picture, const QRect& area);

/// All that stands on the screen at one moment.
class View
{
public:
    explicit View(const QByteArray& json = QByteArray());

    using Test = std::function<bool(const Seen&)>;
    std::optional<Seen> first(const Test& test) const;
    /// The tab of the dock with this title.
    std::optional<Seen> tab(const QString& title) const;
    /// The dock with this panel identifier.
    std::optional<Seen> dock(const QString& panelId) const;
    /// An entry of a menu or the menu bar.
    std::optional<Seen> entry(const QString& text) const;
    /// A widget of the class.
    std::optional<Seen> widget(const char* kind) const;
    std::optional<Seen> button(const QString& text) const;
    /// The button that closes a dock, on its tab.
    std::optional<Seen> closeButton(const QString& title) const;
    /// Of the marks that a dragged panel can be dropped on, the one furthest to the right.
    std::optional<Seen> rightmostDropMark() const;
    /// Where each visible dock stands: "panel window x,y width x height", in alphabetical order.
    std::string arrangement() const;

private:
    QList<Seen> m_things;
};

/// One run after another of the client, with folders of its own.
class DrivenClient
{
public:
    DrivenClient();
    ~DrivenClient();

    QString home() const { return m_home.path(); }

    /// Starts the program with a bars file and waits until its window is painted.
    void start();
    /// Ends it without a warning (SIGKILL).
    void kill();
    bool isRunning() const { return m_program.state() == QProcess::Running; }
    /// Waits until the program has ended by itself. @return whether it did so in order.
    bool hasEnded();

    /// What stands on the screen now.
    View look();
    /// Looks again and again until the test answers something; empty, with a failure, after a time limit.
    std::optional<Seen> await(const char* what, const std::function<std::optional<Seen>(const View&)>& test);
    void awaitThat(const char* what, const std::function<bool(const View&)>& test);
    /// Waits until what stands on the screen stays the same, and answers it.
    View settled();

    void click(const QPoint& point);
    void press(const QPoint& point);
    /// Moves the pointer there in small steps, as a hand does.
    void moveTo(const QPoint& point);
    void letGo();
    /// Opens a menu of the menu bar and then the entries in turn.
    void choose(const QStringList& entries);

    /// Waits until nothing changes, and keeps a picture of the whole screen among the test's results.
    QImage picture(const QString& stage);

private:
    static void input(const QStringList& words);

    QTemporaryDir m_home;
    QProcess m_program;
    QPoint m_pointer;
};

} // namespace test
