// SPDX-License-Identifier: MIT
/// @file The client's docks and its restore dialog, worked with the mouse as a trader does.

#include "tests/driven/DrivenClient.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace {

using test::Seen;
using test::View;

const QString kBasket = QStringLiteral("tradeBaskets");
const QString kBasketTitle = QStringLiteral("篮子管理");
const QString kMessages = QStringLiteral("messagePanel");
const QString kQuotes = QStringLiteral("quoteList");
const QString kMainWindow = QStringLiteral("client::MainWindow");
const QByteArray kFormulas = R"({"formulas": [{"name": "MINE", "base": "MA", "parameters": [7]}]})";

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<none>");
}

/// The client's skin has no pixel that is quite black.
int blackPixels(const QImage& picture, const QRect& area)
{
    int black = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x)
            black += picture.pixel(x, y) == qRgb(0, 0, 0);
    }
    return black;
}

int averageGray(const QImage& picture, const QRect& area)
{
    qint64 sum = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x)
            sum += qGray(picture.pixel(x, y));
    }
    return static_cast<int>(sum / (qint64(area.width()) * area.height()));
}

class ClientByMouse : public testing::Test, protected test::DrivenClient
{
protected:
    void TearDown() override
    {
        if (isRunning() && !HasFailure())
            quit();
    }

    /// Drags the basket by its tab to a place where there is no mark to drop it on.
    void floatTheBasket()
    {
        const std::optional<Seen> tab = look().tab(kBasketTitle);
        ASSERT_TRUE(tab);
        press(tab->middle());
        moveTo(tab->middle() + QPoint(200, 300));
        awaitThat("the panel under the pointer",
                  [](const View& view) { return view.widget("ads::CFloatingDragPreview").has_value(); });
        picture(QStringLiteral("dragging-a-tab"));
        moveTo(QPoint(720, 500));
        letGo();
        await("the floating window",
              [](const View& view) { return view.widget("ads::CFloatingDockContainer"); });
    }

    /// Drags the corner of the main window that is there for it.
    void widenTheWindow()
    {
        const std::optional<Seen> window = look().widget("client::MainWindow");
        ASSERT_TRUE(window);
        press(window->place.bottomRight() - QPoint(4, 4));
        moveTo(window->place.bottomRight() + QPoint(40, -60));
        letGo();
        awaitThat("a wider window", [&](const View& view) {
            const std::optional<Seen> now = view.widget("client::MainWindow");
            return now && now->place.width() > window->place.width() + 20;
        });
    }

    void closeTheMessages()
    {
        const std::optional<Seen> button = look().closeButton(QStringLiteral("消息面板"));
        ASSERT_TRUE(button);
        click(button->middle());
        awaitThat("the dock gone", [](const View& view) { return !view.dock(kMessages); });
    }

    void quit()
    {
        choose({ QStringLiteral("文件(&F)"), QStringLiteral("退出") });
        EXPECT_TRUE(hasEnded());
    }

    QString configFile(const char* name) const
    {
        return home() + QStringLiteral("/config/") + QLatin1String(name);
    }
    QString userFile(const char* name) const
    {
        return home() + QStringLiteral("/user/") + QLatin1String(name);
    }
    void writeUserFile(const char* name, const QByteArray& content) const
    {
        QDir().mkpath(home() + QStringLiteral("/user"));
        QFile file(userFile(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
};

TEST_F(ClientByMouse, FloatsAPanelThatIsDraggedOutByItsTab)
{
    start();
    const std::optional<Seen> docked = look().dock(QStringLiteral("indexMainPanel"));
    ASSERT_TRUE(docked);
    EXPECT_EQ(docked->windowKind, kMainWindow);
    floatTheBasket();
    const View view = settled();
    picture(QStringLiteral("floating"));
    const std::optional<Seen> basket = view.dock(kBasket);
    ASSERT_TRUE(basket);
    EXPECT_EQ(basket->window, kBasketTitle);
    EXPECT_TRUE(view.widget("ads::CFloatingWidgetTitleBar"));
}

TEST_F(ClientByMouse, DocksAFloatingPanelThatIsDroppedOnAMark)
{
    start();
    floatTheBasket();
    const View floating = settled();
    const std::optional<Seen> bar = floating.widget("ads::CFloatingWidgetTitleBar");
    const std::optional<Seen> window = floating.widget("client::MainWindow");
    ASSERT_TRUE(bar && window);
    press(bar->place.topLeft() + QPoint(60, bar->place.height() / 2));
    moveTo(window->middle());
    const std::optional<Seen> mark =
        await("marks to drop on", [](const View& view) { return view.rightmostDropMark(); });
    ASSERT_TRUE(mark);
    moveTo(mark->middle());
    awaitThat("the preview of the drop",
              [](const View& view) { return view.widget("ads::CDockOverlay").has_value(); });
    // Nothing blends windows on this screen; the marks must not cover what lies under them all the same.
    const QImage above = picture(QStringLiteral("above-the-right-mark"));
    const std::optional<Seen> quotes = look().dock(kQuotes); // the tab that is in front without the basket
    ASSERT_TRUE(quotes);
    const QRect leftThird(quotes->place.topLeft(), QSize(quotes->place.width() / 3, quotes->place.height()));
    EXPECT_EQ(blackPixels(above, leftThird), 0);
    letGo();
    awaitThat("no floating window",
              [](const View& view) { return !view.widget("ads::CFloatingDockContainer"); });
    const View view = settled();
    picture(QStringLiteral("docked-at-the-right"));
    const std::optional<Seen> basket = view.dock(kBasket), quotesBeside = view.dock(kQuotes);
    ASSERT_TRUE(basket && quotesBeside);
    EXPECT_EQ(basket->windowKind, kMainWindow);
    EXPECT_GT(basket->place.left(), quotesBeside->place.right());
    EXPECT_FALSE(view.rightmostDropMark());
}

TEST_F(ClientByMouse, ReopensAClosedPanelThroughTheMenu)
{
    start();
    const std::string before = settled().arrangement();
    closeTheMessages();
    const View without = settled();
    picture(QStringLiteral("closed"));
    EXPECT_FALSE(without.tab(QStringLiteral("消息面板")));
    choose({ QStringLiteral("视图(&V)"), QStringLiteral("面板") });
    await("the panels", [](const View& view) { return view.entry(QStringLiteral("消息面板")); });
    picture(QStringLiteral("menu-of-panels"));
    choose({ QStringLiteral("消息面板") });
    awaitThat("the dock", [](const View& view) { return view.dock(kMessages).has_value(); });
    EXPECT_EQ(settled().arrangement(), before);
    picture(QStringLiteral("reopened"));
}

TEST_F(ClientByMouse, StandsAfterARestartAsItWasLeft)
{
    start();
    const std::string atFirst = settled().arrangement();
    widenTheWindow();
    floatTheBasket();
    closeTheMessages();
    const std::string left = settled().arrangement();
    ASSERT_NE(left, atFirst);
    quit();
    EXPECT_FALSE(QFile::exists(configFile("out.txt")));

    start();
    awaitThat("the arrangement that was left", [&](const View& view) { return view.arrangement() == left; });
    const View again = settled();
    picture(QStringLiteral("restarted"));
    EXPECT_EQ(again.arrangement(), left);
    EXPECT_FALSE(again.widget("client::RestoreDialog"));
}

TEST_F(ClientByMouse, ShowsEveryDockInTheSkinThatIsChosen)
{
    start();
    floatTheBasket();
    choose({ QStringLiteral("视图(&V)"), QStringLiteral("皮肤"), QStringLiteral("浅色（红涨绿跌）") });
    awaitThat("the menus closed", [](const View& view) { return !view.widget("QMenu"); });
    const QImage light = picture(QStringLiteral("light-skin"));
    const View view = look();
    for (const char* panel : { "quoteList", "tradeBaskets", "productBaseInfo", "F7index", "messagePanel" }) {
        const std::optional<Seen> dock = view.dock(QLatin1String(panel));
        ASSERT_TRUE(dock) << panel;
        EXPECT_GT(averageGray(light, dock->place), 200) << panel;
    }
}

TEST_F(ClientByMouse, KeepsASkinThatWasChosenBeforeASuddenEnd)
{
    start();
    const QString session = configFile("session.json");
    choose({ QStringLiteral("视图(&V)"), QStringLiteral("皮肤"), QStringLiteral("浅色（红涨绿跌）") });
    awaitThat("the skin in the session", [&](const View&) { return contentOf(session).contains("light"); });
    kill();

    start();
    const QImage again = picture(QStringLiteral("skin-after-a-sudden-end"));
    const std::optional<Seen> messages = look().dock(kMessages);
    ASSERT_TRUE(messages);
    EXPECT_GT(averageGray(again, messages->place), 200);
}

TEST_F(ClientByMouse, OffersARestoreAfterASuddenEndAndCarriesItOut)
{
    writeUserFile("configFormula", kFormulas);
    writeUserFile("lua", "scripts");
    start();
    choose({ QStringLiteral("工具(&T)"), QStringLiteral("备份公式") });
    const QDir backups(configFile("backUp"));
    awaitThat("both backups", [&](const View&) { return backups.entryList(QDir::Files).size() == 2; });
    kill();
    writeUserFile("configFormula", "{\"formulas\": [{\"na"); // as a sudden end may leave it

    start();
    await("the offer", [](const View& view) { return view.widget("client::RestoreDialog"); });
    picture(QStringLiteral("restore-offered"));
    const std::optional<Seen> versions = look().widget("QTreeWidget");
    const std::optional<Seen> restore = look().button(QStringLiteral("恢复此版本"));
    ASSERT_TRUE(versions && restore);
    EXPECT_EQ(versions->rows, 1);
    click(restore->middle());
    const std::optional<Seen> yes =
        await("the question", [](const View& view) { return view.button(QStringLiteral("恢复")); });
    picture(QStringLiteral("restore-asked"));
    ASSERT_TRUE(yes);
    click(yes->middle());
    awaitThat("the restored file", [&](const View& view) {
        return contentOf(userFile("configFormula")) == kFormulas && !view.widget("client::RestoreDialog");
    });
    settled();
    picture(QStringLiteral("restored"));
}

} // namespace
