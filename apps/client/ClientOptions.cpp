// SPDX-License-Identifier: MIT
#include "apps/client/ClientOptions.h"

#include "apps/base/CommandLine.h"
#include "apps/client/language/Language.h"

namespace client {

namespace {

/// The client's options.
class Options : public base::CommandLine
{
public:
    Options()
        : base::CommandLine("Charts of market data with indicators of your own.")
    {
        takeFiles("FILE.csv", "bars to open");
        add("lang", "LANGUAGE", "language of the window: zh or en; kept for later runs");
        add("follow", "FILE.csv",
            "bars or trades that another program appends to: show each new row at once");
    }
};

bool isOffered(const QString& language)
{
    const auto& all = offeredLanguages();
    return std::any_of(all.begin(), all.end(), [&](const auto& one) { return one.key == language; });
}

} // namespace

QString clientUsage()
{
    return Options().help();
}

QString clientVersionLine()
{
    return QStringLiteral("indicatorui-client " INDICATORUI_VERSION "\n");
}

base::Result<ClientOptions> readClientOptions(const QStringList& arguments)
{
    Options line;
    if (!line.parse(arguments))
        return base::Failure { line.wrong() };
    ClientOptions options;
    options.help = line.has("help");
    options.version = line.has("version");
    options.language = line.value("lang");
    if (!options.language.isEmpty() && !isOffered(options.language))
        return base::Failure {
            QStringLiteral("unknown language \"%1\"; known are zh and en").arg(options.language)
        };
    options.follow = line.value("follow");
    options.bars = line.files();
    return options;
}

} // namespace client
