// SPDX-License-Identifier: MIT
/// @file indicatorui-client: the reference chart client.

#include "apps/base/FileNames.h"
#include "apps/base/MemoryShortage.h"
#include "apps/client/ClientOptions.h"
#include "apps/client/MainWindow.h"

#include <QApplication>

#include <algorithm>
#include <cstdio>
#include <string_view>

namespace {

/// Arguments that need no window, so that they are answered where there is no display as well.
bool isQuestion(const char* argument)
{
    const std::string_view text = argument;
    return text == "-h" || text == "--help" || text == "--version";
}

/// Opens the window and what the options name.
int show(const client::ClientOptions& options)
{
    QApplication::setApplicationDisplayName(QStringLiteral("Indicator UI"));
    client::MainWindow window(options.language);
    window.show();
    for (const QString& path : options.bars)
        static_cast<void>(window.openBars(path)); // a failure is shown
    if (!options.follow.isEmpty())
        static_cast<void>(window.follow(options.follow));
    return QApplication::exec();
}

int run(int argc, char** argv)
{
    if (std::any_of(argv + 1, argv + argc, isQuestion))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv); // takes the arguments that are its own
    base::Result<client::ClientOptions> options = client::readClientOptions(base::argumentsOf(argc, argv));
    if (!options.isGood()) {
        std::fprintf(stderr, "indicatorui-client: %s\n",
                     base::printable(options.reason()).toUtf8().constData());
        return base::kFailed;
    }
    if (!options->help && !options->version)
        return show(*options);
    const QString answer = options->help ? client::clientUsage() : client::clientVersionLine();
    std::fputs(answer.toUtf8().constData(), stdout);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    return base::runWithinMemory("indicatorui-client", run, argc, argv);
}
