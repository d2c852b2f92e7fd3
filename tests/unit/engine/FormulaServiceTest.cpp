// SPDX-License-Identifier: MIT
#include "engine/FormulaService.h"

#include "tests/support/EngineBars.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QThread>

namespace {

/// Null for an unknown name.
std::shared_ptr<const engine::Formula> builtIn(const std::string& name)
{
    const engine::BuiltInFormula* known = engine::findBuiltIn(name);
    return known ? known->formula : nullptr;
}

using engine::FormulaService;
using Records = std::shared_ptr<const engine::FormulaRecords>;

constexpr int kPatienceMs = 20'000;

std::shared_ptr<const engine::BarSeries> sharedBars(const std::vector<double>& closes)
{
    return std::make_shared<const engine::BarSeries>(test::barsOf(closes));
}

/// A service whose signals are written down.
class Recorder
{
public:
    Recorder()
    {
        QObject::connect(&service, &FormulaService::computed, &service,
                         [this](const QString& id, Records records) {
                             ids.push_back(id);
                             results.push_back(std::move(records));
                             threads.push_back(QThread::currentThread());
                         });
        QObject::connect(&service, &FormulaService::failed, &service,
                         [this](const QString& id) { failures.push_back(id); });
    }

    /// Runs the event loop until nothing is pending.
    void finish()
    {
        QElapsedTimer timer;
        timer.start();
        while (service.pending() > 0 && timer.elapsed() < kPatienceMs)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 50);
        EXPECT_EQ(service.pending(), 0);
    }

    FormulaService service;
    std::vector<QString> ids, failures;
    std::vector<Records> results;
    std::vector<QThread*> threads;
};

/// Lets everything that is posted arrive.
void settle(int msecs = 100)
{
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < msecs)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
}

TEST(FormulaService, DeliversTheRecordsUnderTheirRequestOnItsOwnThread)
{
    Recorder recorder;
    const QString id = recorder.service.request(builtIn("MA"), sharedBars({ 1, 2, 3 }), { 2 });
    EXPECT_TRUE(recorder.ids.empty()) << "nothing is sent from within request()";
    recorder.finish();
    ASSERT_EQ(recorder.ids, std::vector<QString> { id });
    EXPECT_EQ(test::seriesOf(*recorder.results[0], "MA2"), (std::vector<double> { DBL_MAX, 1.5, 2.5 }));
    EXPECT_EQ(recorder.threads[0], QThread::currentThread());
}

TEST(FormulaService, DeliversInTheOrderOfTheRequests)
{
    Recorder recorder;
    std::vector<QString> asked;
    for (int k = 0; k < 50; ++k)
        asked.push_back(recorder.service.request(builtIn(k % 2 ? "MACD" : "KDJ"), sharedBars({ 1, 2, 3 })));
    recorder.finish();
    EXPECT_EQ(recorder.ids, asked);
}

TEST(FormulaService, NeverUsesAnIdentifierTwice)
{
    FormulaService first, second;
    EXPECT_NE(first.request(builtIn("MA"), sharedBars({ 1 })),
              second.request(builtIn("MA"), sharedBars({ 1 })));
}

TEST(FormulaService, SaysThatAnUnknownFormulaOrMissingBarsFailed)
{
    Recorder recorder;
    const QString unknown = recorder.service.request(builtIn("NOSUCH"), sharedBars({ 1 }));
    const QString noBars = recorder.service.request(builtIn("MA"), nullptr);
    recorder.finish();
    EXPECT_EQ(recorder.failures, (std::vector<QString> { unknown, noBars }));
    EXPECT_TRUE(recorder.ids.empty());
}

TEST(FormulaService, ACancelledRequestSendsNothing)
{
    Recorder recorder;
    const QString dropped = recorder.service.request(builtIn("MA"), sharedBars({ 1 }));
    const QString kept = recorder.service.request(builtIn("MA"), sharedBars({ 1 }));
    recorder.service.cancel(dropped);
    recorder.finish();
    settle();
    EXPECT_EQ(recorder.ids, std::vector<QString> { kept });
    EXPECT_TRUE(recorder.failures.empty());
}

TEST(FormulaService, ARequestCancelledAfterItsResultWasPostedSendsNothing)
{
    Recorder recorder;
    const QString id = recorder.service.request(builtIn("MA"), sharedBars({ 1 }));
    QThread::msleep(100); // computed and posted, but no event has been handled
    recorder.service.cancel(id);
    settle();
    EXPECT_TRUE(recorder.ids.empty());
}

TEST(FormulaService, IgnoresUnknownIdentifiers)
{
    Recorder recorder;
    recorder.service.cancel(QStringLiteral("nobody"));
    recorder.service.cancel(QString());
    const QString id = recorder.service.request(builtIn("MA"), sharedBars({ 1 }));
    recorder.finish();
    recorder.service.cancel(id);
    EXPECT_EQ(recorder.ids.size(), 1u);
}

TEST(FormulaService, CancelAllDropsEverything)
{
    Recorder recorder;
    for (int k = 0; k < 20; ++k)
        recorder.service.request(builtIn("BOLL"), sharedBars(std::vector<double>(1000, 1.0)));
    recorder.service.cancelAll();
    EXPECT_EQ(recorder.service.pending(), 0);
    settle();
    EXPECT_TRUE(recorder.ids.empty());
}

TEST(FormulaService, AReceiverMayAskAndCancelFromWithinTheSignal)
{
    Recorder recorder;
    QString second;
    const QString first = recorder.service.request(builtIn("MA"), sharedBars({ 1 }));
    const QString dropped = recorder.service.request(builtIn("MA"), sharedBars({ 1 }));
    QObject::connect(&recorder.service, &FormulaService::computed, &recorder.service, [&](const QString& id) {
        if (id != first)
            return;
        recorder.service.cancel(dropped);
        second = recorder.service.request(builtIn("KDJ"), sharedBars({ 1 }));
    });
    recorder.finish();
    EXPECT_EQ(recorder.ids, (std::vector<QString> { first, second }));
}

TEST(FormulaService, AReceiverMayDeleteTheService)
{
    auto* service = new FormulaService;
    int received = 0;
    QObject::connect(service, &FormulaService::computed, [&] {
        ++received;
        delete service;
    });
    for (int k = 0; k < 5; ++k)
        service->request(builtIn("MA"), sharedBars({ 1 }));
    QThread::msleep(50); // all five lie ready
    settle();
    EXPECT_EQ(received, 1);
}

TEST(FormulaService, GoesAwayInTheMiddleOfItsWork)
{
    const auto bars = std::make_shared<const engine::BarSeries>(test::randomBars(7, 20'000));
    for (int round = 0; round < 30; ++round) {
        FormulaService service;
        for (int k = 0; k < 8; ++k)
            service.request(builtIn("BOLL"), bars);
        if (round % 3 == 0)
            QThread::usleep(static_cast<unsigned long>(round) * 100);
    }
    settle(20);
    EXPECT_EQ(bars.use_count(), 1) << "no request outlives its service";
}

/// Many threads over the same bars and formulas, with requests dropped and services going away in between.
TEST(FormulaService, ThirtyServicesCarryOutWhatIsNotCancelledUnderStress)
{
    constexpr int services = 30, rounds = 29;
    static const char* const names[] = { "MA", "MACD", "KDJ", "BOLL", "RSI", "CROSSSIGNAL", "NOSUCH" };
    const auto bars = std::make_shared<const engine::BarSeries>(test::randomBars(11, 400));
    std::vector<std::unique_ptr<Recorder>> recorders;
    for (int k = 0; k < services; ++k)
        recorders.push_back(std::make_unique<Recorder>());
    std::size_t cancelled = 0, gone = 0;
    for (int round = 0; round < rounds; ++round) {
        for (int k = 0; k < services; ++k) {
            auto& recorder = recorders[static_cast<std::size_t>(k)];
            const QString id = recorder->service.request(builtIn(names[(round + k) % 7]), bars);
            if ((round * services + k) % 10 == 0) {
                recorder->service.cancel(id);
                ++cancelled;
            }
        }
        auto& leaving = recorders[static_cast<std::size_t>(round)];
        gone += static_cast<std::size_t>(leaving->service.pending());
        gone += leaving->ids.size() + leaving->failures.size();
        leaving = std::make_unique<Recorder>();
        QCoreApplication::processEvents();
    }
    std::size_t ended = 0;
    for (const auto& recorder : recorders) {
        recorder->finish();
        ended += recorder->ids.size() + recorder->failures.size();
    }
    EXPECT_EQ(ended + gone + cancelled, static_cast<std::size_t>(services * rounds));
    recorders.clear();
    EXPECT_EQ(bars.use_count(), 1);
}

TEST(FormulaService, ManyServicesWorkSideBySide)
{
    const auto bars = std::make_shared<const engine::BarSeries>(test::randomBars(3, 5'000));
    Recorder recorders[4];
    for (int k = 0; k < 40; ++k)
        recorders[k % 4].service.request(builtIn(k % 3 ? "RSI" : "CROSSSIGNAL"), bars);
    for (Recorder& recorder : recorders) {
        recorder.finish();
        EXPECT_EQ(recorder.ids.size(), 10u);
    }
}

} // namespace
