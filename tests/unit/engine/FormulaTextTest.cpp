// SPDX-License-Identifier: MIT
/// @file What texts say: statements, operators, faults.

#include "engine/evaluation/FormulaEvaluation.h"
#include "tests/support/EngineBars.h"

#include <gmock/gmock.h>

namespace {

using test::valuesOf;
using Series = std::vector<double>;

/// "LINE:COLUMN+LENGTH found: expected" of every fault.
std::vector<std::string> faultsOf(const std::string& text)
{
    std::vector<std::string> faults;
    const engine::FormulaReading reading = engine::readFormula(text);
    for (const engine::Problem& problem : reading.problems) {
        EXPECT_FALSE(problem.chinese.empty());
        faults.push_back(std::to_string(problem.place.line) + ":" + std::to_string(problem.place.column) + "+"
                         + std::to_string(problem.place.length) + " " + problem.found + ": "
                         + problem.english);
    }
    EXPECT_EQ(reading.problems.empty(), reading.formula != nullptr);
    return faults;
}

/// The hints of a text that is read, in the same form.
std::vector<std::string> hintsOf(const std::string& text)
{
    std::vector<std::string> hints;
    const engine::FormulaReading reading = engine::readFormula(text);
    EXPECT_TRUE(reading.formula) << text;
    for (const engine::Problem& hint : reading.hints) {
        EXPECT_FALSE(hint.chinese.empty());
        hints.push_back(std::to_string(hint.place.line) + ":" + std::to_string(hint.place.column) + "+"
                        + std::to_string(hint.place.length) + " " + hint.found + ": " + hint.english);
    }
    return hints;
}

double valueOf(const std::string& expression)
{
    const Series values = valuesOf(expression, { 1 });
    return values.empty() ? NAN : values.front();
}

TEST(FormulaText, MultipliesBeforeItAddsAndComparesBeforeItJoins)
{
    EXPECT_EQ(valueOf("2+3*4"), 14);
    EXPECT_EQ(valueOf("(2+3)*4"), 20);
    EXPECT_EQ(valueOf("8-4-2"), 2);
    EXPECT_EQ(valueOf("8/4/2"), 1);
    EXPECT_EQ(valueOf("-2*-3"), 6);
    EXPECT_EQ(valueOf("2 - -3"), 5);
    EXPECT_EQ(valueOf("1+1=2 AND 2*2>3"), 1);
    EXPECT_EQ(valueOf("1 OR 0 AND 0"), 1);
    EXPECT_EQ(valueOf("(1 || 0) && 0"), 0);
    EXPECT_EQ(valueOf("NOT 1>2"), 1);
    EXPECT_EQ(valueOf("NOT(1)+1"), 1);
    EXPECT_EQ(valueOf("!0"), 1);
    EXPECT_EQ(valueOf("1<>2"), 1);
    EXPECT_EQ(valueOf("1!=2"), 1);
    EXPECT_EQ(valueOf("1==2"), 0);
    EXPECT_EQ(valueOf("1e2+.5"), 100.5);
}

TEST(FormulaText, ReadsNamesInAnyCaseAndInHanLetters)
{
    const auto reading = engine::readFormula("快线:=ma(close,1);\nabc:=快线*2; X:ABC+快线;");
    ASSERT_TRUE(reading.formula);
    EXPECT_EQ(test::seriesOf(*engine::computeFormula(reading.formula, test::barsOf({ 3 })), "X"),
              (Series { 9 }));
}

TEST(FormulaText, PassesOverCommentsAndBlanks)
{
    EXPECT_EQ(faultsOf("{ 注释; 'x }\n// another : = ;\nX:C; { end }"), std::vector<std::string> {});
}

TEST(FormulaText, TakesTheLastStatementWithoutItsSemicolon)
{
    EXPECT_EQ(faultsOf("A:=1;\nX:A+C"), std::vector<std::string> {});
}

TEST(FormulaText, NamesEveryFaultWithItsPlaceInCharacters)
{
    EXPECT_EQ(faultsOf("甲:=MAA(C,5);\n乙:甲+;\nX:CLOSEE+均价;\nY:C,COLORED;"),
              (std::vector<std::string> { "1:4+3 MAA: unknown function, did you mean MA",
                                          "2:5+1 ;: expected a number, a name or a parenthesis",
                                          "3:3+6 CLOSEE: unknown name, did you mean CLOSE",
                                          "3:10+2 均价: unknown name",
                                          "4:5+7 COLORED: unknown attribute, did you mean COLORRED" }));
}

TEST(FormulaText, GoesOnBehindAForgottenSemicolon)
{
    EXPECT_EQ(faultsOf("A:=C\nB:=A;\nX:B+Q9;"),
              (std::vector<std::string> { "2:1+1 B: expected an operator or a semicolon",
                                          "3:5+2 Q9: unknown name" }));
}

TEST(FormulaText, NamesWrongArguments)
{
    EXPECT_EQ(faultsOf("X:MA(C);"),
              (std::vector<std::string> { "1:3+2 MA: wrong number of arguments, expected MA(X,N)" }));
    EXPECT_EQ(faultsOf("X:EMA(C,V);"),
              (std::vector<std::string> {
                  "1:9+1 V: expected a number or a parameter, which does not change from bar to bar" }));
    EXPECT_EQ(faultsOf("X:MA('a',5);"),
              (std::vector<std::string> { "1:6+3 a: expected a number, not a text" }));
    EXPECT_EQ(faultsOf("DRAWTEXT(C>O,H,5);"),
              (std::vector<std::string> { "1:16+1 5: expected a text in single quotes" }));
    EXPECT_EQ(faultsOf("X:MA;"), (std::vector<std::string> { "1:3+2 MA: expected MA(X,N)" }));
}

TEST(FormulaText, RefusesChainsOfComparisons)
{
    EXPECT_EQ(
        faultsOf("X:1<C<3;"),
        (std::vector<std::string> { "1:6+1 <: expected AND or a semicolon: comparisons do not chain" }));
}

TEST(FormulaText, KeepsItsOwnNamesAndRefusesASecondUse)
{
    EXPECT_EQ(faultsOf("CLOSE:=1; X:C;"),
              (std::vector<std::string> { "1:1+5 CLOSE: the language itself uses this name" }));
    EXPECT_EQ(faultsOf("A:=1; A:=2; X:A+C;"),
              (std::vector<std::string> { "1:7+1 A: this name is taken already" }));
    EXPECT_EQ(faultsOf("VOL:VOL,VOLSTICK;"),
              std::vector<std::string> {}); // an output may be called as its series
}

TEST(FormulaText, ReadsFullWidthSignsAndTypographicQuotesWithAHint)
{
    EXPECT_EQ(hintsOf("X：C；"),
              (std::vector<std::string> { "1:2+1 ：: a full-width sign, read as :",
                                          "1:4+1 ；: a full-width sign, read as ;" }));
    EXPECT_EQ(hintsOf("A：＝C＞＝O；X:A;"),
              (std::vector<std::string> {
                  "1:2+2 ：＝: a full-width sign, read as :=", "1:5+2 ＞＝: a full-width sign, read as >=",
                  "1:8+1 ；: a full-width sign, read as ;" }));
    EXPECT_EQ(hintsOf("DRAWTEXT(C>O,H,‘买’);"),
              (std::vector<std::string> { "1:16+3 ‘买’: a typographic quote, read as a single quote" }));
    EXPECT_EQ(hintsOf("DRAWTEXT(C>O,H,\"买\");"),
              (std::vector<std::string> { "1:16+3 买: a text in double quotes, single quotes are usual" }));
    EXPECT_EQ(valueOf("(2≥2)×3"), 3);
}

TEST(FormulaText, NamesWhatHasNoPlainMeaning)
{
    EXPECT_EQ(faultsOf("X:C。").front(), "1:4+1 。: a character that formulas do not use");
    EXPECT_EQ(faultsOf("X:BARPOS%2;").front(),
              "1:9+1 %: a character that formulas do not use; write MOD(A,B) for a remainder");
    EXPECT_EQ(faultsOf("X:C^2;").front(),
              "1:4+1 ^: a character that formulas do not use; write POW(A,B) for a power");
    EXPECT_EQ(faultsOf("X:C>O?1:0;").front(),
              "1:6+1 ?: a character that formulas do not use; write IF(COND,A,B) for a choice");
    EXPECT_EQ(faultsOf("X:ＭＡ(C,5);").front(),
              "1:3+2 ＭＡ: full-width letters or digits, expected the half-width ones");
}

TEST(FormulaText, HintsWhereAWordMeansSomethingElseToOthers)
{
    EXPECT_EQ(hintsOf("DRAWKLINE(HIGH,OPEN,LOW,CLOSE);"), std::vector<std::string> {});
    EXPECT_EQ(hintsOf("DRAWKLINE(O,H,L,C);"),
              (std::vector<std::string> { "1:11+1 O: the order of the arguments is HIGH,OPEN,LOW,CLOSE" }));
    EXPECT_EQ(hintsOf("DRAWTEXT(L,C>O,'x');"),
              (std::vector<std::string> { "1:10+1 L: the order of the arguments is COND,PRICE,TEXT" }));
    EXPECT_EQ(hintsOf("PARTLINE(C,C>O);"),
              (std::vector<std::string> { "1:10+1 C: the order of the arguments is COND,PRICE" }));
    EXPECT_EQ(hintsOf("PARTLINE(C>O,C,COLORRED);"),
              (std::vector<std::string> { "1:10+1 C: the order of the arguments is PRICE,COND,COLOR,..." }));
    EXPECT_EQ(hintsOf("PARTLINE(C>O,C);PARTLINE(C,C>O,COLORRED);PARTLINE(V,C>O,COLORRED,1,COLORGREEN);"
                      "DRAWICON(ISLASTBAR,L,1);COUNT(C>O,5);X:VALUEWHEN(C,H);"),
              std::vector<std::string> {});
    EXPECT_EQ(
        hintsOf("A:=C,COLORRED,RGB(1,2,3),LINETHICK2; X:A;"),
        (std::vector<std::string> { "1:5+1 ,: a hidden value is not drawn, its attributes have no effect" }));
    EXPECT_EQ(hintsOf("X:MA(C,0)+REF(C,-1)+SUM(C,0);"),
              (std::vector<std::string> { "1:8+1 0: there is no answer for this number of bars",
                                          "1:17+1 -: there is no answer for this number of bars" }));
}

TEST(FormulaText, SaysWhyAWordOfOthersIsNoneHere)
{
    EXPECT_THAT(faultsOf("X:WINNER(C);").front(),
                testing::HasSubstr("the distribution of holdings needs records of who sold"));
    EXPECT_EQ(faultsOf("WINNER:=C; X:WINNER;"), std::vector<std::string> {}) << "it is a free name";
}

TEST(FormulaText, SuggestsOnlyWhatMeansNearlyTheSame)
{
    EXPECT_EQ(faultsOf("X:C,LINETHICK8;").front(),
              "1:5+10 LINETHICK8: unknown attribute, expected LINETHICK0 to LINETHICK7");
    EXPECT_EQ(faultsOf("X:IFX(C,1,2);").front(), "1:3+3 IFX: unknown function");
    EXPECT_EQ(faultsOf("X:COUNTT(C,1);").front(), "1:3+6 COUNTT: unknown function, did you mean COUNT");
}

TEST(FormulaText, NamesAnArgumentTooMany)
{
    EXPECT_EQ(faultsOf("X:MA(C,5,6);"),
              (std::vector<std::string> { "1:10+1 6: an argument too many, expected MA(X,N)" }));
}

TEST(FormulaText, NamesWhatIsNoColour)
{
    EXPECT_EQ(faultsOf("X:C,RGB(1,2,300);").front(), "1:13+3 300: expected a number from 0 to 255");
    EXPECT_EQ(faultsOf("X:C,RGB(1,C,3);").front(), "1:11+1 C: expected a number from 0 to 255");
    EXPECT_EQ(faultsOf("X:C,RGB(1,2);").front(), "1:12+1 ): expected ,");
    EXPECT_EQ(faultsOf("X:C,RGB(1,2,3;").front(), "1:14+1 ;: expected )");
    const std::string parts = "1:3+3 RGB: the parts of RGB are numbers from 0 to 255";
    for (const char* text : { "X:RGB(1,2,256);", "X:RGB(-1,2,3);", "X:RGB(1,C,3);" })
        EXPECT_EQ(faultsOf(text), std::vector<std::string> { parts }) << text;
    EXPECT_EQ(faultsOf("X:RGB(1,2);").front(), "1:3+3 RGB: wrong number of arguments, expected RGB(r,g,b)");
    EXPECT_EQ(faultsOf("X:RGB(1,2,Q9);").front(), "1:11+2 Q9: unknown name");
    EXPECT_EQ(valueOf("RGB(1,2,3)"), 1 + 256 * 2 + 65'536 * 3);
    EXPECT_EQ(faultsOf("X:C,COLORRED,COLORBLUE;"),
              std::vector<std::string> { "1:14+9 COLORBLUE: this output has a colour already" });
    for (const char* text :
         { "DRAWBAND(C,C,2,COLORGREEN);", "DRAWBAND(C,COLORRED,2,V);", "DRAWBAND(C,-1,2,COLORGREEN);",
           "FILLRGN(C,O,C>1,V);", "FILLRGN(C,O,C>1);", "PARTLINE(C,C>O,V);" })
        EXPECT_EQ(faultsOf(text).size(), 1U) << text;
}

TEST(FormulaText, NamesAttributesThatDoNotSuitTheirOutput)
{
    EXPECT_EQ(faultsOf("DRAWTEXT(C>O,H,'x'),STICK;").front(),
              "1:21+5 STICK: drawings do not take this attribute");
    EXPECT_EQ(faultsOf("X:C,WINNER;").front().substr(0, 12), "1:5+6 WINNER");
    EXPECT_EQ(faultsOf("X:C,ALIGN1;").front(), "1:5+6 ALIGN1: only texts, numbers and icons are placed");
    EXPECT_EQ(faultsOf("X:C,5;").front(), "1:5+1 5: expected an attribute");
    const char* iconFirst = "DRAWICON(C>O,L,1),ALIGN1; DRAWTEXT(C>O,H,'x'),ALIGN2;";
    EXPECT_THAT(faultsOf(iconFirst).front(),
                testing::HasSubstr("texts and numbers share the ALIGN of an icon that is the first output"));
}

TEST(FormulaText, ReadsHanLettersOfEveryBlock)
{
    for (const char* letter : { "\u4e00", "\u9fff", "\u3400", "\u4dbf", "\U00020000", "\U0003fffd", "\uf900",
                                "\ufaff", "\u3005", "\u3007" }) {
        const std::string name = std::string("A") + letter;
        std::string text = name;
        text.append(":=C; X:").append(name).append(";");
        EXPECT_EQ(faultsOf(text), std::vector<std::string> {}) << name;
    }
    for (const char* other : { "\u4dc0", "\u33ff", "\u3004", "\u3008", "\ufb00", "\U0001f600" })
        EXPECT_FALSE(faultsOf(std::string("X:") + other + ";").empty()) << other;
}

TEST(FormulaText, TakesNoCharacterForOneThatUtf8DoesNotAllow)
{
    for (const char* bytes :
         { "\xE0\x80\x80", "\xF0\x80\x80\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE4\xB8", "\xC3" })
        EXPECT_THAT(faultsOf(std::string("X:C+") + bytes + "C;").front(),
                    testing::HasSubstr("these bytes are no UTF-8"))
            << bytes;
}

TEST(FormulaText, NamesForeignBytes)
{
    EXPECT_EQ(faultsOf("X:C$$+1;"),
              (std::vector<std::string> { "1:4+2 $$: a character that formulas do not use" }));
    EXPECT_EQ(faultsOf("X:C\xFF\xFE;").size(), 1U);
    EXPECT_EQ(faultsOf("X:'open").front(),
              "1:3+5 'open: the text has no end on its line, expected a single quote");
    EXPECT_EQ(faultsOf("X:C; { open").front(), "1:6+1 {: the comment has no end, expected }");
}

TEST(FormulaText, ReadsParametersWithTheirRange)
{
    const auto reading = engine::readFormula("PARAM N(20,1,500), P(-1,-2.5,0); MA#N:MA(C,N)+P;");
    ASSERT_TRUE(reading.formula);
    const auto& parameters = reading.formula->parameters();
    ASSERT_EQ(parameters.size(), 2U);
    EXPECT_EQ(parameters[0].name, "N");
    EXPECT_EQ(parameters[0].value, 20);
    EXPECT_EQ(parameters[0].max, 500);
    EXPECT_EQ(parameters[1].min, -2.5);
    EXPECT_EQ(reading.formula->outputNames(), (std::vector<std::string> { "MA20" }));
    EXPECT_EQ(faultsOf("PARAM N(0,1,500); X:N+C;").size(), 1U);
    EXPECT_EQ(faultsOf("PARAM N(5,1); X:C;").size(), 1U);
}

TEST(FormulaText, SaysWhereItIsDrawn)
{
    EXPECT_EQ(engine::readFormula("X:C;").formula->kind(), 0);
    EXPECT_EQ(engine::readFormula("MAIN; X:C;").formula->kind(), 1);
    EXPECT_EQ(engine::readFormula("X:C,COLORRED,MAIN;").formula->kind(), 1);
    EXPECT_EQ(engine::readFormula("MAINCHART; DRAWKLINE(H,O,L,C);").formula->kind(), 2);
    EXPECT_EQ(engine::readFormula("SUB; X:C;").formula->kind(), 0);
}

TEST(FormulaText, NeedsAnOutput)
{
    EXPECT_EQ(faultsOf(""), (std::vector<std::string> { "1:1+0 : the formula has no output" }));
    EXPECT_EQ(faultsOf("A:=C;").size(), 1U);
}

TEST(FormulaText, HasLimits)
{
    const std::string deep(10'000, '(');
    EXPECT_EQ(faultsOf("X:" + deep).front(), "1:204+1 (: nested too deeply");
    EXPECT_EQ(faultsOf("X:" + std::string(200, '(') + "C" + std::string(200, ')')),
              std::vector<std::string> {});
    EXPECT_EQ(faultsOf("X:" + std::string(201, '(') + "C" + std::string(201, ')')).size(), 1U);
    EXPECT_EQ(faultsOf("X:" + std::string(100'000, '-') + "C;").size(), 1U);
    std::string wide = "X:C";
    for (int term = 0; term < 30'000; ++term)
        wide += "+1";
    EXPECT_THAT(faultsOf(wide).front(), testing::HasSubstr("the formula is too long"));
    std::string many;
    for (int output = 0; output < 150; ++output)
        many += "X" + std::to_string(output) + ":C;";
    EXPECT_THAT(faultsOf(many).front(), testing::HasSubstr("too many outputs"));
    EXPECT_EQ(faultsOf(std::string((1 << 20) + 1, ' ')).size(), 1U);
    std::string parameters = "PARAM P0(1,0,2)";
    for (int parameter = 1; parameter < 1'000; ++parameter)
        parameters += ",P" + std::to_string(parameter) + "(1,0,2)";
    EXPECT_THAT(faultsOf(parameters + "; X:C;").front(), testing::HasSubstr("too many parameters"));
    std::string faulty;
    for (int line = 0; line < 1'000; ++line)
        faulty += "A" + std::to_string(line) + ":=;";
    EXPECT_EQ(faultsOf(faulty).size(), 200U);
}

TEST(FormulaText, WithTooManyColumnsForTheirBarsIsNotComputed)
{
    std::string text, sum = "X:0", outputs;
    for (int value = 0; value < 300; ++value) {
        const std::string name = "A" + std::to_string(value);
        text += name + ":=MA(C," + std::to_string(value + 2) + ");";
        sum += "+" + name;
        if (value < 100)
            outputs += name + ":MA(C," + std::to_string(value + 2) + ");";
    }
    const auto followed = engine::readFormula(text + sum + ";").formula;
    const auto once = engine::readFormula(outputs).formula;
    ASSERT_TRUE(followed && once);
    engine::BarSeries bars;
    bars.timeMs.resize(6'000'000);
    EXPECT_FALSE(engine::FormulaEvaluation(followed).update(bars));
    EXPECT_FALSE(engine::computeFormula(once, bars));
    bars.timeMs.resize(1'000);
    EXPECT_TRUE(engine::FormulaEvaluation(followed).update(bars));
    EXPECT_TRUE(engine::computeFormula(once, bars));
}

TEST(FormulaText, DrawingsStandAloneAndHaveNoValue)
{
    EXPECT_EQ(faultsOf("A:=DRAWTEXT(C>O,H,'x'); X:C;"),
              (std::vector<std::string> { "1:4+8 DRAWTEXT: a drawing stands in a statement of its own" }));
    EXPECT_EQ(faultsOf("A:DRAWTEXT(C>O,H,'x'); X:A+1;"),
              (std::vector<std::string> { "1:26+1 A: a drawing has no value" }));
    EXPECT_EQ(faultsOf("A:STACKVOL(V,C); X:C;").size(), 1U);
    EXPECT_EQ(faultsOf("DRAWTEXT(C>O,H,'x'),ALIGN1; DRAWNUMBER(C>O,H,C,2),ALIGN2;").size(), 1U);
}

} // namespace
