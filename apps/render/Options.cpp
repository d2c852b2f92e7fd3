// SPDX-License-Identifier: MIT
#include "apps/render/Options.h"

#include "apps/base/CommandLine.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace render {

namespace {

constexpr int kMostPixels = 16384; // device pixels a side; both sides make a picture of 1 GiB

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

/// The renderer's options; of --pane all values count.
class CommandLine : public base::CommandLine
{
public:
    CommandLine();
};

CommandLine::CommandLine()
    : base::CommandLine("A chart of a bars or trades file as a picture or as text, without a display.")
{
    add("bars", "FILE.csv", "bars to draw; or");
    add("ticks", "FILE.csv", "trades to draw");
    add("instrument", "KEY", "instrument key such as SH600000 (default: the file's base name)");
    add("index", "FILE.csv", "with --bars: bars of the index that formulas compare with (INDEXC)");
    add("overlay", "FILE.csv",
        "with --bars: lay another instrument's candles over the first pane, so that both meet at the first "
        "bar drawn; repeat for more");
    add("pane", "NAME,...", "formulas of one pane; repeat for more panes (default: KLINE,MA / VOL / MACD)");
    add("formula", "FILE.txt", "draw the formula of this text, under the file's base name");
    add("check", "FILE.txt", "say what is wrong with the text of a formula, and draw nothing");
    add("from", "N", "first bar, counted from 0 (default: the last bars)");
    add("count", "N", "number of bars (default: 250)");
    add("size", "WxH", "size in pixels (default: 1600x900)");
    add("dpr", "R", "device pixels per pixel (default: 1)");
    add("skin", "NAME|FILE", "dark, light, colorblind, or a skin file");
    add("book", "", "colour tick volume by the order book");
    add("export", "FILE.csv", "write the first pane's formulas as text");
    add("export-one", "NAME", "with --export: this formula alone");
    add("with-time", "", "with --export: the time of day behind the date");
    add("o", "output", "FILE",
        "where to paint the picture: .png, .svg or .pdf; where more than 4 bars share a column of pixels the "
        "latter two hold the formulas as an embedded picture");
}

/// What is wrong with the value of an option.
base::Failure wrongValue(const char* option, const QString& value, const QString& reason)
{
    return { QStringLiteral("--%1: \"%2\" %3").arg(text(option), value, reason) };
}

base::Result<int> wholeNumber(const CommandLine& line, const char* option, int least, int usual)
{
    if (!line.has(option))
        return usual;
    constexpr int greatest = 1 << 30;
    bool isNumber = false;
    const int value = line.value(option).toInt(&isNumber);
    if (isNumber && value >= least && value <= greatest)
        return value;
    return wrongValue(option, line.value(option),
                      QStringLiteral("is not a whole number from %1 to %2").arg(least).arg(greatest));
}

base::Result<QSize> sizeOf(const CommandLine& line, QSize usual)
{
    static const QRegularExpression form(QStringLiteral("^([0-9]{2,5})x([0-9]{2,5})$"));
    if (!line.has("size"))
        return usual;
    const QRegularExpressionMatch match = form.match(line.value("size"));
    const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
    if (!match.hasMatch() || size.width() > kMostPixels || size.height() > kMostPixels)
        return wrongValue(
            "size", line.value("size"),
            QStringLiteral("is not a size such as 1600x900, at most %1 a side").arg(kMostPixels));
    return size;
}

base::Result<double> ratioOf(const CommandLine& line, double usual)
{
    if (!line.has("dpr"))
        return usual;
    bool isNumber = false;
    const double ratio = line.value("dpr").toDouble(&isNumber);
    if (isNumber && ratio >= 0.5 && ratio <= 4.0)
        return ratio;
    return wrongValue("dpr", line.value("dpr"), QStringLiteral("is not a ratio from 0.5 to 4"));
}

/// Reads the values that are numbers.
base::Result<void> readNumbers(const CommandLine& line, Options& options)
{
    base::Result<int> from = wholeNumber(line, "from", 0, options.from);
    base::Result<int> count = wholeNumber(line, "count", 2, options.count);
    base::Result<QSize> size = sizeOf(line, options.size);
    base::Result<double> ratio = ratioOf(line, options.dpr);
    for (const base::Failure& failure :
         { from.failure(), count.failure(), size.failure(), ratio.failure() }) {
        if (!failure.reason.isEmpty())
            return failure;
    }
    options.from = *from;
    options.count = *count;
    options.size = *size;
    options.dpr = *ratio;
    const QSize device = options.size * options.dpr;
    if (device.width() > kMostPixels || device.height() > kMostPixels)
        return base::Failure { QStringLiteral(
                                   "--size %1x%2 at --dpr %3 makes %4x%5 device pixels, more than %6 "
                                   "a side")
                                   .arg(options.size.width())
                                   .arg(options.size.height())
                                   .arg(options.dpr)
                                   .arg(device.width())
                                   .arg(device.height())
                                   .arg(kMostPixels) };
    return {};
}

/// What a command line still needs whose values are all right.
base::Result<void> judge(const Options& options)
{
    const QString suffix = QFileInfo(options.output).suffix().toLower();
    if (!options.output.isEmpty() && suffix != text("png") && suffix != text("svg") && suffix != text("pdf"))
        return wrongValue("output", options.output, QStringLiteral("does not end in .png, .svg or .pdf"));
    if (!options.check.isEmpty())
        return {};
    if (options.bars.isEmpty() == options.ticks.isEmpty())
        return base::Failure { QStringLiteral(
            "exactly one of --bars FILE.csv and --ticks FILE.csv is needed; see --help") };
    if (options.output.isEmpty() && options.exportTo.isEmpty())
        return base::Failure { QStringLiteral("-o OUT.png is missing; see --help") };
    if (!options.overlays.isEmpty() && options.bars.isEmpty())
        return base::Failure { QStringLiteral("--overlay goes with --bars FILE.csv") };
    if (options.exportTo.isEmpty() && (options.withTime || !options.exportOne.isEmpty()))
        return base::Failure { QStringLiteral("--with-time and --export-one go with --export OUT.csv") };
    return {};
}

} // namespace

QString usage()
{
    return CommandLine().help();
}

QString versionLine()
{
    return QStringLiteral("indicatorui-render " INDICATORUI_VERSION "\n");
}

base::Result<Options> readOptions(const QStringList& arguments)
{
    CommandLine line;
    if (!line.parse(arguments))
        return base::Failure { line.wrong() };
    Options options;
    options.help = line.has("help");
    options.version = line.has("version");
    if (options.help || options.version)
        return options;
    const std::pair<const char*, QString*> texts[] = {
        { "bars", &options.bars },
        { "ticks", &options.ticks },
        { "instrument", &options.instrument },
        { "index", &options.index },
        { "formula", &options.formula },
        { "check", &options.check },
        { "skin", &options.skin },
        { "output", &options.output },
        { "export", &options.exportTo },
        { "export-one", &options.exportOne },
    };
    for (const auto& [name, target] : texts)
        *target = line.value(name);
    options.bookRule = line.has("book");
    options.withTime = line.has("with-time");
    options.overlays = line.values("overlay");
    options.overlays.removeDuplicates();
    const QStringList panes = line.values("pane");
    for (const QString& pane : panes) {
        options.panes.push_back(pane.split(QLatin1Char(','), Qt::SkipEmptyParts));
        if (options.panes.back().isEmpty())
            return wrongValue("pane", pane, QStringLiteral("names no formula"));
    }
    for (const base::Result<void>& step : { readNumbers(line, options), judge(options) }) {
        if (!step.isGood())
            return step.failure();
    }
    return options;
}

} // namespace render
