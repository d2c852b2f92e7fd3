#include "apps/render/Options.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <functional>
#include <map>

namespace render {

namespace {

using Apply = std::function<QString(const QString&)>;

QString wholeNumber(const QString& text, int least, int greatest, int& number)
{
    bool ok = false;
    const int value = text.toInt(&ok);
    if (!ok || value < least || value > greatest)
        return QStringLiteral("is not a whole number from %1 to %2").arg(least).arg(greatest);
    number = value;
    return QString();
}

QString readSize(const QString& text, QSize& size)
{
    static const QRegularExpression form(QStringLiteral("^([0-9]{2,5})x([0-9]{2,5})$"));
    const QRegularExpressionMatch match = form.match(text);
    const QSize read(match.captured(1).toInt(), match.captured(2).toInt());
    if (!match.hasMatch() || read.width() > 16384 || read.height() > 16384)
        return QStringLiteral("is not a size such as 1600x900, at most 16384 a side");
    size = read;
    return QString();
}

QString readRatio(const QString& text, double& ratio)
{
    bool ok = false;
    const double value = text.toDouble(&ok);
    if (!ok || !(value >= 0.5 && value <= 4.0))
        return QStringLiteral("is not a ratio from 0.5 to 4");
    ratio = value;
    return QString();
}

QString readOutput(const QString& text, QString& output)
{
    const QString suffix = QFileInfo(text).suffix().toLower();
    if (suffix != QLatin1String("png") && suffix != QLatin1String("svg") && suffix != QLatin1String("pdf"))
        return QStringLiteral("does not end in .png, .svg or .pdf");
    output = text;
    return QString();
}

/// What a complete command line still needs.
QString missing(const Options& options)
{
    if (!options.check.isEmpty())
        return QString();
    if (options.bars.isEmpty() == options.ticks.isEmpty())
        return QStringLiteral("exactly one of --bars FILE.csv and --ticks FILE.csv is needed; see --help");
    if (options.output.isEmpty() && options.exportTo.isEmpty())
        return QStringLiteral("-o OUT.png is missing; see --help");
    if (options.exportTo.isEmpty() && (options.withTime || !options.exportOne.isEmpty()))
        return QStringLiteral("--with-time and --export-one go with --export OUT.csv");
    return QString();
}

} // namespace

QString usage()
{
    return QStringLiteral(
        "indicatorui-render --bars FILE.csv|--ticks FILE.csv [options] -o OUT.png|OUT.svg|OUT.pdf\n"
        "  --instrument KEY    instrument key such as SH600000 (default: the file's base name)\n"
        "  --pane NAME,...     formulas of one pane; repeat for more panes\n"
        "                      (default: KLINE,MA / VOL / MACD)\n"
        "  --formula FILE.txt  draw the formula of this text, under the file's base name\n"
        "  --check FILE.txt    say what is wrong with the text of a formula, and draw nothing\n"
        "  --from N            first bar, counted from 0 (default: the last bars)\n"
        "  --count N           number of bars (default: 250)\n"
        "  --size WxH          size in pixels (default: 1600x900)\n"
        "  --dpr R             device pixels per pixel (default: 1)\n"
        "  --skin NAME|FILE    dark, light, colorblind, or a skin file\n"
        "  --book              colour tick volume by the order book\n"
        "  --export FILE.csv   write the first pane's formulas as text\n"
        "  --export-one NAME   with --export: this formula alone\n"
        "  --with-time         with --export: the time of day behind the date\n"
        "  -o, --output FILE   where to paint the picture\n");
}

QString parseArguments(const QStringList& arguments, Options& options)
{
    const auto keep = [](QString& target) {
        return [&target](const QString& text) {
            target = text;
            return QString();
        };
    };
    const std::map<QString, Apply> known = {
        { QStringLiteral("--bars"), keep(options.bars) },
        { QStringLiteral("--ticks"), keep(options.ticks) },
        { QStringLiteral("--export"), keep(options.exportTo) },
        { QStringLiteral("--export-one"), keep(options.exportOne) },
        { QStringLiteral("--formula"), keep(options.formula) },
        { QStringLiteral("--check"), keep(options.check) },
        { QStringLiteral("--instrument"), keep(options.instrument) },
        { QStringLiteral("--skin"), keep(options.skin) },
        { QStringLiteral("--pane"),
          [&](const QString& text) {
              options.panes.push_back(text.split(QLatin1Char(','), Qt::SkipEmptyParts));
              return options.panes.back().isEmpty() ? QStringLiteral("names no formula") : QString();
          } },
        { QStringLiteral("--from"),
          [&](const QString& text) { return wholeNumber(text, 0, 1 << 30, options.from); } },
        { QStringLiteral("--count"),
          [&](const QString& text) { return wholeNumber(text, 2, 1 << 30, options.count); } },
        { QStringLiteral("--size"), [&](const QString& text) { return readSize(text, options.size); } },
        { QStringLiteral("--dpr"), [&](const QString& text) { return readRatio(text, options.dpr); } },
        { QStringLiteral("-o"), [&](const QString& text) { return readOutput(text, options.output); } },
        { QStringLiteral("--output"), [&](const QString& text) { return readOutput(text, options.output); } },
    };
    const std::map<QString, bool*> switches = { { QStringLiteral("--help"), &options.help },
                                                { QStringLiteral("-h"), &options.help },
                                                { QStringLiteral("--book"), &options.bookRule },
                                                { QStringLiteral("--with-time"), &options.withTime } };
    for (int i = 0; i < arguments.size(); ++i) {
        const auto on = switches.find(arguments[i]);
        if (on != switches.end()) {
            *on->second = true;
            continue;
        }
        const auto option = known.find(arguments[i]);
        if (option == known.end())
            return QStringLiteral("unknown argument %1; see --help").arg(arguments[i]);
        if (i + 1 == arguments.size())
            return QStringLiteral("%1 needs a value").arg(arguments[i]);
        const QString failure = option->second(arguments[i + 1]);
        if (!failure.isEmpty())
            return QStringLiteral("%1: \"%2\" %3").arg(arguments[i], arguments[i + 1], failure);
        ++i;
    }
    return options.help ? QString() : missing(options);
}

} // namespace render
