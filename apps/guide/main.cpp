// SPDX-License-Identifier: MIT
/// @file guide-pictures: takes the pictures of the user guide from the client's window.

#include "apps/guide/Scenes.h"
#include "apps/guide/Stage.h"

#include <QApplication>
#include <QDir>
#include <QFont>
#include <QMenuBar>
#include <QRegularExpression>

#include <cstdio>

namespace {

constexpr char kUsage[] = "Usage: guide-pictures LANGUAGE SAMPLES FOLDER [NAME...]\n"
                          "       guide-pictures --names SAMPLES\n"
                          "       guide-pictures --entries LANGUAGE SAMPLES\n";

void printLine(const QString& line)
{
    std::printf("%s\n", line.toUtf8().constData());
}

/// Every entry with the menus that it stands in, as the guide names them.
void printEntries(const QList<QAction*>& actions, const QString& path)
{
    for (const QAction* action : actions) {
        QString text = action->text();
        text.remove(QRegularExpression(QStringLiteral("\\(&.\\)|&")));
        const QString whole = path.isEmpty() ? text : path + QStringLiteral(" → ") + text;
        printLine(whole);
        if (action->menu())
            printEntries(action->menu()->actions(), whole);
    }
}

int takePictures(const QString& language, const QString& samples, const QDir& folder,
                 const QStringList& wanted)
{
    folder.mkpath(QStringLiteral("."));
    for (const guide::Scene& scene : guide::scenes()) {
        const QString name = QString::fromLatin1(scene.name);
        if (!wanted.isEmpty() && !wanted.contains(name))
            continue;
        guide::Stage stage(language, samples);
        const QString path = folder.filePath(language + QLatin1Char('-') + name + QStringLiteral(".png"));
        if (!scene.take(stage).save(path, "PNG", 0)) { // as small as it gets
            std::fprintf(stderr, "guide-pictures: cannot write %s\n", path.toLocal8Bit().constData());
            return 1;
        }
    }
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QFont font = QApplication::font();
    font.setPixelSize(14); // as on a screen; without one Qt takes a larger font
    QApplication::setFont(font);
    const QStringList arguments = QApplication::arguments().mid(1);
    if (arguments.size() == 2 && arguments.first() == QLatin1String("--names")) {
        for (const guide::Scene& scene : guide::scenes())
            printLine(QString::fromLatin1(scene.name));
        return 0;
    }
    if (arguments.size() == 3 && arguments.first() == QLatin1String("--entries")) {
        guide::Stage stage(arguments.at(1), arguments.at(2));
        printEntries(stage.window().menuBar()->actions(), QString());
        return 0;
    }
    if (arguments.size() < 3) {
        std::fputs(kUsage, stderr);
        return 2;
    }
    return takePictures(arguments.at(0), arguments.at(1), QDir(arguments.at(2)), arguments.mid(3));
}
