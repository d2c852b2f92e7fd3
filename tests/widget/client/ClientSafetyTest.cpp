// SPDX-License-Identifier: MIT
/// @file What the client's window does when something is about to be lost.

#include "apps/client/MainWindow.h"
#include "apps/client/basket/BasketPanel.h"
#include "apps/client/editor/FormulaEditor.h"
#include "apps/client/editor/FormulaText.h"
#include "apps/client/lists/MessageList.h"
#include "apps/client/recovery/FormulaBackups.h"
#include "host/TC/CStockManager.h"
#include "host/TC/Folders.h"
#include "host/TC/Instruments.h"
#include "host/embedded/EmbeddedHost.h"
#include "host/embedded/TableSetup.h"
#include "host/utils/CSingletonT.h"
#include "recovery/CRecoveryVersionManager.h"
#include "stocklist/CParserStockExeclTable.h"
#include "tests/support/RecoveryFolders.h"
#include "tests/support/SmallFiles.h"
#include "tests/support/Trace.h"

#include <QAction>
#include <QApplication>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLockFile>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>
#include <QTimer>
#include <QToolTip>
#include <QUrl>
#include <QtTest/QTest>

#include <gtest/gtest.h>

#include <cstdio>

namespace {

class ClientSafety : public testing::Test, protected test::RecoveryFolders
{
protected:
    ClientSafety() { utils::CSingletonT<TC::CRecoveryVersionManager>::release(); }

    void start()
    {
        m_window = std::make_unique<client::MainWindow>();
        m_window->show();
        QTest::qWait(20); // the run starts once the window stands
    }
    void trigger(const char* entry)
    {
        for (QAction* action : m_window->findChildren<QAction*>()) {
            if (action->text() == QString::fromUtf8(entry))
                action->trigger();
        }
    }
    QString messages() const { return m_window->findChild<client::MessageList*>()->toPlainText(); }
    client::FormulaEditor* editor() const { return m_window->findChild<client::FormulaEditor*>(); }

    /// Answers the next message box, once it is there, by the button with this text.
    void answerNext(const char* button, QString* question = nullptr)
    {
        QTimer::singleShot(20, [this, button, question] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            m_formats << box->findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))->textFormat();
            if (question)
                *question = box->text();
            for (QAbstractButton* choice : box->buttons()) {
                if (choice->text() == QString::fromUtf8(button))
                    choice->click();
            }
        });
    }

    std::unique_ptr<client::MainWindow> m_window;
    QList<Qt::TextFormat> m_formats;
};

TEST_F(ClientSafety, WindowStaysOpenWhenUnsavedTextIsToBeKept)
{
    start();
    trigger("公式编辑器…");
    editor()->findChild<client::FormulaText*>()->setPlainText(QStringLiteral("LINE:CLOSE;"));
    answerNext("取消");
    m_window->close();
    EXPECT_TRUE(m_window->isVisible());
    EXPECT_TRUE(QFile::exists(configDir() + QStringLiteral("/out.txt"))); // the client still runs
    answerNext("确定");
    m_window->close();
    EXPECT_FALSE(m_window->isVisible());
    EXPECT_FALSE(QFile::exists(configDir() + QStringLiteral("/out.txt")));
}

TEST_F(ClientSafety, DamagedFormulasAreToldAtTheStartAndWhenTheyAreLoadedAgain)
{
    setLive("{\"formulas\": [", "scripts");
    start();
    EXPECT_EQ(messages().count(QStringLiteral("公式文件有误")), 1) << messages().toStdString();
    trigger("重新载入公式");
    EXPECT_EQ(messages().count(QStringLiteral("公式文件有误")), 2) << messages().toStdString();
    setLive("{\"formulas\": []}", "scripts");
    trigger("重新载入公式");
    EXPECT_EQ(messages().count(QStringLiteral("公式文件有误")), 2);
}

TEST_F(ClientSafety, MissingFormulasAreToldWhereThereIsABackup)
{
    start();
    EXPECT_FALSE(messages().contains(QStringLiteral("没有公式文件")));
    m_window.reset();
    addBackups(1);
    start();
    EXPECT_TRUE(messages().contains(QStringLiteral("没有公式文件"))) << messages().toStdString();
}

TEST_F(ClientSafety, BackupIsToldAsItEnded)
{
    setLive("{}", "scripts");
    start();
    trigger("备份公式");
    EXPECT_TRUE(messages().endsWith(QStringLiteral("公式已备份"))) << messages().toStdString();
    trigger("备份公式");
    EXPECT_TRUE(messages().endsWith(QStringLiteral("未做新备份"))) << messages().toStdString();
    setLive("{ }", "scripts");
    {
        const test::SmallFiles disk(0);
        trigger("备份公式");
    }
    EXPECT_TRUE(messages().contains(QStringLiteral("备份失败"))) << messages().toStdString();
}

TEST_F(ClientSafety, SecondClientIsToldAndLeavesTheFilesOfTheFirst)
{
    start();
    EXPECT_TRUE(m_window->docks()->store(QStringLiteral("mine")).isGood());
    const QByteArray arrangement = contentOf(client::DockArrangement::filePath());
    client::MainWindow second;
    second.show();
    QTest::qWait(20);
    EXPECT_TRUE(second.findChild<client::MessageList*>()->toPlainText().contains(
        QStringLiteral("另一个客户端正在运行")));
    second.docks()->applyDefault();
    second.close();
    EXPECT_EQ(contentOf(client::DockArrangement::filePath()), arrangement);
    EXPECT_TRUE(QFile::exists(configDir() + QStringLiteral("/out.txt"))); // the first one still runs
    m_window->close();
    m_window.reset();
    start();
    EXPECT_FALSE(messages().contains(QStringLiteral("另一个客户端"))) << messages().toStdString();
}

TEST_F(ClientSafety, InterruptedRestoreIsFinishedAndToldAtTheStart)
{
    setLive("live formulas", "live scripts");
    write(configDir() + QStringLiteral("/restore-before"),
          client::packed({ QByteArray("live formulas"), QByteArray("live scripts") }));
    write(configDir() + QStringLiteral("/restore-wanted"),
          client::packed({ QByteArray("{\"formulas\": []}"), QByteArray("old scripts") }));
    start();
    EXPECT_EQ(live(QStringLiteral("configFormula")), "{\"formulas\": []}");
    EXPECT_EQ(live(QStringLiteral("lua")), "old scripts");
    EXPECT_TRUE(messages().contains(QStringLiteral("被中断，现已完成"))) << messages().toStdString();
}

TEST_F(ClientSafety, DamagedInstrumentStoreIsToldAtTheStart)
{
    const QString store = QDir(TC::getUserRootDir()).filePath(QStringLiteral("instruments.sqlite"));
    write(store, QByteArray("SQLite format 3\0 and nothing that follows from it", 50));
    TC::embedded::reloadInstruments();
    start();
    EXPECT_TRUE(messages().contains(QStringLiteral("证券数据库已损坏"))) << messages().toStdString();
    const QStringList kept =
        QDir(TC::getUserRootDir()).entryList({ QStringLiteral("instruments.sqlite.damaged-*") });
    EXPECT_EQ(kept.size(), 1);
    EXPECT_TRUE(TC::getDetailQsKey(utils::CSingletonT<TC::CStockManager>::instance()->getInstrumentDetail(
                                       QStringLiteral("SH600030")))
                    .contains(QStringLiteral("600030")));
}

TEST_F(ClientSafety, ArrangementThatCannotBeSavedIsToldBeforeTheWindowGoes)
{
    start();
    const test::SmallFiles disk(0);
    QString question;
    answerNext("取消", &question);
    m_window->close();
    EXPECT_TRUE(question.contains(QStringLiteral("面板布局无法保存"))) << question.toStdString();
    EXPECT_TRUE(m_window->isVisible());
    EXPECT_TRUE(QFile::exists(configDir() + QStringLiteral("/out.txt"))); // the client still runs
    answerNext("退出");
    m_window->close();
    EXPECT_FALSE(m_window->isVisible());
}

TEST_F(ClientSafety, EachOfThreeListsDroppedAtOnceEndsInAMessage)
{
    start();
    auto* data = new QMimeData;
    QList<QUrl> urls;
    for (const char* name : { "one.csv", "two.csv", "picture.png", "three.txt" }) {
        const QString path = userDir() + QLatin1Char('/') + QString::fromLatin1(name);
        write(path, "600000\n");
        urls << QUrl::fromLocalFile(path);
    }
    data->setUrls(urls);
    QSignalSpy ended(m_window->basket(), &client::BasketPanel::sigImportEnded);
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window->basket(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window->basket(), &drop);
    ASSERT_TRUE(QTest::qWaitFor([&] { return ended.count() == 3; }, 30'000)) << messages().toStdString();
    for (const char* line : { "one.csv：读入 1 行，识别 1 行", "two.csv：读入 1 行，识别 1 行",
                              "three.txt：读入 1 行，识别 1 行", "picture.png：只能导入" })
        EXPECT_EQ(messages().count(QString::fromUtf8(line)), 1) << line << "\n" << messages().toStdString();
    delete data;
}

TEST_F(ClientSafety, ListWhoseNameIsNoTextIsImportedWhenItIsDropped)
{
    start();
    const QByteArray name = (userDir() + QLatin1Char('/')).toUtf8() + "\xFF\xC3.csv";
    std::FILE* file = std::fopen(name.constData(), "w");
    ASSERT_NE(file, nullptr);
    std::fputs("600000\n", file);
    std::fclose(file);
    QMimeData data;
    data.setData(QStringLiteral("text/uri-list"), "file://" + name.toPercentEncoding("/") + "\r\n");
    QSignalSpy ended(m_window->basket(), &client::BasketPanel::sigImportEnded);
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window->basket(), &enter);
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window->basket(), &drop);
    ASSERT_TRUE(QTest::qWaitFor([&] { return ended.count() == 1; }, 30'000)) << messages().toStdString();
    EXPECT_TRUE(messages().contains(QStringLiteral("\\xff\\xc3.csv：读入 1 行，识别 1 行")))
        << messages().toStdString();
    std::remove(name.constData());
}

TEST_F(ClientSafety, ExportOfTheBasketSaysHowItEnded)
{
    start();
    const auto exportBasket = [this] {
        for (QAction* entry : m_window->basket()->table()->contextMenu()->actions()) {
            if (entry->text() == QStringLiteral("导出数据"))
                entry->trigger();
        }
    };
    const QString path = userDir() + QStringLiteral("/out.csv");
    TC::embedded::setSaveDialogAnswer(path);
    exportBasket();
    EXPECT_TRUE(messages().contains(QStringLiteral("已导出 0 行到 ") + path)) << messages().toStdString();
    {
        const test::SmallFiles disk(4);
        exportBasket();
    }
    EXPECT_TRUE(messages().contains(QStringLiteral("导出失败，文件不完整或未写入：") + path))
        << messages().toStdString();
    TC::embedded::setSaveDialogAnswer(userDir() + QStringLiteral("/none/out.txt"));
    exportBasket();
    EXPECT_TRUE(
        messages().contains(QStringLiteral("未写入：") + userDir() + QStringLiteral("/none/out.txt")));
    TC::embedded::setSaveDialogAnswer(userDir() + QStringLiteral("/out.xls"));
    exportBasket();
    EXPECT_TRUE(messages().contains(QStringLiteral("未导出：文件名要以 .txt 或 .csv 结尾")))
        << messages().toStdString();
    const int told = messages().size();
    TC::embedded::setSaveDialogAnswer(QString());
    exportBasket();
    EXPECT_EQ(messages().size(), told);
}

TEST_F(ClientSafety, LockOfAClientKilledBeforeItPutItsNameIntoItStopsNobody)
{
    write(TC::getConfigDir() + QStringLiteral("/client.lock"), QByteArray());
    start();
    EXPECT_FALSE(messages().contains(QStringLiteral("另一个客户端"))) << messages().toStdString();
}

TEST_F(ClientSafety, MarkupInNamesIsShownAsWritten)
{
    start();
    const QString name = QStringLiteral("<b>&x</b><img src='/none.png'>%1");
    QLabel label(name);
    label.show();
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
    QToolTip::showText(QPoint(10, 10), name);
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* tip = qobject_cast<QLabel*>(widget); tip && tip->inherits("QTipLabel")) {
            EXPECT_EQ(tip->textFormat(), Qt::PlainText);
        }
    }
    QToolTip::hideText();

    trigger("公式编辑器…");
    editor()->findChild<QLineEdit*>(QStringLiteral("name"))->setText(name);
    editor()->findChild<client::FormulaText*>()->setPlainText(QStringLiteral("LINE:CLOSE;"));
    QString question;
    answerNext("取消", &question);
    EXPECT_FALSE(editor()->leave());
    EXPECT_TRUE(question.contains(name));
    EXPECT_EQ(m_formats, QList<Qt::TextFormat> { Qt::PlainText });
    m_window->slotShowMessage(QStringLiteral("a\nb"));
    EXPECT_TRUE(messages().endsWith(QStringLiteral("a\\nb")));
    answerNext("确定");
    EXPECT_TRUE(editor()->leave());
}

} // namespace
