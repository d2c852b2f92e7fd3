// SPDX-License-Identifier: MIT
#include "apps/client/editor/FormulaEditor.h"

#include "apps/client/MainWindow.h"
#include "apps/client/editor/FormulaPreview.h"
#include "apps/client/editor/FormulaText.h"
#include "host/TC/CFormulaOperateManager.h"
#include "host/embedded/EmbeddedHost.h"
#include "host/utils/CSingletonT.h"
#include "tests/support/ChildRun.h"
#include "tests/support/RecoveryFolders.h"
#include "tests/support/Trace.h"

#include <QAbstractItemView>
#include <QAction>
#include <QCompleter>
#include <QHelpEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QTextBlock>
#include <QTextLayout>
#include <QTimer>
#include <QToolTip>
#include <QtTest/QTest>

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <ctime>
#include <mutex>
#include <thread>

namespace {

using client::FormulaEditor;
using client::FormulaText;

const QByteArray kFile = R"({"formulas": [
  {"name": "MINE", "displayName": "我的线", "source": "SUB;\nPARAM N(5,1,100);\nLINE:MA(CLOSE,N);\n"},
  {"name": "SHORTMA", "base": "MA", "parameters": [3, 6]}
]})";

class FormulaEditorTest : public testing::Test, protected test::RecoveryFolders
{
protected:
    FormulaEditorTest()
    {
        setLive(kFile, "scripts");
        open();
    }

    /// Another window, as after a restart.
    void open()
    {
        m_editor = std::make_unique<FormulaEditor>();
        m_editor->setConfirmation([this](const QString&) {
            ++m_questions;
            return m_answer;
        });
        settle();
    }

    /// Waits for what is said of the present text.
    void settle() const
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return m_editor->isChecked(); }, 60'000));
    }
    void edit(const char* formula)
    {
        m_editor->edit(QString::fromUtf8(formula));
        settle();
    }
    void setText(const char* formula) { text()->setPlainText(QString::fromUtf8(formula)); }
    QString listed(int row) const { return part<QListWidget>("formulas")->item(row)->text(); }

    FormulaText* text() const { return m_editor->findChild<FormulaText*>(); }
    template <typename Widget>
    Widget* part(const char* name) const
    {
        return m_editor->findChild<Widget*>(QLatin1String(name));
    }
    QPushButton* button(const char* words) const
    {
        for (QPushButton* button : m_editor->findChildren<QPushButton*>()) {
            if (button->text() == QString::fromUtf8(words))
                return button;
        }
        return nullptr;
    }
    QString name() const { return part<QLineEdit>("name")->text(); }
    QByteArray file() const { return live(QStringLiteral("configFormula")); }
    static bool isKnown(const char* formula)
    {
        return TC::embedded::resolveFormula(QString::fromUtf8(formula)).has_value();
    }
    QString underlined(int index) const { return text()->extraSelections().at(index).cursor.selectedText(); }
    /// Colour of the character at a column of a line, both from 0.
    QColor colorAt(int line, int column) const
    {
        for (const QTextLayout::FormatRange& range :
             text()->document()->findBlockByNumber(line).layout()->formats()) {
            if (column >= range.start && column < range.start + range.length)
                return range.format.foreground().color();
        }
        return {};
    }

    std::unique_ptr<FormulaEditor> m_editor;
    bool m_answer = true;
    int m_questions = 0;
};

TEST_F(FormulaEditorTest, OpensTheFirstFormulaOfTheFile)
{
    EXPECT_EQ(name(), QStringLiteral("MINE"));
    EXPECT_TRUE(text()->toPlainText().startsWith(QStringLiteral("SUB;\nPARAM")));
    EXPECT_EQ(part<QListWidget>("formulas")->count(), 2);
    EXPECT_TRUE(part<QPushButton>("save")->isEnabled());
}

TEST_F(FormulaEditorTest, TypingErrorIsUnderlinedWhereItStandsAndExplained)
{
    // Characters outside the basic plane and of several bytes stand before the fault.
    text()->setPlainText(QStringLiteral("{ 𠮷 均线 }\nLINE:CLOZE+1;\n"));
    ASSERT_TRUE(QTest::qWaitFor([this] { return !text()->extraSelections().isEmpty(); }));
    ASSERT_EQ(text()->extraSelections().size(), 1);
    const QTextEdit::ExtraSelection selection = text()->extraSelections().at(0);
    EXPECT_EQ(underlined(0), QStringLiteral("CLOZE"));
    EXPECT_EQ(selection.cursor.block().blockNumber(), 1);
    EXPECT_EQ(selection.format.underlineStyle(), QTextCharFormat::WaveUnderline);
    const auto* problems = part<QListWidget>("problems");
    ASSERT_EQ(problems->count(), 1);
    EXPECT_TRUE(problems->item(0)->text().startsWith(QStringLiteral("第 2 行第 6 列：")));
    EXPECT_FALSE(text()->problemAt(selection.cursor.selectionStart()).isEmpty());
    EXPECT_EQ(text()->problemAt(selection.cursor.selectionEnd()), QString());
}

TEST_F(FormulaEditorTest, UnderlinesGoWhenTheTextIsRight)
{
    text()->setPlainText(QStringLiteral("LINE:CLOZE;"));
    EXPECT_FALSE(m_editor->check());
    text()->setPlainText(QStringLiteral("LINE:CLOSE;"));
    EXPECT_TRUE(m_editor->check());
    EXPECT_TRUE(text()->extraSelections().isEmpty());
    EXPECT_EQ(part<QListWidget>("problems")->count(), 0);
}

TEST_F(FormulaEditorTest, TypingErrorIsExplainedUnderThePointerAndFoundFromTheList)
{
    m_editor->show();
    setText("A:=CLOSE;\nLINE:CLOZE+1;\n");
    settle();
    const auto askAt = [&](int position) {
        QTextCursor cursor = text()->textCursor();
        cursor.setPosition(position);
        text()->setTextCursor(cursor);
        const QPoint place = text()->cursorRect().center() + QPoint(2, 0);
        QHelpEvent asked(QEvent::ToolTip, place, text()->viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(text()->viewport(), &asked);
    };
    const int fault = text()->toPlainText().indexOf(QStringLiteral("CLOZE"));
    askAt(fault + 1);
    EXPECT_EQ(QToolTip::text(), text()->problemAt(fault));
    EXPECT_TRUE(QToolTip::text().contains(QStringLiteral("CLOSE"))) << "the word that was meant";
    askAt(1);
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));

    auto* problems = part<QListWidget>("problems");
    Q_EMIT problems->itemActivated(problems->item(0));
    EXPECT_EQ(text()->textCursor().position(), fault);
    text()->goToProblem(1); // there is none
    text()->goToProblem(-1);
    EXPECT_EQ(text()->textCursor().position(), fault);
}

TEST_F(FormulaEditorTest, TwoLettersOfferTheWordsThatBeginSo)
{
    m_editor->show();
    setText("");
    auto* completer = text()->findChild<QCompleter*>();
    const auto offered = [&] {
        QStringList words;
        for (int row = 0; completer->popup()->isVisible() && row < completer->completionModel()->rowCount();
             ++row)
            words << completer->completionModel()->index(row, 0).data().toString();
        return words;
    };
    QTest::keyClicks(text(), QStringLiteral("X:d"));
    EXPECT_EQ(offered(), QStringList());
    QTest::keyClicks(text(), QStringLiteral("r"));
    EXPECT_TRUE(offered().contains(QStringLiteral("DRAWBAND")));
    for (const QString& word : offered())
        EXPECT_TRUE(word.startsWith(QStringLiteral("DR"))) << word.toStdString();
    QTest::keyClick(text(), Qt::Key_Return); // is the list's
    EXPECT_EQ(text()->toPlainText(), QStringLiteral("X:dr"));
    QTest::keyClicks(text(), QStringLiteral("awband"));
    EXPECT_EQ(offered(), QStringList()) << "the word is whole";

    Q_EMIT completer->activated(QStringLiteral("DRAWBAND"));
    EXPECT_EQ(text()->toPlainText(), QStringLiteral("X:DRAWBAND"));
    QTest::keyClicks(text(), QStringLiteral("(zzq"));
    EXPECT_EQ(offered(), QStringList());
    QTest::keyClick(text(), Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(offered(), QStringList()) << "no word begins so";
    for (int letter = 0; letter < 3; ++letter)
        QTest::keyClick(text(), Qt::Key_Backspace);
    QTest::keyClick(text(), Qt::Key_Space, Qt::ControlModifier);
    EXPECT_GT(offered().size(), 100) << "every word, as none is begun";
    EXPECT_EQ(text()->toPlainText(), QStringLiteral("X:DRAWBAND("));
    QTest::keyClick(text(), Qt::Key_Right);
    EXPECT_EQ(offered(), QStringList());

    edit("SHORTMA"); // rests on a built-in formula, whose text is not its own
    QTest::keyClick(text(), Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(offered(), QStringList());
}

TEST_F(FormulaEditorTest, LinesAreNumberedBesideTheText)
{
    m_editor->show();
    setText("A:=1;");
    const int narrow = text()->viewport()->x();
    QString lines;
    for (int line = 0; line < 120; ++line)
        lines += QStringLiteral("A%1:=1;\n").arg(line);
    text()->setPlainText(lines);
    EXPECT_GT(text()->viewport()->x(), narrow) << "room for three digits";
    const int three = text()->viewport()->x();
    QFont large = text()->font();
    large.setPointSize(large.pointSize() + 12);
    text()->setFont(large);
    EXPECT_GT(text()->viewport()->x(), three);
    const QImage top = text()->grab(QRect(0, 0, narrow, 60)).toImage();
    text()->verticalScrollBar()->setValue(60);
    EXPECT_NE(text()->grab(QRect(0, 0, narrow, 60)).toImage(), top);
}

TEST_F(FormulaEditorTest, NewFormulaStandsInTheListBeforeItIsSaved)
{
    m_editor->show();
    button("新建")->click();
    settle();
    const auto* list = part<QListWidget>("formulas");
    EXPECT_EQ(list->count(), 3);
    EXPECT_EQ(list->currentRow(), 2);
    EXPECT_EQ(listed(2), name() + QStringLiteral("（未保存）"));
    EXPECT_FALSE(button("删除")->isEnabled());
    QTest::keyClicks(part<QLineEdit>("name"), QStringLiteral("X"));
    EXPECT_TRUE(m_editor->isWindowModified());
    m_answer = false;
    EXPECT_FALSE(m_editor->leave());
    EXPECT_TRUE(m_editor->isVisible());
    m_answer = true;
    QTest::keyClick(m_editor.get(), Qt::Key_Escape);
    EXPECT_FALSE(m_editor->isVisible());
    EXPECT_EQ(m_questions, 2);
}

TEST_F(FormulaEditorTest, FaultAtTheEndUnderlinesTheLastCharacter)
{
    text()->setPlainText(QStringLiteral("LINE:CLOSE+"));
    EXPECT_FALSE(m_editor->check());
    ASSERT_FALSE(text()->extraSelections().isEmpty());
    EXPECT_EQ(underlined(0), QStringLiteral("+"));
}

TEST_F(FormulaEditorTest, FaultyTextIsSavedAsADraftThatNobodyComputes)
{
    m_editor->startNew();
    part<QLineEdit>("name")->setText(QStringLiteral("IDEA"));
    setText("PARAM N(5,1,9); LINE:CLOZE;");
    EXPECT_EQ(m_editor->save().reason(), QString()); // before the pause after the key press is over
    EXPECT_EQ(part<QPushButton>("save")->text(), QStringLiteral("存为草稿"));
    EXPECT_EQ(m_questions, 0);
    EXPECT_FALSE(m_editor->isWindowModified());
    EXPECT_TRUE(file().contains("CLOZE"));
    EXPECT_FALSE(isKnown("IDEA"));
    EXPECT_EQ(TC::embedded::loadFormulas(), QStringList()) << "a draft is no damage";
    EXPECT_TRUE(isKnown("MINE"));
    open();
    EXPECT_EQ(listed(2), QStringLiteral("IDEA（草稿）"));
    edit("IDEA");
    EXPECT_EQ(text()->toPlainText(), QStringLiteral("PARAM N(5,1,9); LINE:CLOZE;"));
    EXPECT_EQ(part<QListWidget>("problems")->count(), 1);
    setText("LINE:CLOSE;");
    settle();
    EXPECT_EQ(part<QPushButton>("save")->text(), QStringLiteral("保存"));
    EXPECT_EQ(m_editor->save().reason(), QString());
    EXPECT_EQ(listed(2), QStringLiteral("IDEA"));
    EXPECT_TRUE(isKnown("IDEA"));
    EXPECT_FALSE(file().contains("draft"));
}

TEST_F(FormulaEditorTest, AsksBeforeADraftTakesThePlaceOfAFormulaThatWorks)
{
    setText("LINE:CLOZE;");
    m_answer = false;
    EXPECT_FALSE(m_editor->save().isGood());
    EXPECT_EQ(m_questions, 1);
    EXPECT_EQ(file(), kFile);
    EXPECT_TRUE(backups().isEmpty());
    m_answer = true;
    EXPECT_EQ(m_editor->save().reason(), QString());
    EXPECT_FALSE(isKnown("我的线"));
    setText("LINE:CLOZE+1;");
    EXPECT_TRUE(m_editor->save().isGood()); // one draft in the place of another
    EXPECT_EQ(m_questions, 2);
}

/// A look-up that holds the check until it is let go on.
class Held
{
public:
    engine::FormulaLookup lookup()
    {
        return [this](const std::string&) {
            std::unique_lock<std::mutex> lock(m_mutex);
            m_thread = std::this_thread::get_id();
            m_change.wait(lock, [this] { return m_goesOn; });
            return engine::FoundFormula();
        };
    }
    void goOn()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_goesOn = true;
        m_change.notify_all();
    }
    std::thread::id thread()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_thread;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_change;
    std::thread::id m_thread;
    bool m_goesOn = false;
};

TEST_F(FormulaEditorTest, WindowGoesOnWhileALongTextIsChecked)
{
    Held held;
    m_editor->setFormulas([&](const QString&) { return held.lookup(); });
    m_editor->show();
    QString names;
    for (int name = 0; name < 19'500; ++name)
        names += QStringLiteral("N%1:=C;\n").arg(name);
    text()->setPlainText(names + QStringLiteral("X:OTHER.A;"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return held.thread() != std::thread::id(); }, 60'000));
    EXPECT_NE(held.thread(), std::this_thread::get_id());
    int turns = 0;
    QTimer clock;
    QObject::connect(&clock, &QTimer::timeout, [&] { ++turns; });
    clock.start(1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return turns > 20; }, 60'000)); // the check stands still meanwhile
    EXPECT_FALSE(m_editor->isChecked());
    text()->setPlainText(QStringLiteral("LINE:CLOZE;")); // what comes of the long text is stale from here on
    held.goOn();
    settle();
    ASSERT_EQ(part<QListWidget>("problems")->count(), 1);
    EXPECT_TRUE(part<QListWidget>("problems")->item(0)->text().startsWith(QStringLiteral("第 1 行第 6 列")));
}

TEST_F(FormulaEditorTest, ClosesWhileATextIsChecked)
{
    Held held;
    m_editor->setFormulas([&](const QString&) { return held.lookup(); });
    setText("X:OTHER.A;");
    ASSERT_TRUE(QTest::qWaitFor([&] { return held.thread() != std::thread::id(); }, 60'000));
    std::thread later([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        held.goOn();
    });
    m_editor.reset();
    later.join();
    QTest::qWait(5); // an answer that came too late is shown nowhere
}

TEST_F(FormulaEditorTest, TextThatCallsItselfIsFaulty)
{
    setText("LINE:MINE.LINE+1;");
    EXPECT_FALSE(m_editor->check());
    setText("LINE:SHORTMA.MA5+1;");
    EXPECT_TRUE(m_editor->check());
}

TEST_F(FormulaEditorTest, SaveMakesTheFormulaKnownAfterABackup)
{
    ASSERT_FALSE(isKnown("FRESH"));
    QByteArray backedUpBefore;
    TC::embedded::setReloadReceiver([&](auto&&...) {
        const QStringList made = backups().filter(QStringLiteral("configFormula_"));
        backedUpBefore = made.isEmpty() ? QByteArray() : backup(made.last());
    });
    m_editor->startNew();
    part<QLineEdit>("name")->setText(QStringLiteral("FRESH"));
    text()->setPlainText(QStringLiteral("LINE:CLOSE;"));
    EXPECT_EQ(m_editor->save().reason(), QString());
    EXPECT_TRUE(isKnown("FRESH"));
    EXPECT_EQ(backedUpBefore, kFile);
    EXPECT_EQ(part<QListWidget>("formulas")->count(), 3);
}

TEST_F(FormulaEditorTest, ParameterIsMovedIntoItsRangeAndSaved)
{
    part<QTableWidget>("parameters")->item(0, 4)->setText(QStringLiteral("1000"));
    EXPECT_EQ(part<QTableWidget>("parameters")->item(0, 4)->text(), QStringLiteral("100"));
    EXPECT_EQ(m_editor->save().reason(), QString());
    const auto recipe = TC::embedded::resolveFormula(QStringLiteral("我的线"));
    ASSERT_TRUE(recipe);
    EXPECT_EQ(recipe->parameters, QVector<double> { 100 });
}

TEST_F(FormulaEditorTest, FormulaOnABaseKeepsItsTextAndTakesParameters)
{
    edit("SHORTMA");
    EXPECT_TRUE(text()->isReadOnly());
    part<QTableWidget>("parameters")->item(1, 4)->setText(QStringLiteral("8"));
    EXPECT_EQ(m_editor->save().reason(), QString());
    const auto recipe = TC::embedded::resolveFormula(QStringLiteral("SHORTMA"));
    ASSERT_TRUE(recipe);
    EXPECT_EQ(recipe->base, QStringLiteral("MA"));
    EXPECT_EQ(recipe->parameters.mid(0, 2), (QVector<double> { 3, 8 }));
}

TEST_F(FormulaEditorTest, BuiltInFormulaIsEditedAsACopy)
{
    edit("KDJ");
    EXPECT_EQ(name(), QStringLiteral("KDJ2"));
    EXPECT_EQ(m_editor->save().reason(), QString());
    EXPECT_TRUE(isKnown("KDJ2"));
    EXPECT_TRUE(TC::embedded::resolveFormula(QStringLiteral("KDJ2"))->base.isEmpty());
}

TEST_F(FormulaEditorTest, CopyIsOpenedAndKnown)
{
    m_editor->duplicateOpen();
    settle();
    EXPECT_EQ(name(), QStringLiteral("MINE2"));
    EXPECT_TRUE(isKnown("MINE2"));
    EXPECT_FALSE(backups().isEmpty());
}

TEST_F(FormulaEditorTest, RemovalAsksAndBacksUp)
{
    m_answer = false;
    m_editor->removeOpen();
    EXPECT_EQ(m_questions, 1);
    EXPECT_EQ(file(), kFile);
    m_answer = true;
    m_editor->removeOpen();
    EXPECT_FALSE(isKnown("MINE"));
    EXPECT_TRUE(isKnown("SHORTMA"));
    EXPECT_EQ(backup(backups().filter(QStringLiteral("configFormula_")).value(0)), kFile);
}

TEST_F(FormulaEditorTest, UnsavedTextIsKeptWhenTheUserSaysSo)
{
    text()->setPlainText(QStringLiteral("LINE:OPEN;"));
    m_answer = false;
    part<QListWidget>("formulas")->setCurrentRow(1);
    QTest::qWait(1);
    EXPECT_EQ(m_questions, 1);
    EXPECT_EQ(text()->toPlainText(), QStringLiteral("LINE:OPEN;"));
    EXPECT_EQ(part<QListWidget>("formulas")->currentRow(), 0);
    m_answer = true;
    part<QListWidget>("formulas")->setCurrentRow(1);
    QTest::qWait(1);
    EXPECT_EQ(name(), QStringLiteral("SHORTMA"));
}

TEST_F(FormulaEditorTest, OpeningAFormulaIsNoChange)
{
    m_editor->show();
    QTest::qWait(300); // colours and the pause after a change
    edit("SHORTMA");
    EXPECT_EQ(m_questions, 0);
    EXPECT_FALSE(m_editor->isWindowModified());
}

TEST_F(FormulaEditorTest, WordsNumbersAndCommentsHaveColoursOfTheirOwn)
{
    text()->setPlainText(QStringLiteral("{ one\nCLOSE } A:MA(CLOSE,12);"));
    const QColor comment = colorAt(0, 2), function = colorAt(1, 10), series = colorAt(1, 13),
                 number = colorAt(1, 19);
    EXPECT_TRUE(comment.isValid());
    EXPECT_EQ(colorAt(1, 0), comment); // the comment goes on here
    EXPECT_FALSE(colorAt(1, 8).isValid());
    EXPECT_TRUE(function.isValid() && series.isValid() && number.isValid());
    EXPECT_NE(function, series);
    EXPECT_NE(series, number);
    EXPECT_NE(function, comment);
}

TEST_F(FormulaEditorTest, PictureShowsTheFormulaOverTheBars)
{
    auto* preview = m_editor->findChild<client::FormulaPreview*>();
    EXPECT_FALSE(preview->hasPicture());
    auto opened = chart::openBarsFile(QStringLiteral(SAMPLES_DIR "/bars/SH600030.csv"));
    ASSERT_TRUE(opened.isGood());
    m_editor->setBars(opened->instrument, opened->bars);
    EXPECT_TRUE(QTest::qWaitFor([&] { return preview->hasPicture(); }));
    m_editor->show();
    const QImage before = preview->grab().toImage();
    text()->setPlainText(QStringLiteral("LINE:VOL;"));
    EXPECT_TRUE(m_editor->check());
    EXPECT_TRUE(QTest::qWaitFor([&] { return preview->grab().toImage() != before; }));
}

TEST_F(FormulaEditorTest, AsksOnceWhetherADraftIsGivenUpHoweverTheFocusWanders)
{
    m_editor->show();
    m_editor->activateWindow();
    edit("MA");
    m_answer = false;
    auto* formulas = part<QListWidget>("formulas");
    for (int round = 0; round < 3; ++round) {
        formulas->setFocus();
        QTest::qWait(5);
        text()->setFocus();
        QTest::qWait(5);
    }
    EXPECT_EQ(m_questions, 0); // nobody chose another formula
    formulas->setCurrentRow(0);
    QTest::qWait(20);
    EXPECT_EQ(m_questions, 1);
    EXPECT_EQ(name(), QStringLiteral("MA2"));
    formulas->setFocus();
    QTest::qWait(20);
    EXPECT_EQ(m_questions, 1);
}

TEST_F(FormulaEditorTest, AsksBeforeItReplacesWhatAnotherClientChanged)
{
    setLive(QByteArray(kFile).replace("MA(CLOSE,N)", "MA(OPEN,N)"), "scripts");
    text()->setPlainText(QStringLiteral("LINE:HIGH;"));
    m_answer = false;
    EXPECT_FALSE(m_editor->save().isGood());
    EXPECT_EQ(m_questions, 1);
    EXPECT_TRUE(file().contains("MA(OPEN,N)"));
    m_answer = true;
    EXPECT_TRUE(m_editor->save().isGood());
    EXPECT_TRUE(file().contains("LINE:HIGH"));
    EXPECT_TRUE(m_editor->save().isGood()); // its own change is none of another client
    EXPECT_EQ(m_questions, 2);
}

TEST_F(FormulaEditorTest, DoesNotSaveWhenTheBackupFails)
{
    write(configDir() + QStringLiteral("/formulaBackups"), "no folder");
    text()->setPlainText(QStringLiteral("LINE:HIGH;"));
    EXPECT_TRUE(m_editor->save().reason().startsWith(QStringLiteral("现用公式备份失败，未作改动")));
    EXPECT_EQ(file(), kFile);
    EXPECT_TRUE(m_editor->isWindowModified());
}

TEST_F(FormulaEditorTest, LineOfAMegabyteIsTakenInSeconds)
{
    m_editor->show();
    const std::clock_t begin = std::clock(); // of the processor: other programs do not count
    text()->setPlainText(QStringLiteral("LINE:") + QStringLiteral("MA(CLOSE,5)+").repeated(87'000)
                         + QStringLiteral("1;"));
    QTest::qWait(400); // the pause, and the look at the text
    QTest::keyClick(text(), Qt::Key_A);
    QTest::qWait(1);
    EXPECT_LT((std::clock() - begin) / CLOCKS_PER_SEC, test::measuresMemory() ? 5 : 60);
}

TEST_F(FormulaEditorTest, OpensFromTheToolsMenu)
{
    client::MainWindow window;
    EXPECT_EQ(window.findChild<FormulaEditor*>(), nullptr);
    for (QAction* action : window.findChildren<QAction*>()) {
        if (action->text() == QStringLiteral("公式编辑器…"))
            action->trigger();
    }
    auto* editor = window.findChild<FormulaEditor*>();
    ASSERT_NE(editor, nullptr);
    EXPECT_TRUE(editor->isVisible());
}

} // namespace
