// SPDX-License-Identifier: MIT
#include "apps/client/docking/DockArrangement.h"

#include "host/embedded/EmbeddedHost.h"
#include "tests/support/ChildRun.h"
#include "tests/support/Trace.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMainWindow>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

namespace {

const QString kChart = QStringLiteral("indexMainPanel");
const QString kTicks = QStringLiteral("transactionPanel");
const QString kMessages = QStringLiteral("messagePanel");

/// A main window with three docked panels, as at the start of the client.
class Client
{
public:
    Client()
    {
        for (const QString& id : { kChart, kTicks, kMessages })
            pool.setMaker(id, [id] { return new TC::IIndexDockableWidget(false, 0, id, nullptr); });
        window.resize(900, 600);
        docks = new client::DockArrangement(&window, pool);
        ads::CDockWidget* chart = docks->addPanel(kChart, ads::LeftDockWidgetArea);
        docks->addPanel(kTicks, ads::RightDockWidgetArea, chart);
        docks->addPanel(kMessages, ads::BottomDockWidgetArea);
        docks->rememberDefault();
        window.show();
        QCoreApplication::processEvents();
    }

    ads::CDockWidget* dock(const QString& panelId) const { return docks->dock(panelId); }
    TC::IIndexDockableWidget* panel(const QString& panelId) const { return docks->panel(panelId); }
    void settle() const
    {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }

    client::PanelPool pool;
    QMainWindow window;
    client::DockArrangement* docks = nullptr;
};

class DockArrangementTest : public testing::Test
{
protected:
    DockArrangementTest() { TC::embedded::setConfigDir(m_config.path()); }

    QString configFile(const char* name) const { return m_config.filePath(QString::fromLatin1(name)); }

    static QByteArray contentOf(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<none>");
    }
    static void write(const QString& path, const QByteArray& content)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    /// Saves an arrangement that differs from the default one: ticks float, messages are closed.
    static void saveOtherArrangement()
    {
        Client client;
        client.dock(kTicks)->setFloating();
        client.dock(kMessages)->closeDockWidget();
        client.settle();
        ASSERT_EQ(client.docks->save().reason(), QString());
    }

    static bool isDefault(const Client& client)
    {
        return !client.dock(kTicks)->isInFloatingContainer() && !client.dock(kMessages)->isClosed();
    }

private:
    QTemporaryDir m_config;
};

TEST_F(DockArrangementTest, DocksCarryIdentifierAndTitle)
{
    Client client;
    ads::CDockWidget* ticks = client.dock(kTicks);
    ASSERT_NE(ticks, nullptr);
    EXPECT_EQ(ticks->objectName(), kTicks);
    EXPECT_EQ(ticks->tabWidget()->text(), QStringLiteral("成交面板"));
    EXPECT_TRUE(client.panel(kTicks)->isVisible());
    EXPECT_TRUE(client.panel(kTicks)->isAcquired());
}

TEST_F(DockArrangementTest, UnknownAndRepeatedPanelsAreRefused)
{
    Client client;
    EXPECT_EQ(client.docks->addPanel(QStringLiteral("nowhere"), ads::LeftDockWidgetArea), nullptr);
    EXPECT_EQ(client.docks->addPanel(kTicks, ads::LeftDockWidgetArea), nullptr);
    EXPECT_EQ(client.pool.panelCount(kTicks), 1);
}

#ifndef INDICATORUI_PLAIN_DOCKS // whose headers are all alike
TEST_F(DockArrangementTest, OnlyTheChartHasASimpleHeader)
{
    Client client;
    const auto closeButtonWidth = [&](const QString& panelId) {
        return client.dock(panelId)
            ->tabWidget()
            ->findChild<QAbstractButton*>(QStringLiteral("tabCloseButton"))
            ->width();
    };
    EXPECT_EQ(closeButtonWidth(kChart), 0);
    EXPECT_GT(closeButtonWidth(kTicks), 0);
}
#endif

TEST_F(DockArrangementTest, PanelThatMayNotBeClosedGetsNoCloseButton)
{
    Client client;
    client.pool.setMaker(QStringLiteral("investBuy"), [] {
        auto* panel = new TC::IIndexDockableWidget(false, 0, QStringLiteral("investBuy"), nullptr);
        panel->setCloseEnable(false);
        return panel;
    });
    ads::CDockWidget* fixed = client.docks->addPanel(QStringLiteral("investBuy"), ads::LeftDockWidgetArea);
    EXPECT_FALSE(fixed->features().testFlag(ads::CDockWidget::DockWidgetClosable));
    EXPECT_TRUE(client.dock(kTicks)->features().testFlag(ads::CDockWidget::DockWidgetClosable));
}

TEST_F(DockArrangementTest, CentreMakesATabBesideAnotherPanel)
{
    Client client;
    client.pool.setMaker(QStringLiteral("investBuy"), [] {
        return new TC::IIndexDockableWidget(false, 0, QStringLiteral("investBuy"), nullptr);
    });
    ads::CDockWidget* tab =
        client.docks->addPanel(QStringLiteral("investBuy"), ads::CenterDockWidgetArea, client.dock(kTicks));
    client.settle();
    EXPECT_EQ(tab->dockAreaWidget(), client.dock(kTicks)->dockAreaWidget());
    EXPECT_EQ(tab->dockAreaWidget()->dockWidgetsCount(), 2);
}

TEST_F(DockArrangementTest, FloatingPanelStaysLent)
{
    Client client;
    TC::IIndexDockableWidget* panel = client.panel(kTicks);
    client.dock(kTicks)->setFloating();
    client.settle();
    EXPECT_TRUE(client.dock(kTicks)->isInFloatingContainer());
    EXPECT_EQ(client.panel(kTicks), panel);
    EXPECT_TRUE(panel->isAcquired());
    EXPECT_TRUE(panel->isVisible());
}

TEST_F(DockArrangementTest, ClosedDockGivesItsPanelBack)
{
    Client client;
    TC::IIndexDockableWidget* panel = client.panel(kTicks);
    client.dock(kTicks)->closeDockWidget();
    EXPECT_FALSE(panel->isAcquired());
    EXPECT_EQ(client.panel(kTicks), panel); // until the event loop runs
    client.settle();
    EXPECT_EQ(client.panel(kTicks), nullptr);
    EXPECT_EQ(panel->parentWidget(), nullptr);
    EXPECT_TRUE(panel->isHidden());
}

TEST_F(DockArrangementTest, ReopenedDockBorrowsItsPanelAgain)
{
    Client client;
    TC::IIndexDockableWidget* panel = client.panel(kTicks);
    client.dock(kTicks)->closeDockWidget();
    client.settle();
    client.dock(kTicks)->toggleView(true);
    client.settle();
    EXPECT_EQ(client.panel(kTicks), panel);
    EXPECT_TRUE(panel->isAcquired());
    EXPECT_TRUE(panel->isVisible());
    EXPECT_EQ(client.pool.panelCount(kTicks), 1);
}

TEST_F(DockArrangementTest, DockReopenedAtOnceKeepsItsPanel)
{
    Client client;
    TC::IIndexDockableWidget* panel = client.panel(kTicks);
    client.dock(kTicks)->closeDockWidget();
    client.dock(kTicks)->toggleView(true);
    client.settle();
    EXPECT_EQ(client.panel(kTicks), panel);
    EXPECT_TRUE(panel->isAcquired());
    EXPECT_TRUE(panel->isVisible());
}

TEST_F(DockArrangementTest, FloatingDockClosesAndReopens)
{
    Client client;
    client.dock(kTicks)->setFloating();
    client.settle();
    client.dock(kTicks)->closeDockWidget();
    client.settle();
    EXPECT_EQ(client.pool.lentCount(kTicks), 0);
    client.dock(kTicks)->toggleView(true);
    client.settle();
    EXPECT_TRUE(client.panel(kTicks)->isVisible());
}

TEST_F(DockArrangementTest, RemovedPanelLeavesNoDockAndGoesBack)
{
    Client client;
    client.docks->removePanel(kTicks);
    client.docks->removePanel(QStringLiteral("nowhere"));
    EXPECT_EQ(client.dock(kTicks), nullptr);
    client.settle();
    EXPECT_EQ(client.pool.lentCount(kTicks), 0);
    EXPECT_EQ(client.pool.panelCount(kTicks), 1);
}

TEST_F(DockArrangementTest, RestoreRightAfterARemovalIsSafe)
{
    saveOtherArrangement();
    Client client;
    client.dock(kMessages)->setFloating();
    client.docks->removePanel(kMessages);
    EXPECT_EQ(client.docks->restore().reason(), QString());
    client.settle();
    EXPECT_TRUE(client.dock(kTicks)->isInFloatingContainer());
}

TEST_F(DockArrangementTest, SavedArrangementComesBackAtTheNextStart)
{
    saveOtherArrangement();
    Client client;
    EXPECT_TRUE(isDefault(client));
    EXPECT_EQ(client.docks->restore().reason(), QString());
    client.settle();
    EXPECT_TRUE(client.dock(kTicks)->isInFloatingContainer());
    EXPECT_TRUE(client.dock(kMessages)->isClosed());
    EXPECT_EQ(client.pool.lentCount(kMessages), 0);
    EXPECT_TRUE(client.panel(kTicks)->isVisible());
    EXPECT_TRUE(client.panel(kChart)->isVisible());
}

TEST_F(DockArrangementTest, WindowComesBackAtItsPlaceAndSize)
{
    {
        Client client;
        client.window.setGeometry(60, 50, 640, 480);
        client.settle();
        ASSERT_EQ(client.docks->save().reason(), QString());
    }
    Client client;
    ASSERT_NE(client.window.size(), QSize(640, 480));
    EXPECT_EQ(client.docks->restore().reason(), QString());
    client.settle();
    EXPECT_EQ(client.window.geometry(), QRect(60, 50, 640, 480));
}

TEST_F(DockArrangementTest, FileOfAClientThatKeptNoPlaceLeavesTheWindowWhereItIs)
{
    saveOtherArrangement();
    const QString path = client::DockArrangement::filePath();
    QJsonObject root = QJsonDocument::fromJson(contentOf(path)).object();
    ASSERT_TRUE(root.contains(QStringLiteral("window")));
    root.remove(QStringLiteral("window"));
    write(path, QJsonDocument(root).toJson());
    Client client;
    const QRect before = client.window.geometry();
    EXPECT_EQ(client.docks->restore().reason(), QString());
    client.settle();
    EXPECT_EQ(client.window.geometry(), before);
    EXPECT_TRUE(client.dock(kTicks)->isInFloatingContainer());
}

TEST_F(DockArrangementTest, SavingTwiceGivesTheSameFile)
{
    saveOtherArrangement();
    const QByteArray first = contentOf(client::DockArrangement::filePath());
    Client client;
    EXPECT_TRUE(client.docks->restore().isGood());
    client.settle();
    EXPECT_TRUE(client.docks->save().isGood());
    EXPECT_TRUE(client.docks->save().isGood());
    const QByteArray second = contentOf(client::DockArrangement::filePath());
    Client again;
    EXPECT_TRUE(again.docks->restore().isGood());
    again.settle();
    EXPECT_TRUE(again.docks->save().isGood());
    EXPECT_EQ(contentOf(client::DockArrangement::filePath()).size(), second.size());
    EXPECT_NE(first, "<none>");
}

TEST_F(DockArrangementTest, FirstStartUsesTheDefaultWithoutAMessage)
{
    Client client;
    client.dock(kTicks)->setFloating();
    EXPECT_EQ(client.docks->restore().reason(), QString());
    client.settle();
    EXPECT_TRUE(isDefault(client));
}

TEST_F(DockArrangementTest, DamagedFileFallsBackToTheDefaultWithAMessageAndIsKeptAside)
{
    saveOtherArrangement();
    const QString path = client::DockArrangement::filePath();
    const QByteArray sound = contentOf(path);
    Client client;
    client.dock(kTicks)->closeDockWidget();
    client.settle();
    write(path, sound.left(sound.size() / 2));

    EXPECT_EQ(client.docks->restore().reason(), QStringLiteral("面板布局文件已损坏，已使用默认布局。"));
    client.settle();
    EXPECT_TRUE(isDefault(client));
    EXPECT_FALSE(client.dock(kTicks)->isClosed());
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_EQ(contentOf(path + QStringLiteral(".damaged")), sound.left(sound.size() / 2));
}

TEST_F(DockArrangementTest, EveryFlippedByteIsNoticedOrHarmless)
{
    saveOtherArrangement();
    const QString path = client::DockArrangement::filePath();
    const QByteArray sound = contentOf(path);
    Client client;
    for (int position = 0; position < sound.size(); position += 37) {
        SCOPED_TRACE(position);
        QByteArray damaged = sound;
        damaged[position] = static_cast<char>(damaged[position] ^ 0x15);
        write(path, damaged);
        const QString message = client.docks->restore().reason();
        client.settle();
        EXPECT_TRUE(message.isEmpty() ? client.dock(kTicks)->isInFloatingContainer() : isDefault(client));
    }
}

TEST_F(DockArrangementTest, StateThatTheDockingSystemRefusesFallsBackToTheDefault)
{
    {
        Client client;
        EXPECT_TRUE(client.docks->store(QStringLiteral("kept")).isGood());
    }
    // A sound file around a state that is none: format and checksum are right.
    const QString path = client::DockArrangement::filePath();
    write(path,
          QByteArray(R"({"format":1,"last":{"state":"bm90IGEgc3RhdGU=","sha256":")"
                     "6e6b6588ae142f545c8de8bef5abc2f7b04a283e45526452a2cd7633d8bdce94"
                     R"("},"named":{}})"));
    Client client;
    client.dock(kTicks)->closeDockWidget();
    client.settle();
    EXPECT_EQ(client.docks->restore().reason(), QStringLiteral("上次的面板布局无法恢复，已使用默认布局。"));
    client.settle();
    EXPECT_TRUE(isDefault(client));
    EXPECT_FALSE(client.dock(kTicks)->isClosed());
}

TEST_F(DockArrangementTest, ArrangementThatEndedTheProgramIsLeftOutAtTheNextStart)
{
    if (QGuiApplication::platformName() != QLatin1String("offscreen"))
        GTEST_SKIP() << "two processes cannot share one connection to a screen";
    saveOtherArrangement();
    const test::ChildEnd end = test::runInChild(
        [] {
            Client client;
            QObject::connect(client.docks->manager(), &ads::CDockManager::restoringState,
                             [] { std::_Exit(7); });
            EXPECT_TRUE(client.docks->restore().isGood());
            return 0;
        },
        60);
    ASSERT_EQ(end.answer, 7);
    Client client;
    client.dock(kTicks)->setFloating();
    EXPECT_EQ(client.docks->restore().reason(),
              QStringLiteral("上次载入面板布局时程序中断，已使用默认布局。"));
    client.settle();
    EXPECT_TRUE(isDefault(client));
    EXPECT_NE(contentOf(client::DockArrangement::filePath() + QStringLiteral(".damaged")), "<none>");
    EXPECT_EQ(client.docks->save().reason(), QString());

    Client third;
    EXPECT_EQ(third.docks->restore().reason(), QString()); // the default arrangement, which was saved
}

TEST_F(DockArrangementTest, ArrangementThatWasSurvivedLeavesNoMark)
{
    saveOtherArrangement();
    for (int start = 0; start < 2; ++start) {
        Client client;
        EXPECT_EQ(client.docks->restore().reason(), QString());
        client.settle();
        EXPECT_FALSE(QFile::exists(client::DockArrangement::filePath() + QStringLiteral(".loading")));
    }
}

TEST_F(DockArrangementTest, ClientBesideAnotherOneWritesNothing)
{
    saveOtherArrangement();
    const QByteArray before = contentOf(client::DockArrangement::filePath());
    Client client;
    EXPECT_EQ(client.docks->restore(false).reason(), QString());
    client.settle();
    EXPECT_TRUE(client.dock(kTicks)->isInFloatingContainer());
    client.docks->applyDefault();
    client.settle();
    EXPECT_EQ(client.docks->save().reason(), QString());
    EXPECT_FALSE(client.docks->store(QStringLiteral("mine")).isGood());
    EXPECT_EQ(contentOf(client::DockArrangement::filePath()), before);
}

TEST_F(DockArrangementTest, FileReplacedByAFolderGivesMessages)
{
    QDir().mkpath(client::DockArrangement::filePath() + QStringLiteral("/inner"));
    Client client;
    EXPECT_FALSE(client.docks->restore().isGood());
    client.settle();
    EXPECT_TRUE(isDefault(client));
    // The folder was put aside as a damaged file is.
    EXPECT_EQ(client.docks->save().reason(), QString());
}

TEST_F(DockArrangementTest, FileThatCannotBeWrittenGivesAMessageAndStays)
{
    Client client;
    QDir().mkpath(client::DockArrangement::filePath() + QStringLiteral("/inner"));
    EXPECT_TRUE(client.docks->save().reason().startsWith(QStringLiteral("面板布局无法保存")));
    EXPECT_TRUE(QDir(client::DockArrangement::filePath() + QStringLiteral("/inner")).exists());
}

TEST_F(DockArrangementTest, SavingLeavesNoOtherFile)
{
    Client client;
    EXPECT_TRUE(client.docks->save().isGood());
    EXPECT_TRUE(client.docks->save().isGood());
    EXPECT_EQ(QDir(QFileInfo(client::DockArrangement::filePath()).path())
                  .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList(QStringLiteral("dock-arrangement.json")));
}

TEST_F(DockArrangementTest, NamedArrangementsAreAppliedAndOutliveARestart)
{
    {
        Client client;
        EXPECT_EQ(client.docks->store(QStringLiteral("看盘")).reason(), QString());
        client.dock(kTicks)->closeDockWidget();
        client.settle();
        EXPECT_EQ(client.docks->store(QStringLiteral("下单")).reason(), QString());
    }
    Client client;
    EXPECT_TRUE(client.docks->restore().isGood());
    client.settle();
    EXPECT_EQ(client.docks->names().size(), 2);
    EXPECT_TRUE(client.dock(kTicks)->isClosed());
    EXPECT_EQ(client.docks->apply(QStringLiteral("看盘")).reason(), QString());
    client.settle();
    EXPECT_FALSE(client.dock(kTicks)->isClosed());
    EXPECT_TRUE(client.panel(kTicks)->isVisible());
    EXPECT_EQ(client.docks->apply(QStringLiteral("下单")).reason(), QString());
    client.settle();
    EXPECT_TRUE(client.dock(kTicks)->isClosed());
}

TEST_F(DockArrangementTest, ForgottenArrangementIsGone)
{
    Client client;
    EXPECT_TRUE(client.docks->store(QStringLiteral("a")).isGood());
    EXPECT_EQ(client.docks->forget(QStringLiteral("a")).reason(), QString());
    EXPECT_TRUE(client.docks->names().isEmpty());
    EXPECT_EQ(client.docks->apply(QStringLiteral("a")).reason(), QStringLiteral("没有名为“a”的布局。"));
}

TEST_F(DockArrangementTest, WindowMayDieBeforeOrAfterTheLoanEnds)
{
    client::PanelPool pool;
    pool.setMaker(kTicks, [] { return new TC::IIndexDockableWidget(false, 0, kTicks, nullptr); });
    for (const bool closeFirst : { false, true }) {
        auto window = std::make_unique<QMainWindow>();
        auto* docks = new client::DockArrangement(window.get(), pool);
        ads::CDockWidget* dock = docks->addPanel(kTicks, ads::LeftDockWidgetArea);
        ASSERT_NE(dock, nullptr);
        window->show();
        if (closeFirst)
            dock->closeDockWidget();
        window.reset();
        QCoreApplication::processEvents();
        EXPECT_EQ(pool.lentCount(kTicks), 0);
    }
}

} // namespace
