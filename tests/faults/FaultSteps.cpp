// SPDX-License-Identifier: MIT
/// @file One step of the client in a process of its own, for tests in which its files fail or it is killed.
///
/// fault_steps STEP HOME
///   save         a formula into the user's file, as the editor does it
///   arrange      the arrangement of the panels
///   backup       of formulas and scripts
///   restore      the newest version
///   mend         what the client does at its start
///   instruments  the look-up of every bundled instrument
///   stocks       the reading of a stock list, HOME/user/stocks.csv
/// HOME/config and HOME/user are the folders. Prints what the user would be told; ends with 0 when that is
/// that the step was done, with 2 when it is that it was not.

#include "apps/client/docking/ArrangementFile.h"
#include "apps/client/editor/FormulaStore.h"
#include "apps/client/recovery/FormulaBackups.h"
#include "host/TC/CStockManager.h"
#include "host/TC/Folders.h"
#include "host/embedded/EmbeddedHost.h"
#include "host/ttservice/CInstrumentDetail.h"
#include "host/utils/CSingletonT.h"
#include "stocklist/CParserStockExeclTable.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>
#include <cstdlib>
#include <map>

namespace {

constexpr int kNotDone = 2;

int tell(const QString& failure)
{
    std::puts(failure.isEmpty() ? "done" : failure.toUtf8().constData());
    return failure.isEmpty() ? EXIT_SUCCESS : kNotDone;
}

int save()
{
    client::FormulaStore store(client::liveFormulasPath());
    store.setBeforeChange([]() -> base::Result<void> {
        const base::Result<bool> kept = client::backUpFormulas();
        return kept.isGood() ? base::Result<void>() : base::Result<void>(kept.failure());
    });
    client::OwnFormula formula;
    formula.name = QStringLiteral("ADDED");
    formula.source = QStringLiteral("X:C;");
    return tell(store.save(formula).reason());
}

int arrange()
{
    client::ArrangementFile arrangement;
    arrangement.last = QByteArray(20'000, 'n');
    return tell(arrangement.write(TC::getConfigDir() + QStringLiteral("/arrangement")).reason());
}

int backUp()
{
    const base::Result<bool> made = client::backUpFormulas();
    return tell(made.reason());
}

int restore()
{
    const std::vector<client::FormulaVersion> versions = client::formulaVersions();
    return tell(versions.empty() ? QStringLiteral("no version")
                                 : client::restoreFormulas(versions.front()).reason());
}

int mend()
{
    std::puts(client::mendInterruptedRestore().toUtf8().constData());
    return EXIT_SUCCESS;
}

/// Prints how many of the bundled instruments are known by their names and price ticks.
int lookUpInstruments()
{
    QFile list(QStringLiteral(SAMPLES_DIR "/instruments.csv"));
    if (!list.open(QIODevice::ReadOnly))
        return EXIT_FAILURE;
    list.readLine(); // the header
    const auto* manager = utils::CSingletonT<TC::CStockManager>::instance();
    int known = 0;
    while (!list.atEnd()) {
        const QList<QByteArray> fields = list.readLine().split(',');
        const auto detail =
            manager->getInstrumentDetail(QString::fromUtf8(fields[0]), QString::fromUtf8(fields[1]));
        known +=
            detail && detail->name == fields[2].toStdString() && detail->priceTick == fields[4].toDouble();
    }
    std::printf("%d\n", known);
    return EXIT_SUCCESS;
}

int readStocks()
{
    QVector<TC::ParserStockDetail> stocks;
    double leastWeight = 1.0;
    TC::CParserStockExeclTable::parserCvs(TC::getUserRootDir() + QStringLiteral("/stocks.csv"), stocks,
                                          leastWeight);
    std::printf("%lld\n", static_cast<long long>(stocks.size()));
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv)
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {}); // the user sees none
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    const std::map<QString, int (*)()> steps = {
        { QStringLiteral("save"), save },        { QStringLiteral("arrange"), arrange },
        { QStringLiteral("backup"), backUp },    { QStringLiteral("restore"), restore },
        { QStringLiteral("mend"), mend },        { QStringLiteral("instruments"), lookUpInstruments },
        { QStringLiteral("stocks"), readStocks }
    };
    const auto step = words.size() == 3 ? steps.find(words[1]) : steps.end();
    if (step == steps.end())
        return EXIT_FAILURE;
    TC::embedded::setConfigDir(words[2] + QStringLiteral("/config"));
    TC::embedded::setUserRootDir(words[2] + QStringLiteral("/user"));
    return step->second();
}
