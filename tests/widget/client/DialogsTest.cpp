// SPDX-License-Identifier: MIT
/// @file What the client's menus ask for in dialogs, and what comes of the answers.

#include "apps/client/basket/BasketPanel.h"
#include "apps/client/chart/TickView.h"
#include "apps/client/lists/FormulaList.h"
#include "apps/client/lists/MessageList.h"
#include "stocklist/CParserStockExeclTable.h"
#include "tests/support/Workbooks.h"
#include "tests/widget/client/ClientWindow.h"

#include <QContextMenuEvent>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenu>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPushButton>
#include <QSignalSpy>
#include <QTimer>

using test::ClientWindow;
using test::sample;

namespace {

class ClientDialogs : public ClientWindow
{
protected:
    QString path(const char* name) { return m_folder.filePath(QString::fromUtf8(name)); }
    QString messages() const { return m_window->findChild<client::MessageList*>()->toPlainText(); }

    /// Does something that opens a dialog, and answers it. Fails where no such dialog opens.
    template <typename Dialog>
    void answer(const std::function<void()>& open, const std::function<void(Dialog*)>& reply)
    {
        bool isAnswered = false;
        QTimer answering;
        QObject::connect(&answering, &QTimer::timeout, [&] {
            auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            if (!dialog || isAnswered)
                return;
            isAnswered = true;
            reply(dialog);
        });
        answering.start(1);
        open();
        EXPECT_TRUE(isAnswered);
    }
    /// Names a file in the file dialog that an entry of the menus opens; an empty name cancels it.
    void chooseFile(const std::function<void()>& open, const QString& file, const QString& form = QString())
    {
        answer<QFileDialog>(open, [&](QFileDialog* dialog) {
            if (!form.isEmpty())
                dialog->selectNameFilter(form);
            dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(file);
            QMetaObject::invokeMethod(dialog, file.isEmpty() ? "reject" : "accept");
        });
    }
    void chooseFile(const char* text, const QString& file)
    {
        chooseFile([&] { entry(QString::fromUtf8(text))->trigger(); }, file);
    }
    /// A menu of the window as it opens.
    QMenu* opened(const char* title)
    {
        for (QMenu* menu : m_window->findChildren<QMenu*>()) {
            if (menu->title() == QString::fromUtf8(title)) {
                QMetaObject::invokeMethod(menu, "aboutToShow");
                return menu;
            }
        }
        return nullptr;
    }
    static QAction* entryOf(const QMenu* menu, const QString& text)
    {
        const QList<QAction*> actions = menu->actions();
        const auto found = std::find_if(actions.begin(), actions.end(),
                                        [&](const QAction* action) { return action->text() == text; });
        return found == actions.end() ? nullptr : *found;
    }
};

} // namespace

TEST_F(ClientDialogs, OpenBarsTradesAndOverlays)
{
    chooseFile("打开K线…", QString());
    EXPECT_EQ(chart()->state()->barTotal(), 0);
    chooseFile("打开K线…", sample("bars/SH600030.csv"));
    EXPECT_EQ(chart()->state()->barTotal(), 5639);

    chooseFile("叠加品种…", QString());
    EXPECT_TRUE(panes()[0]->data()->overlays().empty());
    chooseFile("叠加品种…", sample("bars/SH000001.csv"));
    ASSERT_EQ(panes()[0]->data()->overlays().size(), 1u);
    entry(QStringLiteral("清除叠加"))->trigger();
    EXPECT_TRUE(panes()[0]->data()->overlays().empty());

    chooseFile("打开分笔…", sample("ticks/VALE3-2025-04-07.csv"));
    EXPECT_EQ(m_window->ticks()->state()->barTotal(), 7478);
}

TEST_F(ClientDialogs, FollowAFileUntilThatIsEnded)
{
    const QString bars = barsFile("bars.csv", "20240102,1,2,1,2,10\n20240103,2,3,2,3,10\n");
    chooseFile("跟随文件…", bars);
    EXPECT_EQ(chart()->state()->barTotal(), 2);
    QMenu* live = opened("实时(&L)");
    ASSERT_TRUE(live);
    QAction* leave = entryOf(live, QStringLiteral("停止跟随"));
    EXPECT_TRUE(leave->isEnabled());
    leave->trigger();
    EXPECT_TRUE(messages().endsWith(QStringLiteral("已停止跟随"))) << messages().toStdString();
    opened("实时(&L)");
    EXPECT_FALSE(leave->isEnabled());
}

TEST_F(ClientDialogs, LoadASkinFileAndSayWhatIsWrongWithIt)
{
    const QString skin = test::writeFile(
        path("own.json"),
        R"({"name": "own", "colors": {"ic_clr_graph_kline_bg": "#102030"}, "fonts": {}, "pictures": {}})");
    chooseFile("打开皮肤文件…", skin);
    EXPECT_EQ(TC::embedded::currentSkin(), QStringLiteral("own"));
    chooseFile("打开皮肤文件…", test::writeFile(path("none.json"), "{"));
    EXPECT_EQ(TC::embedded::currentSkin(), QStringLiteral("own"));
    EXPECT_TRUE(messages().contains(QStringLiteral("none.json:1"))) << messages().toStdString();
}

TEST_F(ClientDialogs, SaveThePictureInTheFormThatIsChosen)
{
    openShare();
    const auto save = [&] { entry(QStringLiteral("导出图片…"))->trigger(); };
    chooseFile(save, QString());
    EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files), QStringList());
    chooseFile(save, path("chart"), QStringLiteral("SVG (*.svg)"));
    EXPECT_TRUE(test::bytesOf(path("chart.svg")).startsWith("<?xml"));
    chooseFile(save, path("chart.png"), QStringLiteral("PDF (*.pdf)"));
    EXPECT_TRUE(test::bytesOf(path("chart.pdf")).startsWith("%PDF"));
    EXPECT_FALSE(QFile::exists(path("chart.png")));
    chooseFile(save, path("chart.png"), QStringLiteral("PNG 3 倍 (*.png)"));
    EXPECT_EQ(QImage(path("chart.png")).size(), chart()->size() * 3);
    EXPECT_TRUE(messages().endsWith(QStringLiteral("已导出 ") + path("chart.png")))
        << messages().toStdString();
}

TEST_F(ClientDialogs, ShowTheChartOnASheetBeforeItIsPrinted)
{
    openShare();
    answer<QPrintPreviewDialog>([&] { entry(QStringLiteral("打印预览…"))->trigger(); },
                                [](QPrintPreviewDialog* dialog) {
                                    const auto* sheets = dialog->findChild<QPrintPreviewWidget*>();
                                    EXPECT_EQ(sheets->pageCount(), 1);
                                    EXPECT_EQ(dialog->printer()->pageLayout().orientation(),
                                              QPageLayout::Landscape);
                                    dialog->reject();
                                });
}

TEST_F(ClientDialogs, OfThePicturesNeedBars)
{
    for (const char* text : { "导出图片…", "复制图片", "打印预览…" })
        EXPECT_FALSE(entry(QString::fromUtf8(text))->isEnabled()) << text;
    openShare();
    for (const char* text : { "导出图片…", "复制图片", "打印预览…" })
        EXPECT_TRUE(entry(QString::fromUtf8(text))->isEnabled()) << text;
}

TEST_F(ClientDialogs, ExportTheResultsOfAPaneWithTheSuffixThatWasForgotten)
{
    openShare();
    const auto exportAll = [&] { Q_EMIT panes()[1]->sigExportRequested(QString(), false); };
    chooseFile(exportAll, QString());
    EXPECT_FALSE(QFile::exists(path("volumes.csv")));
    chooseFile(exportAll, path("volumes"));
    const QList<QByteArray> lines = test::bytesOf(path("volumes.csv")).split('\n');
    EXPECT_GE(lines.size(), 5640) << "a head and a line a bar";
    EXPECT_TRUE(messages().endsWith(QStringLiteral("已导出 ") + path("volumes.csv")))
        << messages().toStdString();
    chooseFile(exportAll, path("none/volumes.csv"));
    EXPECT_TRUE(messages().contains(QStringLiteral("volumes.csv："))
                || messages().contains(QStringLiteral("none/")))
        << messages().toStdString();
    EXPECT_FALSE(messages().endsWith(QStringLiteral("已导出 ") + path("none/volumes.csv")));
}

TEST_F(ClientDialogs, ImportStocksByMenuAndByButton)
{
    const QString list = test::writeFile(path("list.csv"), "600000\n600036\n");
    QSignalSpy ended(m_window->basket(), &client::BasketPanel::sigImportEnded);
    chooseFile("导入股票列表…", list);
    ASSERT_TRUE(QTest::qWaitFor([&] { return ended.count() == 1; }, 30'000));
    EXPECT_EQ(m_window->basket()->table()->rowCount(), 2);
    QPushButton* button = nullptr;
    for (auto* found : m_window->basket()->findChildren<QPushButton*>())
        button = found->text() == QStringLiteral("导入…") ? found : button;
    ASSERT_TRUE(button);
    chooseFile([&] { button->click(); }, QString());
    test::writeFile(list, "600000\n600036\n600030\n");
    chooseFile([&] { button->click(); }, list);
    ASSERT_TRUE(QTest::qWaitFor([&] { return ended.count() == 2; }, 30'000));
    EXPECT_EQ(m_window->basket()->table()->rowCount(), 3);
}

TEST_F(ClientDialogs, StoreArrangementsUnderTheNameThatIsTyped)
{
    const auto store = [&](const QString& name) {
        answer<QInputDialog>([&] { entryOf(opened("布局"), QStringLiteral("保存为…"))->trigger(); },
                             [&](QInputDialog* dialog) {
                                 dialog->setTextValue(name);
                                 name.isEmpty() ? dialog->reject() : dialog->accept();
                             });
    };
    store(QString());
    EXPECT_EQ(opened("布局")->actions().size(), 3) << "the usual one, another name, a line";
    store(QStringLiteral("two & more"));
    QAction* stored = entryOf(opened("布局"), QStringLiteral("two && more"));
    ASSERT_TRUE(stored);
    QAction* basket = entryOf(opened("面板"), QStringLiteral("篮子管理"));
    ASSERT_TRUE(basket);
    const bool wasOpen = basket->isChecked();
    basket->trigger();
    EXPECT_NE(basket->isChecked(), wasOpen);
    stored->trigger();
    ASSERT_TRUE(QTest::qWaitFor([&] { return basket->isChecked() == wasOpen; }));
    basket->trigger();
    entryOf(opened("布局"), QStringLiteral("默认布局"))->trigger();
    EXPECT_TRUE(QTest::qWaitFor([&] { return basket->isChecked() == wasOpen; }));
}

TEST_F(ClientDialogs, OfTheFormulaListPutAFormulaOnTheChartOrIntoAPaneOfItsOwn)
{
    openShare();
    auto* list = m_window->findChild<client::FormulaList*>();
    const auto place = [&](const char* formula) {
        for (int row = 0; row < list->count(); ++row) {
            if (list->item(row)->data(Qt::UserRole).toString() == QString::fromUtf8(formula))
                return list->visualItemRect(list->item(row)).center();
        }
        return QPoint(-1, -1);
    };
    const auto choose = [&](const char* formula, const char* text) {
        list->scrollToTop();
        QContextMenuEvent asked(QContextMenuEvent::Mouse, place(formula),
                                list->viewport()->mapToGlobal(place(formula)));
        QApplication::sendEvent(list->viewport(), &asked);
        auto* menu = list->findChild<QMenu*>();
        ASSERT_TRUE(menu);
        entryOf(menu, QString::fromUtf8(text))->trigger();
        delete menu;
    };
    const auto count = panes().size();
    choose("KDJ", "在新窗格中显示");
    ASSERT_EQ(panes().size(), count + 1);
    EXPECT_EQ(panes().back()->data()->getFormulas(), QList<QString> { QStringLiteral("KDJ") });
    choose("BOLL", "添加到图表");
    EXPECT_TRUE(panes().front()->data()->getFormulas().contains(QStringLiteral("BOLL")));
    QContextMenuEvent beside(QContextMenuEvent::Mouse, QPoint(5, 100'000), QPoint());
    QApplication::sendEvent(list->viewport(), &beside);
    EXPECT_FALSE(list->findChild<QMenu*>()) << "no formula stands there";
}

TEST_F(ClientDialogs, PastingAsksForTheBasketToBeInFront)
{
    QAction* basket = entryOf(opened("面板"), QStringLiteral("篮子管理"));
    ASSERT_TRUE(basket);
    if (basket->isChecked())
        basket->trigger();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !m_window->basket()->isVisible(); }));
    entry(QStringLiteral("粘贴股票列表"))->trigger();
    EXPECT_TRUE(messages().contains(QStringLiteral("先把“篮子管理”面板放到前面")))
        << messages().toStdString();
}
