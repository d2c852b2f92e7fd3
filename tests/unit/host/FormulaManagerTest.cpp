// SPDX-License-Identifier: MIT
#include "host/TC/CFormulaOperateManager.h"
#include "host/TC/CFormulaHistoryDataManager.h"
#include "host/embedded/EmbeddedHost.h"
#include "host/se/LoadConfig.h"
#include "host/utils/CSingletonT.h"
#include "tests/support/System.h"

#include "engine/Formulas.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

namespace {

using TC::CFormulaDetail;
using TC::embedded::loadFormulas;
using TC::embedded::resolveFormula;

TC::CFormulaOperateManager& manager()
{
    return *utils::CSingletonT<TC::CFormulaOperateManager>::instance();
}

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

/// A user root folder whose file "configFormula" the test writes.
class UserFormulas : public testing::Test
{
protected:
    UserFormulas() { TC::embedded::setUserRootDir(m_folder.path()); }

    /// Writes the file and reads it. @return the problems without the folder's name.
    QStringList load(const QByteArray& json)
    {
        QFile file(QDir(m_folder.path()).filePath(QStringLiteral("configFormula")));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(json);
        file.close();
        return shortened(loadFormulas());
    }

    QStringList shortened(QStringList problems) const
    {
        for (QString& line : problems)
            line.remove(m_folder.path() + QLatin1Char('/'));
        return problems;
    }

    QTemporaryDir m_folder;
};

QByteArray fileWith(const QByteArray& entries)
{
    return "{\"formulas\": [\n" + entries + "\n]}\n";
}

TEST(FormulaManager, KnowsTheBuiltInFormulasAfterAReset)
{
    for (const auto& known : engine::builtInFormulas()) {
        const QString name = QString::fromStdString(known.name);
        const auto formula = manager().getFormula(name);
        ASSERT_TRUE(formula) << known.name;
        EXPECT_EQ(formula->realName, name);
        EXPECT_EQ(formula->kind, known.formula->kind());
        EXPECT_EQ(formula->numberParams.size(), static_cast<int>(known.formula->parameters().size()));
        EXPECT_EQ(manager().getFormulaByRealName(name), formula);
    }
    EXPECT_FALSE(manager().getFormula(text("NOSUCH")));
    EXPECT_FALSE(manager().getFormula(QString()));
}

TEST_F(UserFormulas, AreTextsOfTheirOwn)
{
    EXPECT_EQ(load(fileWith(R"({"name": "SPREAD", "displayName": "价差",
                                "source": "PARAM N(3,1,50);\nHL:MA(H-L,N);", "parameters": [7]})")),
              QStringList());
    const auto formula = manager().getFormula(text("价差"));
    ASSERT_TRUE(formula);
    EXPECT_EQ(formula->kind, 0);
    EXPECT_EQ(formula->numberParams, (QVector<double> { 7 }));
    const auto recipe = resolveFormula(text("价差"));
    ASSERT_TRUE(recipe && recipe->formula);
    EXPECT_EQ(recipe->formula->outputNames(), (std::vector<std::string> { "HL" }));
}

TEST_F(UserFormulas, WithAFaultyTextAreLeftOutWithAllTheirFaults)
{
    const QStringList problems = load(fileWith(R"({"name": "A", "source": "X:MAA(C,5);\nY:CLOSEE;"})"));
    ASSERT_EQ(problems.size(), 2);
    EXPECT_THAT(problems[0].toStdString(), testing::HasSubstr("1:3: unknown function, did you mean MA"));
    EXPECT_THAT(problems[1].toStdString(), testing::HasSubstr("2:3: unknown name, did you mean CLOSE"));
    EXPECT_FALSE(manager().getFormula(text("A")));
}

TEST_F(UserFormulas, CallOneAnotherWhereverTheyStandInTheFile)
{
    EXPECT_EQ(load(fileWith(R"({"name": "A", "source": "X:B.Y(4)+KDJ.K;"},
                               {"name": "B", "source": "PARAM N(3,1,50); Y:MA(C,N);"})")),
              QStringList());
    EXPECT_TRUE(manager().getFormula(text("A")));
}

TEST_F(UserFormulas, ThatCallOneAnotherInACircleAreRefused)
{
    const QStringList problems = load(fileWith(R"({"name": "A", "source": "X:B.Y;"},
                               {"name": "B", "source": "Y:A.X;"},
                               {"name": "OWN", "source": "Z:OWN.Z;"})"));
    ASSERT_EQ(problems.size(), 3);
    for (const QString& problem : problems)
        EXPECT_THAT(problem.toStdString(), testing::HasSubstr("the formulas call one another in a circle"));
    EXPECT_FALSE(manager().getFormula(text("A")));
}

TEST_F(UserFormulas, WithANameThatDiffersInItsCaseAloneAreRefused)
{
    EXPECT_EQ(load(fileWith(R"({"name": "kline", "source": "X:C;"})")).size(), 1);
    EXPECT_EQ(
        load(fileWith(R"({"name": "Abc", "source": "X:C;"}, {"name": "aBC", "source": "X:C;"})")).size(), 1);
}

TEST_F(UserFormulas, RestOnATextOrOnABuiltInFormulaButNotOnBoth)
{
    EXPECT_EQ(load(fileWith(R"({"name": "A", "base": "MA", "source": "X:C;"})")).size(), 1);
    EXPECT_FALSE(manager().getFormula(text("A")));
}

TEST(FormulaManager, ClearForgetsTheBuiltInFormulasUntilTheNextReset)
{
    TC::embedded::clearFormulas();
    EXPECT_FALSE(manager().getFormula(text("MA")));
    TC::embedded::reset();
    EXPECT_TRUE(manager().getFormula(text("MA")));
}

TEST(FormulaManager, AFormulaThatIsSetReplacesTheOneOfItsDisplayName)
{
    CFormulaDetail formula;
    formula.displayName = text("MA");
    formula.realName = text("BOLL");
    formula.groupModel = formula.script = true;
    TC::embedded::setFormula(formula);
    EXPECT_EQ(manager().getFormula(text("MA"))->realName, text("BOLL"));
    EXPECT_TRUE(manager().isGroupModelExist(text("MA")));
    EXPECT_TRUE(manager().isPythonIndex(text("MA")));
    EXPECT_FALSE(manager().isPythonIndex(text("KDJ")));
}

TEST(FormulaManager, ResolvesABuiltInFormulaToItself)
{
    const auto recipe = resolveFormula(text("MACD"));
    ASSERT_TRUE(recipe);
    EXPECT_EQ(recipe->base, text("MACD"));
    EXPECT_EQ(recipe->parameters, (QVector<double> { 12, 26, 9 }));
    EXPECT_TRUE(recipe->colors.isEmpty());
}

TEST(FormulaManager, ResolvesASetFormulaOnlyWhenItRestsOnABuiltInOne)
{
    CFormulaDetail formula;
    formula.displayName = text("mine");
    formula.realName = text("KDJ");
    formula.numberParams = { 5, 2, 2 };
    TC::embedded::setFormula(formula);
    ASSERT_TRUE(resolveFormula(text("mine")));
    EXPECT_EQ(resolveFormula(text("mine"))->base, text("KDJ"));
    EXPECT_EQ(resolveFormula(text("mine"))->parameters, (QVector<double> { 5, 2, 2 }));

    formula.realName = text("elsewhere");
    TC::embedded::setFormula(formula);
    EXPECT_FALSE(resolveFormula(text("mine")));
    EXPECT_FALSE(resolveFormula(text("nobody")));
}

TEST_F(UserFormulas, AreReadOnFirstUse)
{
    load(fileWith(R"({"name": "SHORT", "base": "MA"})"));
    TC::embedded::reset();
    TC::embedded::setUserRootDir(m_folder.path());
    EXPECT_TRUE(manager().getFormula(text("SHORT")));
}

TEST_F(UserFormulas, RestOnABuiltInFormula)
{
    EXPECT_EQ(load(fileWith(R"({"name": "SHORT", "displayName": "短均线", "kind": 0, "base": "MA",
                                "parameters": [3, 6], "colors": ["#ff8c00", null, "#00aaff"]})")),
              QStringList());
    const auto formula = manager().getFormula(text("短均线"));
    ASSERT_TRUE(formula);
    EXPECT_EQ(formula->realName, text("SHORT"));
    EXPECT_EQ(formula->kind, 0);
    EXPECT_EQ(formula->numberParams, (QVector<double> { 3, 6, 20, 60 })) << "the defaults at the end";
    EXPECT_EQ(manager().getFormulaByRealName(text("SHORT")), formula);

    for (const char* name : { "短均线", "SHORT" }) {
        const auto recipe = resolveFormula(text(name));
        ASSERT_TRUE(recipe) << name;
        EXPECT_EQ(recipe->base, text("MA"));
        EXPECT_EQ(recipe->parameters, formula->numberParams);
        EXPECT_EQ(recipe->colors, (QVector<QColor> { QColor(255, 140, 0), QColor(), QColor(0, 170, 255) }));
    }
}

TEST_F(UserFormulas, TakeNameAndKindFromElsewhereWhenLeftOut)
{
    EXPECT_EQ(load(fileWith(R"({"name": "BAND", "base": "BOLL"})")), QStringList());
    EXPECT_EQ(manager().getFormula(text("BAND"))->kind, 1);
    EXPECT_EQ(manager().getFormula(text("BAND"))->numberParams, (QVector<double> { 20, 2 }));
}

TEST_F(UserFormulas, AMissingFileHoldsNone)
{
    load(fileWith(R"({"name": "SHORT", "base": "MA"})"));
    QFile::remove(m_folder.filePath(QStringLiteral("configFormula")));
    EXPECT_EQ(loadFormulas(), QStringList());
    EXPECT_FALSE(manager().getFormula(text("SHORT")));
    EXPECT_TRUE(manager().getFormula(text("MA")));
}

TEST_F(UserFormulas, ABrokenFileGivesOneLineAndLeavesThoseInUse)
{
    load(fileWith(R"({"name": "SHORT", "base": "MA"})"));
    const QStringList problems = load("{\"formulas\": [\n  {\"name\" \"X\"}]}");
    ASSERT_EQ(problems.size(), 1);
    EXPECT_EQ(problems[0], text("configFormula:2:11: missing name separator"));
    EXPECT_TRUE(manager().getFormula(text("SHORT")));
}

TEST_F(UserFormulas, AFileWithoutTheListGivesOneLineAndLeavesThoseInUse)
{
    load(fileWith(R"({"name": "SHORT", "base": "MA"})"));
    EXPECT_EQ(load("\n{\"formula\": []}"),
              QStringList(text("configFormula:2:1: the list \"formulas\" is missing")));
    EXPECT_EQ(load("[]"), QStringList(text("configFormula:1:1: the list \"formulas\" is missing")));
    EXPECT_EQ(load("{\n \"formulas\": 3}"),
              QStringList(text("configFormula:2:14: the list \"formulas\" is missing")));
    EXPECT_TRUE(manager().getFormula(text("SHORT")));
}

TEST_F(UserFormulas, AnEmptyFileIsBroken)
{
    EXPECT_EQ(load(QByteArray()), QStringList(text("configFormula:1:1: illegal value")));
}

TEST_F(UserFormulas, ABadEntryIsLeftOutAndTheOthersAreUsed)
{
    const QStringList problems = load(fileWith("{\"name\": \"A\", \"base\": \"MA\"},\n"
                                               "{\"name\": \"B\", \"base\": \"NOSUCH\"},\n"
                                               "{\"name\": \"C\", \"base\": \"RSI\"}"));
    // Line 3: {"name": "B", "base": "NOSUCH"}, with the base's text at column 23.
    EXPECT_EQ(problems, QStringList(text("configFormula:3:23: \"base\" must name a built-in formula")));
    EXPECT_TRUE(manager().getFormula(text("A")));
    EXPECT_FALSE(manager().getFormula(text("B")));
    EXPECT_TRUE(manager().getFormula(text("C")));
}

TEST_F(UserFormulas, ColumnsCountCharactersAndTexts)
{
    EXPECT_EQ(load(fileWith(R"({"displayName": "短\"均}线", "name": "A", "base": "?"})")),
              QStringList(text(R"(configFormula:2:48: "base" must name a built-in formula)")));
}

TEST_F(UserFormulas, EachMistakeHasALineOfItsOwn)
{
    const std::tuple<const char*, const char*> cases[] = {
        { R"(3)", "2:1: a formula is an object" },
        { R"({"base": "MA"})", "2:1: \"name\" must be a text that is not empty" },
        { R"({"name": " ", "base": "MA"})", "2:10: \"name\" must be a text that is not empty" },
        { R"({"name": "A"})", "2:1: \"base\" must name a built-in formula" },
        { R"({"name": "MA", "base": "MA"})", "2:10: the name \"MA\" is taken" },
        { R"({"name": "A", "base": "MA", "displayName": "KDJ"})", "2:44: the name \"KDJ\" is taken" },
        { R"({"name": "A", "base": "MA", "kind": 1.5})",
          "2:37: \"kind\" must be a whole number from 0 to 99" },
        { R"({"name": "A", "base": "MA", "kind": "2"})",
          "2:37: \"kind\" must be a whole number from 0 to 99" },
        { R"({"name": "A", "base": "MA", "parameters": 5})",
          "2:43: \"parameters\" must be a list of at most 4 numbers" },
        { R"({"name": "A", "base": "MA", "parameters": [1,2,3,4,5]})",
          "2:43: \"parameters\" must be a list of at most 4 numbers" },
        { R"({"name": "A", "base": "MA", "parameters": [1, 0]})",
          "2:47: the parameter N2 must be a number from 1 to 100000" },
        { R"({"name": "A", "base": "MA", "parameters": ["5"]})",
          "2:44: the parameter N1 must be a number from 1 to 100000" },
        { R"({"name": "A", "base": "MA", "colors": "red"})", "2:39: \"colors\" must be a list" },
        { R"({"name": "A", "base": "MA", "colors": ["#12345"]})",
          "2:40: a colour is a text such as \"#c03030\", or null" },
        { R"({"name": "A", "base": "MA", "colours": []})", "2:40: \"colours\" is not a key of a formula" },
        { R"({"name": "A", "base": "MA", "source": 1})", "2:39: \"source\" must be a text" },
    };
    for (const auto& [entry, problem] : cases) {
        EXPECT_EQ(load(fileWith(entry)), QStringList(text("configFormula:") + text(problem))) << entry;
        EXPECT_FALSE(manager().getFormula(text("A"))) << entry;
    }
}

TEST_F(UserFormulas, ThousandsOfMistakesHaveTheirPlacesEach)
{
    constexpr int mistakes = 3000;
    QByteArray entries;
    for (int mistake = 0; mistake < mistakes; ++mistake)
        entries += (mistake == 0 ? "" : ",\n") + QByteArray(R"({"name": "N)") + QByteArray::number(mistake)
            + R"(", "base": "NOSUCH"})";
    const QStringList problems = load(fileWith(entries));
    ASSERT_EQ(problems.size(), mistakes);
    // {"name": "N7", "base": "NOSUCH"}: the base's text at column 24, one further on for each digit more.
    EXPECT_EQ(problems[7], text("configFormula:9:24: \"base\" must name a built-in formula"));
    EXPECT_EQ(problems[2999], text("configFormula:3001:27: \"base\" must name a built-in formula"));
}

TEST_F(UserFormulas, AFileOfNoOrdinaryKindGivesOneLineAndLeavesThoseInUse)
{
    ON_UNIX_ALONE("a link of Qt's is a file of its own kind");
    load(fileWith(R"({"name": "SHORT", "base": "MA"})"));
    const QString path = QDir(m_folder.path()).filePath(text("configFormula"));
    ASSERT_TRUE(QFile::remove(path) && QFile::link(text("/dev/zero"), path));
    EXPECT_EQ(shortened(loadFormulas()), QStringList(text("configFormula:1:1: is no ordinary file")));
    EXPECT_TRUE(manager().getFormula(text("SHORT")));
}

TEST_F(UserFormulas, TwoOfOneNameAreOneTooMany)
{
    EXPECT_EQ(load(fileWith("{\"name\": \"A\", \"base\": \"MA\"},\n{\"name\": \"A\", \"base\": \"KDJ\"}")),
              QStringList(text("configFormula:3:10: the name \"A\" is taken")));
    EXPECT_EQ(resolveFormula(text("A"))->base, text("MA"));
}

TEST_F(UserFormulas, ReadingAgainReplacesOnlyTheUsersOwn)
{
    CFormulaDetail kept;
    kept.displayName = text("kept");
    TC::embedded::setFormula(kept);
    load(fileWith(R"({"name": "A", "base": "MA"})"));
    load(fileWith(R"({"name": "B", "base": "MA"})"));
    EXPECT_FALSE(manager().getFormula(text("A")));
    EXPECT_TRUE(manager().getFormula(text("B")));
    EXPECT_TRUE(manager().getFormula(text("kept")));
}

TEST_F(UserFormulas, DraftsAreKeptOutWithoutAComplaint)
{
    EXPECT_EQ(load(fileWith(R"({"name": "IDEA", "source": "A:CLOZE", "draft": true, "parameters": [5]},
                               {"name": "GOOD", "source": "A:C;", "draft": false})")),
              QStringList());
    EXPECT_FALSE(resolveFormula(text("IDEA")));
    EXPECT_TRUE(resolveFormula(text("GOOD")));
    EXPECT_EQ(load(fileWith(R"({"name": "IDEA", "source": "A:C;", "draft": true},
                               {"name": "USES", "source": "A:IDEA.A;"},
                               {"name": "idea", "base": "MA"},
                               {"name": "ODD", "base": "MA", "draft": 1})")),
              (QStringList { text("configFormula:3:59: 1:3: the formula IDEA that is called is a draft"),
                             text("configFormula:4:41: the name \"idea\" is taken"),
                             text("configFormula:5:71: \"draft\" must be true or false") }));
}

TEST_F(UserFormulas, LoadConfigReadsThemAgainAndTellsTheReceiver)
{
    std::vector<std::string> heard;
    TC::embedded::setReloadReceiver(
        [&](const std::string& folder, const std::string& file, const std::string& section) {
            EXPECT_TRUE(manager().getFormula(text("A"))) << "the formulas are read before the call";
            heard = { folder, file, section };
        });
    load(fileWith(R"({"name": "A", "base": "MA"})"));
    TC::embedded::clearFormulas();
    EXPECT_EQ(se::loadConfig("root", "configFormula", ""), 0);
    EXPECT_EQ(heard, (std::vector<std::string> { "root", "configFormula", "" }));
}

TEST_F(UserFormulas, LoadConfigSaysWhenSomethingIsWrong)
{
    load("{");
    EXPECT_NE(se::loadConfig("root", "configFormula", ""), 0);
    load(fileWith(R"({"name": "A", "base": "MA"})"));
    EXPECT_NE(se::loadConfig("root", "other", ""), 0);
}

TEST_F(UserFormulas, ColorsGoToTheOutputsInOrder)
{
    load(fileWith(
        R"({"name": "A", "base": "MA", "colors": ["#010203", null, "#0a0b0c", "red", "red", "red"]})"));
    auto records = engine::computeFormula("MA", {});
    TC::embedded::applyColors(*resolveFormula(text("A")), records->meta);
    EXPECT_EQ(records->meta.color, (std::vector<int> { 0x030201, 0, 0x0c0b0a, 0x0000ff }));
    EXPECT_EQ(records->meta.colorSet, (std::vector<int> { 1, 0, 1, 1 }));
}

TEST(HistoryDataManager, HandsBacktestFiguresToTheReceiver)
{
    QVector<QString> ids;
    QMap<QString, double> figures;
    TC::embedded::setBacktestReceiver([&](const QVector<QString>& i, const QMap<QString, double>& f) {
        ids = i;
        figures = f;
    });
    auto* history = utils::CSingletonT<TC::CFormulaHistoryDataManager>::instance();
    history->updateStrategyBacktestData({ text("s1") }, { { text("胜率"), 0.5 } });
    EXPECT_EQ(ids, QVector<QString> { text("s1") });
    EXPECT_EQ(figures.value(text("胜率")), 0.5);

    TC::embedded::reset();
    history->updateStrategyBacktestData({ text("s2") }, {});
    EXPECT_EQ(ids, QVector<QString> { text("s1") }) << "a reset forgets the receiver";
}

} // namespace
