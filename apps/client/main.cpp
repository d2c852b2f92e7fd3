// SPDX-License-Identifier: MIT
/// @file indicatorui-client: the reference chart client.

#include "apps/base/FileNames.h"
#include "apps/base/MemoryShortage.h"
#include "apps/client/MainWindow.h"

#include <QApplication>

namespace {

int run(int argc, char** argv)
{
    QApplication application(argc, argv); // takes the arguments that are its own
    QApplication::setApplicationDisplayName(QStringLiteral("Indicator UI"));
    client::MainWindow window;
    window.show();
    for (int i = 1; i < argc; ++i)
        static_cast<void>(window.openBars(base::nameFromBytes(argv[i]))); // a failure is shown
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    return base::runWithinMemory("indicatorui-client", run, argc, argv);
}
