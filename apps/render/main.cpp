/// @file indicatorui-render: a chart of a bars file as a picture, without a display.

#include "apps/chart/TextExport.h"
#include "apps/render/ChartLoader.h"
#include "apps/render/FormulaFile.h"
#include "apps/render/Options.h"
#include "apps/render/PictureFile.h"
#include "host/embedded/EmbeddedHost.h"

#include <QApplication>
#include <QPainter>

#include <cstdio>

namespace {

constexpr int kBadInput = 2;

/// Writes the first pane's formulas, or the one that was named, as text.
QString exportPane(const render::Options& options, chart::PaneResults& pane)
{
    if (!options.exportOne.isEmpty() && !pane.getFormulas().contains(options.exportOne))
        return QStringLiteral("--export-one: the first pane has no formula \"%1\"").arg(options.exportOne);
    return chart::writeText(options.exportTo, chart::exportText(pane, options.exportOne, options.withTime));
}

/// Prints what is wrong with the text of a formula.
/// @return the program's exit code.
int checkFormula(const QString& file)
{
    QString name;
    const QStringList problems = render::openFormulaFile(file, name);
    for (const QString& problem : problems)
        std::fprintf(stderr, "%s\n", problem.toUtf8().constData());
    return problems.isEmpty() ? 0 : kBadInput;
}

/// Does what the options say.
/// @return empty on success, else one line with the reason.
QString renderChart(const render::Options& options)
{
    if (!options.skin.isEmpty()) {
        const QString failure = TC::embedded::loadSkin(options.skin);
        if (!failure.isEmpty())
            return failure;
    }
    render::LoadedChart chart;
    const QString failure = render::loadChart(options, chart);
    if (!failure.isEmpty())
        return failure;
    if (!options.exportTo.isEmpty()) {
        const QString unwritten = exportPane(options, chart.results.front());
        if (!unwritten.isEmpty() || options.output.isEmpty())
            return unwritten;
    }
    return render::writePicture(options.output, options.size, options.dpr, [&](QPainter& painter) {
        chart::paintChart(painter, chart.picture, options.size);
    });
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // Standard error carries one line of our own or nothing: remarks of the platform are left out.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    QApplication application(argc, argv);
    render::Options options;
    QString failure = render::parseArguments(application.arguments().mid(1), options);
    if (failure.isEmpty() && options.help) {
        std::fputs(qPrintable(render::usage()), stdout);
        return 0;
    }
    if (failure.isEmpty() && !options.check.isEmpty())
        return checkFormula(options.check);
    if (failure.isEmpty())
        failure = renderChart(options);
    if (failure.isEmpty())
        return 0;
    std::fprintf(stderr, "indicatorui-render: %s\n", qPrintable(failure));
    return kBadInput;
}
