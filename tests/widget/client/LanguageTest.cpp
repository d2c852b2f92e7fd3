// SPDX-License-Identifier: MIT
/// @file The window in Chinese and English, switched while it is open.

#include "apps/client/EmptyPage.h"
#include "apps/client/basket/WeightTable.h"
#include "apps/client/language/Language.h"
#include "tests/widget/client/ClientWindow.h"
#include "title/CIndexTitleWidget.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLibraryInfo>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QTableView>

using test::ClientWindow;

namespace {

/// What Qt's own docks call their buttons, in the language in which they were made.
bool isOfDocks(const QWidget* widget)
{
    return qobject_cast<const QAbstractButton*>(widget)
        && (widget->parentWidget()->inherits("QDockWidget") || widget->parentWidget()->inherits("QTabBar"));
}

/// Whether a text comes from the library or is the same in both languages.
bool isOfLibrary(const QWidget* widget)
{
    if (isOfDocks(widget))
        return true;
    for (; widget; widget = widget->parentWidget()) {
        if (qobject_cast<const client::WeightTable*>(widget)
            || qobject_cast<const TC::CIndexTitleWidget*>(widget))
            return true;
    }
    return false;
}

QStringList wordsOf(const QWidget* widget)
{
    QStringList words { widget->toolTip(), widget->accessibleName() };
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
        words << button->text();
    if (const auto* label = qobject_cast<const QLabel*>(widget))
        words << label->text();
    if (const auto* line = qobject_cast<const QLineEdit*>(widget))
        words << line->placeholderText();
    if (const auto* text = qobject_cast<const QPlainTextEdit*>(widget))
        words << text->placeholderText();
    if (const auto* box = qobject_cast<const QComboBox*>(widget)) {
        for (int item = 0; item < box->count(); ++item)
            words << box->itemText(item);
    }
    if (const auto* header = qobject_cast<const QHeaderView*>(widget)) {
        for (int section = 0; header->model() && section < header->count(); ++section)
            words << header->model()->headerData(section, header->orientation()).toString();
    }
    return words;
}

/// Every text of the window that is the client's own, in the order of its widgets and actions.
QStringList wordsIn(const QWidget& window)
{
    QStringList words;
    for (const QAction* action : window.findChildren<QAction*>()) {
        const auto* owner = qobject_cast<const QWidget*>(action->parent());
        if (!owner || !isOfLibrary(owner))
            words << action->text() << action->toolTip();
    }
    for (const QMenu* menu : window.findChildren<QMenu*>()) {
        if (!isOfLibrary(menu))
            words << menu->title();
    }
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (!isOfLibrary(widget))
            words << wordsOf(widget);
    }
    return words;
}

QStringList chineseIn(const QStringList& words)
{
    static const QRegularExpression han(QStringLiteral("\\p{Han}"));
    return words.filter(han);
}

} // namespace

TEST_F(ClientWindow, SpeaksChineseAtFirstWhateverTheSystemSpeaks)
{
    EXPECT_EQ(client::chosenLanguage(), QStringLiteral("zh"));
    EXPECT_NE(entry(QStringLiteral("打开K线…")), nullptr);
    EXPECT_EQ(entry(QStringLiteral("Open bars…")), nullptr);
}

TEST_F(ClientWindow, SpeaksEnglishThroughoutOnceThatIsChosenAndChineseAgain)
{
    const QStringList before = wordsIn(*m_window);
    ASSERT_GT(chineseIn(before).size(), 100);
    entry(QStringLiteral("English"))->trigger();
    EXPECT_NE(entry(QStringLiteral("Open bars…")), nullptr);
    QStringList left = chineseIn(wordsIn(*m_window));
    left.removeAll(QStringLiteral("中文"));
    left.removeAll(QStringLiteral("Language / 语言"));
    left.removeDuplicates();
    EXPECT_EQ(left.join(QLatin1Char('\n')).toStdString(), "");
    entry(QStringLiteral("中文"))->trigger();
    EXPECT_EQ(wordsIn(*m_window), before);
}

TEST_F(ClientWindow, NamesPanelsAndMessagesInTheChosenLanguage)
{
    entry(QStringLiteral("English"))->trigger();
    EXPECT_EQ(m_window->docks()->dock(QStringLiteral("messagePanel"))->windowTitle(),
              QStringLiteral("Messages"));
    openShare();
    auto* messages = m_window->findChild<QPlainTextEdit*>();
    ASSERT_NE(messages, nullptr);
    EXPECT_TRUE(messages->toPlainText().contains(QStringLiteral(" bars)")))
        << messages->toPlainText().toStdString();
}

TEST_F(ClientWindow, KeepsTheLanguageForTheNextRun)
{
    entry(QStringLiteral("English"))->trigger();
    m_window->close();
    const client::MainWindow next;
    EXPECT_EQ(client::chosenLanguage(), QStringLiteral("en"));
    const client::MainWindow asked(QStringLiteral("zh"));
    EXPECT_EQ(client::chosenLanguage(), QStringLiteral("zh"));
}

TEST(Language, ThatIsUnknownMeansTheFirstOne)
{
    client::chooseLanguage(QStringLiteral("tlh"));
    EXPECT_EQ(client::chosenLanguage(), QStringLiteral("zh"));
}

TEST(Language, ReachesQtsOwnTextsWhereItsCatalogueIsInstalled)
{
    const QString folder = QLibraryInfo::location(QLibraryInfo::TranslationsPath);
    if (!QFile::exists(folder + QStringLiteral("/qtbase_zh_CN.qm")))
        GTEST_SKIP() << "Qt's catalogues are not installed";
    const auto cancel = [] { return QCoreApplication::translate("QPlatformTheme", "Cancel"); };
    client::chooseLanguage(QStringLiteral("zh"));
    EXPECT_EQ(cancel(), QStringLiteral("取消"));
    client::chooseLanguage(QStringLiteral("en"));
    EXPECT_EQ(cancel(), QStringLiteral("Cancel"));
    client::chooseLanguage(QString());
}
