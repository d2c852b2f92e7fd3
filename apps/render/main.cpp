// SPDX-License-Identifier: MIT
/// @file indicatorui-render: a chart of a bars file as a picture, without a display.

#include "apps/base/FileNames.h"
#include "apps/base/MemoryShortage.h"
#include "apps/render/ChartLoader.h"
#include "apps/render/FormulaFile.h"
#include "apps/render/Options.h"
#include "apps/render/PictureFile.h"
#include "apps/render/TextExport.h"
#include "host/embedded/EmbeddedHost.h"
#include "host/embedded/FormulaSetup.h"

#include <QApplication>
#include <QPainter>

#include <cstdio>

namespace {

/// Prints lines about the texts of formulas.
void print(const QStringList& lines)
{
    for (const QString& line : lines)
        std::fprintf(stderr, "%s\n", base::printable(line).toUtf8().constData());
}

/// Prints what is wrong with the text of a formula, and what it is told of besides.
/// @return the program's exit code.
int checkFormula(const QString& file)
{
    QString name;
    QStringList hints;
    const QStringList problems = render::openFormulaFile(file, name, &hints);
    print(hints);
    print(problems);
    return problems.isEmpty() ? 0 : base::kFailed;
}

/// Does what the options say.
base::Result<void> renderChart(const render::Options& options)
{
    if (!options.skin.isEmpty()) {
        const QString failure = TC::embedded::loadSkin(options.skin);
        if (!failure.isEmpty())
            return base::Failure { QStringLiteral("%1; shipped skins are %2")
                                       .arg(failure, TC::embedded::skinNames().join(QStringLiteral(", "))) };
    }
    print(TC::embedded::loadFormulas()); // a user's formula that is left out is told of
    base::Result<render::LoadedChart> chart = render::loadChart(options);
    if (!chart.isGood())
        return chart.failure();
    if (!options.exportTo.isEmpty()) {
        base::Result<void> exported = render::writeExport(options, *chart);
        if (!exported.isGood() || options.output.isEmpty())
            return exported;
    }
    const QSize least = chart::leastSize(chart->picture.panes.size());
    if (options.size.width() < least.width() || options.size.height() < least.height())
        return base::Failure { QStringLiteral("--size %1x%2 is too small for %3 panes: at least %4x%5")
                                   .arg(options.size.width())
                                   .arg(options.size.height())
                                   .arg(chart->picture.panes.size())
                                   .arg(least.width())
                                   .arg(least.height()) };
    return render::writePicture(options.output, options.size, options.dpr, [&](QPainter& painter) {
        chart::paintChart(painter, chart->picture, options.size);
    });
}

/// Pictures need no display.
void choosePlatform()
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
#ifdef Q_OS_WIN
    // Without a display Qt asks for the folder of fonts here; on other systems it finds them by itself.
    if (qEnvironmentVariableIsEmpty("QT_QPA_FONTDIR"))
        qputenv("QT_QPA_FONTDIR", qgetenv("WINDIR") + "/Fonts");
#endif
}

int run(int argc, char** argv)
{
    choosePlatform();
    // Standard error carries one line of our own or nothing: remarks of the platform are left out.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    QApplication application(argc, argv); // takes the arguments that are its own
    base::Result<render::Options> options = render::readOptions(base::argumentsOf(argc, argv));
    if (options.isGood() && (options->help || options->version)) {
        const QString text = options->help ? render::usage() : render::versionLine();
        std::fputs(text.toUtf8().constData(), stdout);
        return 0;
    }
    if (options.isGood() && !options->check.isEmpty())
        return checkFormula(options->check);
    const base::Result<void> done =
        options.isGood() ? renderChart(*options) : base::Result<void>(options.failure());
    if (done.isGood())
        return 0;
    std::fprintf(stderr, "indicatorui-render: %s\n", base::printable(done.reason()).toUtf8().constData());
    return base::kFailed;
}

} // namespace

int main(int argc, char** argv)
{
    return base::runWithinMemory("indicatorui-render", run, argc, argv);
}
