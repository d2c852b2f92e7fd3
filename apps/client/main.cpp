/// @file indicatorui-client: the reference chart client.

#include "apps/client/MainWindow.h"

#include <QApplication>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationDisplayName(QStringLiteral("Indicator UI"));
    client::MainWindow window;
    window.show();
    const QStringList arguments = application.arguments().mid(1);
    for (const QString& path : arguments)
        window.openBars(path);
    return application.exec();
}
