// SPDX-License-Identifier: MIT
/// @file The eyes of the driven tests: a plugin that tells where things stand on the screen.
///
/// Loaded into the unchanged program by QT_QPA_GENERIC_PLUGINS=eyes. Each line on the standard input is
/// answered by one line on the standard output: a JSON array with everything that is visible now, one
/// object each. It only looks; all acting is left to the X server.

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QGenericPlugin>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QSocketNotifier>

#include <cstdio>

#include <unistd.h>

namespace {

QJsonObject thing(const QWidget* window, const QString& kind, const QString& text, const QRect& onScreen)
{
    return { { QStringLiteral("window"), window->windowTitle() },
             { QStringLiteral("windowKind"), QString::fromLatin1(window->metaObject()->className()) },
             { QStringLiteral("kind"), kind },
             { QStringLiteral("text"), text },
             { QStringLiteral("x"), onScreen.x() },
             { QStringLiteral("y"), onScreen.y() },
             { QStringLiteral("width"), onScreen.width() },
             { QStringLiteral("height"), onScreen.height() } };
}

QRect onScreen(const QWidget* widget, const QRect& area)
{
    return { widget->mapToGlobal(area.topLeft()), area.size() };
}

QString textOf(const QWidget* widget)
{
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
        return button->text();
    if (const auto* label = qobject_cast<const QLabel*>(widget))
        return label->text();
    return QString();
}

/// Entries of a menu or a menu bar.
template <class Menu>
void addEntries(QJsonArray& things, const Menu* menu)
{
    const QList<QAction*> actions = menu->actions();
    for (QAction* action : actions) {
        if (action->isVisible() && !action->isSeparator()) {
            QJsonObject entry = thing(menu->window(), QStringLiteral("entry"), action->text(),
                                      onScreen(menu, menu->actionGeometry(action)));
            entry[QStringLiteral("checked")] = action->isChecked();
            things.append(entry);
        }
    }
}

/// The part of a widget that its parents do not cut off.
QRect uncut(const QWidget* widget)
{
    QRect area = widget->rect();
    for (const QWidget* parent = widget; !parent->isWindow();) {
        area.translate(parent->pos());
        parent = parent->parentWidget();
        area &= parent->rect();
    }
    return onScreen(widget->window(), area);
}

void addWidget(QJsonArray& things, const QWidget* widget)
{
    if (!widget->isVisible() || uncut(widget).isEmpty())
        return;
    QJsonObject object = thing(widget->window(), QString::fromLatin1(widget->metaObject()->className()),
                               textOf(widget), uncut(widget));
    object[QStringLiteral("name")] = widget->objectName();
    if (const auto* view = qobject_cast<const QAbstractItemView*>(widget))
        object[QStringLiteral("rows")] = view->model() ? view->model()->rowCount() : 0;
    things.append(object);
    if (const auto* menu = qobject_cast<const QMenu*>(widget))
        addEntries(things, menu);
    if (const auto* bar = qobject_cast<const QMenuBar*>(widget))
        addEntries(things, bar);
}

class Eyes : public QObject
{
public:
    Eyes()
        : m_questions(STDIN_FILENO, QSocketNotifier::Read)
    {
        connect(&m_questions, &QSocketNotifier::activated, this, &Eyes::answer);
    }

private:
    void answer()
    {
        char question[256];
        const ssize_t count = read(STDIN_FILENO, question, sizeof question);
        if (count <= 0) {
            m_questions.setEnabled(false);
            return;
        }
        QJsonArray things;
        const QWidgetList widgets = QApplication::allWidgets();
        for (const QWidget* widget : widgets)
            addWidget(things, widget);
        const QByteArray line = QJsonDocument(things).toJson(QJsonDocument::Compact) + '\n';
        std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stdout);
        std::fflush(stdout);
    }

    QSocketNotifier m_questions;
};

} // namespace

class EyesPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "eyes.json")

public:
    QObject* create(const QString& name, const QString&) override
    {
        return name == QLatin1String("eyes") ? new Eyes : nullptr;
    }
};

#include "Eyes.moc"
