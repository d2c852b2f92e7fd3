// SPDX-License-Identifier: MIT
/// @file The renderer as its users call it: as a program.

#include "apps/base/FileNames.h"
#include "apps/base/WholeFile.h"
#include "apps/chart/PaneResults.h"
#include "draw/CDrawStyle.h"
#include "engine/Formulas.h"
#include "engine/files/BarFile.h"
#include "tests/support/ChildRun.h"
#include "tests/support/RecoveryFolders.h"
#include "tests/support/System.h"
#include "tests/support/Trace.h"
#include "host/utils/TextCodec.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>

namespace {

struct Outcome
{
    int exitCode;
    QString error;
};

class RenderProgram : public testing::Test
{
protected:
    Outcome run(QStringList arguments)
    {
        QProcess process;
        process.start(QStringLiteral(RENDER_PROGRAM), arguments);
        EXPECT_TRUE(process.waitForFinished(60'000));
        return { process.exitCode(), QString::fromUtf8(process.readAllStandardError()).trimmed() };
    }

    Outcome runOn(const QByteArray& csv)
    {
        QFile file(path("bars.csv"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(csv);
        file.close();
        return run({ QStringLiteral("--bars"), path("bars.csv"), QStringLiteral("-o"), path("out.png") });
    }

    QString path(const char* name) const { return m_folder.filePath(QString::fromLatin1(name)); }

    void expectRefused(const Outcome& result, const char* reason)
    {
        EXPECT_EQ(result.exitCode, 2);
        EXPECT_FALSE(result.error.contains(QLatin1Char('\n'))) << result.error.toStdString();
        EXPECT_TRUE(result.error.contains(QString::fromLatin1(reason))) << result.error.toStdString();
        EXPECT_FALSE(QFile::exists(path("out.png")));
    }

    QTemporaryDir m_folder;
};

QString sample(const char* name)
{
    return QStringLiteral(SAMPLES_DIR "/bars/") + QString::fromLatin1(name);
}

const char* const kHeader = "date,open,high,low,close,volume\n";

} // namespace

TEST_F(RenderProgram, PaintsEveryBundledFile)
{
    for (const char* name : { "SH000001.csv", "SH600030.csv", "SH510050.csv", "SFCU00.csv", "DFM00.csv" }) {
        const Outcome result =
            run({ QStringLiteral("--bars"), sample(name), QStringLiteral("--size"), QStringLiteral("800x500"),
                  QStringLiteral("--dpr"), QStringLiteral("2"), QStringLiteral("-o"), path("out.png") });
        EXPECT_EQ(result.exitCode, 0) << result.error.toStdString();
        EXPECT_EQ(QImage(path("out.png")).size(), QSize(1600, 1000)) << name;
    }
}

TEST_F(RenderProgram, LeavesOutOfTheExportWhatTheBarsDoNotCarry)
{
    const QByteArray prices = "时间,开,高,低,收,成交量,涨跌,涨跌百分比,振幅";
    const std::pair<const char*, QByteArray> cases[] = {
        { "SH000001.csv", prices },           { "SH600030.csv", prices },          { "SH510050.csv", prices },
        { "SFCU00.csv", prices + ",持仓量" }, { "DFM00.csv", prices + ",持仓量" },
    };
    for (const auto& [name, header] : cases) {
        const Outcome result = run({ QStringLiteral("--bars"), sample(name), QStringLiteral("--pane"),
                                     QStringLiteral("KLINE"), QStringLiteral("--export"), path("out.csv") });
        EXPECT_EQ(result.exitCode, 0) << result.error.toStdString();
        QFile exported(path("out.csv"));
        ASSERT_TRUE(exported.open(QIODevice::ReadOnly)) << name;
        const QByteArray text = exported.readAll();
        EXPECT_EQ(text.left(text.indexOf('\n')).trimmed(), header) << name;
        EXPECT_GT(text.count('\n'), 1000) << name;
        EXPECT_FALSE(text.contains("nan")) << name;
    }
}

TEST_F(RenderProgram, PaintsEveryKindOfDrawingInItsColour)
{
    constexpr int belowLegends = 60; // rows
    QFile all(sample("SH600030.csv"));
    ASSERT_TRUE(all.open(QIODevice::ReadOnly));
    const QList<QByteArray> rows = all.readAll().split('\n');
    ASSERT_FALSE(base::writeWholeFile(path("SH600030.csv"), rows.mid(0, 41).join('\n')));
    const auto inked = [&](const QByteArray& formula, const QColor& color = QColor(250, 10, 240)) {
        EXPECT_FALSE(base::writeWholeFile(path("own.txt"), formula));
        const Outcome result = run({ QStringLiteral("--bars"), path("SH600030.csv"),
                                     QStringLiteral("--formula"), path("own.txt"), QStringLiteral("--size"),
                                     QStringLiteral("600x400"), QStringLiteral("-o"), path("out.png") });
        EXPECT_EQ(result.exitCode, 0) << result.error.toStdString();
        const QImage image = QImage(path("out.png")).convertToFormat(QImage::Format_RGB32);
        int pixels = 0;
        for (int y = belowLegends; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                pixels += image.pixel(x, y) == color.rgb() ? 1 : 0;
        }
        return pixels;
    };
    const char* drawings[] = { "A:C",
                               "A:C,STICK",
                               "A:C,LINESTICK",
                               "A:C,POINTDOT",
                               "A:C,CIRCLEDOT",
                               "A:C>O,BOOLLINE",
                               "A:C,DOTLINE",
                               "A:C,LINETHICK3",
                               "DRAWTEXT(C>O,H,'TTT')",
                               "DRAWTEXT_FIX(1,0.2,0.5,0,'TTT')",
                               "DRAWNUMBER(C>O,H,C,2)",
                               "STICKLINE(C>O,H,L,8,0)",
                               "VERTLINE(C>O)",
                               "VERTLINE(C>O,H,L)",
                               "PARTLINE(C,C>O)" };
    for (const char* drawing : drawings) {
        const QByteArray formula = QByteArray("MAIN; ") + drawing;
        EXPECT_GT(inked(formula + ",RGB(250,10,240);"), 0) << drawing;
    }
    EXPECT_GT(inked("SUB; STACKVOL(V,V),COLORMAGENTA,COLORGREEN;", Qt::magenta), 1'000)
        << "the lower part of each stick";
    EXPECT_GT(inked("SUB; STACKVOL(V,V),COLORGREEN,COLORMAGENTA;", Qt::magenta), 1'000) << "the upper one";
}

TEST_F(RenderProgram, PaintsIconsWhereTheirConditionHolds)
{
    const auto picture = [&](const QByteArray& formula) {
        EXPECT_FALSE(base::writeWholeFile(path("own.txt"), formula));
        const Outcome result =
            run({ QStringLiteral("--bars"), sample("SH600030.csv"), QStringLiteral("--formula"),
                  path("own.txt"), QStringLiteral("-o"), path("out.png") });
        EXPECT_EQ(result.exitCode, 0) << result.error.toStdString();
        return QImage(path("out.png"));
    };
    const QImage without = picture("MAIN; DRAWICON(C<0,L,1);");
    EXPECT_NE(picture("MAIN; DRAWICON(C>O,L,1);"), without);
    EXPECT_EQ(picture("MAIN; DRAWICON(C<0,L,2);"), without);
}

TEST_F(RenderProgram, PaintsAndExportsTrades)
{
    const QString trades = QStringLiteral(SAMPLES_DIR "/ticks/SYNTHETIC-five-levels.csv");
    const auto picture = [&](const QStringList& more) {
        const Outcome result = run(
            QStringList { QStringLiteral("--ticks"), trades, QStringLiteral("-o"), path("out.png") } + more);
        EXPECT_EQ(result.exitCode, 0) << result.error.toStdString();
        return QImage(path("out.png"));
    };
    const QStringList all { QStringLiteral("--from"), QStringLiteral("0"), QStringLiteral("--count"),
                            QStringLiteral("6000") };
    const QImage last = picture({}), byPrice = picture(all);
    EXPECT_EQ(last.size(), QSize(1600, 900));
    EXPECT_NE(byPrice, last);
    EXPECT_NE(picture(all + QStringList(QStringLiteral("--book"))), byPrice);

    QFile file(trades);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const int count = file.readAll().count('\n') - 1; // without the head
    const auto exported = [&](const QStringList& more) {
        const Outcome result =
            run(QStringList { QStringLiteral("--ticks"), trades, QStringLiteral("--export"), path("out.csv") }
                + more);
        EXPECT_EQ(result.exitCode, 0) << result.error.toStdString();
        QFile written(path("out.csv"));
        EXPECT_TRUE(written.open(QIODevice::ReadOnly));
        return written.readAll().split('\n');
    };
    const QList<QByteArray> lines = exported({}), withTime = exported({ QStringLiteral("--with-time") });
    EXPECT_GE(lines.size(), count + 1);
    EXPECT_EQ(withTime.size(), lines.size());
    EXPECT_GT(withTime.at(1).size(), lines.at(1).size());
}

TEST_F(RenderProgram, SaysWhatIsWrongWithItsArguments)
{
    const auto refused = [&](const QStringList& arguments) {
        const Outcome result =
            run(QStringList { QStringLiteral("--bars"), sample("SH600030.csv") } + arguments);
        EXPECT_EQ(result.exitCode, 2);
        EXPECT_FALSE(QFile::exists(path("out.png")));
        return result.error.toStdString();
    };
    const QString out = path("out.png"), o = QStringLiteral("-o");
    const auto with = [&](const char* option, const char* value) {
        return QStringList { o, out, QString::fromUtf8(option), QString::fromUtf8(value) };
    };
    EXPECT_THAT(refused(with("--from", "5639")), testing::HasSubstr("SH600030.csv has only 5639 bars"));
    EXPECT_THAT(refused(with("--from", "-1")), testing::HasSubstr("is not a whole number from 0 to"));
    EXPECT_THAT(refused(with("--count", "0")),
                testing::HasSubstr("--count: \"0\" is not a whole number from 2 to"));
    EXPECT_THAT(refused(with("--count", "many")), testing::HasSubstr("\"many\" is not a whole number"));
    for (const char* ratio : { "0.4", "4.1", "nan", "dense" })
        EXPECT_THAT(refused(with("--dpr", ratio)), testing::HasSubstr("is not a ratio from 0.5 to 4"));
    EXPECT_THAT(refused(with("--pane", ",")), testing::HasSubstr("--pane: \",\" names no formula"));
    EXPECT_THAT(refused(with("--pane", "NONE")), testing::HasSubstr("unknown formula \"NONE\"; known are "));
    EXPECT_THAT(refused({ o, path("out.gif") }), testing::HasSubstr("does not end in .png, .svg or .pdf"));
    EXPECT_THAT(refused({}), testing::HasSubstr("-o OUT.png is missing"));
    EXPECT_THAT(refused({ o, out, QStringLiteral("--with-time") }),
                testing::HasSubstr("go with --export OUT.csv"));
    EXPECT_THAT(refused(with("--export-one", "MA")), testing::HasSubstr("go with --export OUT.csv"));
    EXPECT_THAT(refused({ QStringLiteral("--export"), path("out.csv"), QStringLiteral("--export-one"),
                          QStringLiteral("MACD") }),
                testing::HasSubstr("the first pane has no formula \"MACD\""));
    EXPECT_THAT(refused({ o, out, QStringLiteral("more.csv") }),
                testing::HasSubstr("unknown argument more.csv"));
    EXPECT_THAT(refused({ o, out, QStringLiteral("-x") }), testing::HasSubstr("unknown argument -x"));
    EXPECT_THAT(refused({ o }), testing::HasSubstr("See --help."));
    EXPECT_THAT(refused(with("--ticks", "trades.csv")), testing::HasSubstr("exactly one of --bars"));
}

TEST_F(RenderProgram, SaysHowItIsUsed)
{
    const auto answer = [](const char* option) {
        QProcess process;
        process.start(QStringLiteral(RENDER_PROGRAM), { QString::fromUtf8(option) });
        EXPECT_TRUE(process.waitForFinished(60'000));
        EXPECT_EQ(process.exitCode(), 0);
        return process.readAllStandardOutput().toStdString();
    };
    for (const char* option : { "--bars", "--ticks", "--pane", "--export-one", "--dpr", "--version" })
        EXPECT_THAT(answer("--help"), testing::HasSubstr(option));
    EXPECT_THAT(answer("--version"), testing::StartsWith("indicatorui-render "));
}

TEST_F(RenderProgram, WritesSvgAndPdf)
{
    for (const char* name : { "out.svg", "out.pdf" }) {
        const Outcome result =
            run({ QStringLiteral("--bars"), sample("DFM00.csv"), QStringLiteral("-o"), path(name) });
        EXPECT_EQ(result.exitCode, 0) << result.error.toStdString();
        EXPECT_GT(QFile(path(name)).size(), 2000) << name;
    }
}

TEST_F(RenderProgram, NamesThePeriodOfTheBars)
{
    QFile bars(path("bars.csv"));
    ASSERT_TRUE(bars.open(QIODevice::WriteOnly));
    bars.write("date,time,open,high,low,close,volume\n");
    for (int minute = 30; minute < 60; minute += 5)
        bars.write("2024-03-05,09:" + QByteArray::number(minute) + ",1,2,1,2,100\n");
    bars.close();
    for (const auto& [file, period] :
         { std::pair(path("bars.csv"), "5分钟"), std::pair(sample("DFM00.csv"), "日线") }) {
        ASSERT_EQ(run({ QStringLiteral("--bars"), file, QStringLiteral("-o"), path("out.svg") }).exitCode, 0);
        QFile picture(path("out.svg"));
        ASSERT_TRUE(picture.open(QIODevice::ReadOnly));
        EXPECT_TRUE(picture.readAll().contains(period)) << period;
    }
}

TEST_F(RenderProgram, LeavesTurnoverOutOfEveryBundledFileWhichHasNone)
{
    for (const char* name : { "SH000001.csv", "SH600030.csv", "SH510050.csv", "SFCU00.csv", "DFM00.csv" }) {
        const Outcome result = run({ QStringLiteral("--bars"), sample(name), QStringLiteral("--export"),
                                     path("out.csv"), QStringLiteral("-o"), path("out.svg") });
        ASSERT_EQ(result.exitCode, 0) << result.error.toStdString();
        const QStringList lines =
            QString::fromUtf8(test::RecoveryFolders::contentOf(path("out.csv"))).split(QLatin1Char('\n'));
        const QString& heading = lines.first();
        EXPECT_TRUE(heading.startsWith(QStringLiteral("时间,开,高,低,收,成交量,涨跌,涨跌百分比,振幅,"))
                    && heading.endsWith(QStringLiteral(",MA5,MA10,MA20,MA60")))
            << name << ": " << heading.toStdString();
        EXPECT_FALSE(lines.at(lines.size() - 2).contains(QStringLiteral("nan"))) << name;
        const QString picture = QString::fromUtf8(test::RecoveryFolders::contentOf(path("out.svg")));
        EXPECT_TRUE(picture.contains(QStringLiteral("MA60"))) << name;
        EXPECT_FALSE(picture.contains(QStringLiteral("成交额"))) << name;
        EXPECT_FALSE(picture.contains(QStringLiteral("非法值"))) << name;
    }
}

TEST_F(RenderProgram, NeverWritesIntoAPipeOrADevice)
{
    ON_UNIX_ALONE("there are no pipes in folders");
    ASSERT_TRUE(test::makePipe(path("pipe.csv")));
    for (const QString& place : { path("pipe.csv"), QStringLiteral("/dev/null") }) {
        const Outcome result =
            run({ QStringLiteral("--bars"), sample("DFM00.csv"), QStringLiteral("--export"), place });
        expectRefused(result, "not an ordinary file");
    }
    EXPECT_TRUE(test::isPipe(path("pipe.csv")));
}

TEST_F(RenderProgram, RefusesPicturesBeyondAGibibyte)
{
    const auto sized = [&](const char* size, const char* ratio) {
        return run({ QStringLiteral("--bars"), sample("DFM00.csv"), QStringLiteral("--size"),
                     QString::fromLatin1(size), QStringLiteral("--dpr"), QString::fromLatin1(ratio),
                     QStringLiteral("-o"), path("out.png") });
    };
    expectRefused(sized("9000x9000", "4"), "36000x36000 device pixels");
    expectRefused(sized("16384x16384", "4"), "65536x65536 device pixels");
    expectRefused(sized("16384x20", "1.01"), "device pixels");
    EXPECT_EQ(sized("4000x300", "4").exitCode, 0);
}

TEST_F(RenderProgram, RefusesSizesTooSmallForThePanesAndDrawsTheLeastOne)
{
    const auto sized = [&](const char* size, QStringList more) {
        return run(QStringList { QStringLiteral("--bars"), sample("DFM00.csv"), QStringLiteral("--size"),
                                 QString::fromLatin1(size), QStringLiteral("-o"), path("out.png") }
                   + more);
    };
    const QStringList one { QStringLiteral("--pane"), QStringLiteral("KLINE") };
    expectRefused(sized("400x219", {}), "too small for 3 panes: at least 166x220");
    expectRefused(sized("165x400", {}), "at least 166x220");
    expectRefused(sized("400x91", one), "too small for 1 panes: at least 166x92");
    EXPECT_EQ(sized("166x220", {}).exitCode, 0);
    EXPECT_EQ(sized("166x92", one).exitCode, 0);
}

TEST_F(RenderProgram, GivesSvgAndPdfTheirSizeAt96DotsPerInch)
{
    for (const char* name : { "out.svg", "out.pdf" })
        ASSERT_EQ(run({ QStringLiteral("--bars"), sample("DFM00.csv"), QStringLiteral("--size"),
                        QStringLiteral("960x480"), QStringLiteral("-o"), path(name) })
                      .exitCode,
                  0);
    const QByteArray svg = test::RecoveryFolders::contentOf(path("out.svg"));
    EXPECT_TRUE(svg.contains("width=\"254mm\" height=\"127mm\""))
        << svg.left(300).toStdString(); // 10 x 5 inches
    EXPECT_TRUE(test::RecoveryFolders::contentOf(path("out.pdf")).contains("/MediaBox [0 0 720"));
}

TEST_F(RenderProgram, TellsItsVersion)
{
    QProcess process;
    process.start(QStringLiteral(RENDER_PROGRAM), { QStringLiteral("--version") });
    ASSERT_TRUE(process.waitForFinished(60'000));
    EXPECT_EQ(process.exitCode(), 0);
    EXPECT_TRUE(process.readAllStandardOutput().startsWith("indicatorui-render 0."));
}

TEST_F(RenderProgram, EndsInOneLineWhenMemoryGivesOut)
{
    if (!test::measuresMemory())
        GTEST_SKIP() << "needs several times as much, or has no such limit";
    QProcess process; // 700 MB do not hold a picture of a gibibyte
    process.start(QStringLiteral("/bin/sh"),
                  { QStringLiteral("-c"), QStringLiteral("ulimit -v 700000; exec \"$@\""),
                    QStringLiteral("sh"), QStringLiteral(RENDER_PROGRAM), QStringLiteral("--bars"),
                    sample("DFM00.csv"), QStringLiteral("--size"), QStringLiteral("16384x16384"),
                    QStringLiteral("-o"), path("out.png") });
    ASSERT_TRUE(process.waitForFinished(60'000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    expectRefused({ process.exitCode(), QString::fromUtf8(process.readAllStandardError()).trimmed() },
                  "indicatorui-render: ");
}

TEST_F(RenderProgram, RefusesAFormulaWhoseNameDiffersFromAnotherInCaseAlone)
{
    test::RecoveryFolders::write(path("kline.txt"), "X:CLOSE;");
    const QStringList words { QStringLiteral("--bars"), sample("DFM00.csv"),  QStringLiteral("--formula"),
                              path("kline.txt"),        QStringLiteral("-o"), path("out.png") };
    expectRefused(run(words), "differs from the formula KLINE in case alone");
}

TEST_F(RenderProgram, KeepsAHugeTextOfThePaneOnceAndRefusesOneAtEveryBar)
{
    if (!test::measuresMemory())
        GTEST_SKIP() << "needs several times as much, or has no such limit";
    const QByteArray text(1'000'000, 'x');
    const auto draw = [&](const QByteArray& formula) {
        test::RecoveryFolders::write(path("TEXT.txt"), formula);
        QProcess process; // 700 MB hold the text, but not once a bar
        process.start(QStringLiteral("/bin/sh"),
                      { QStringLiteral("-c"), QStringLiteral("ulimit -v 700000; exec \"$@\""),
                        QStringLiteral("sh"), QStringLiteral(RENDER_PROGRAM), QStringLiteral("--bars"),
                        sample("SH600030.csv"), QStringLiteral("--formula"), path("TEXT.txt"),
                        QStringLiteral("--count"), QStringLiteral("5639"), QStringLiteral("--size"),
                        QStringLiteral("400x300"), QStringLiteral("-o"), path("out.png") });
        EXPECT_TRUE(process.waitForFinished(60'000));
        return Outcome { process.exitCode(), QString::fromUtf8(process.readAllStandardError()).trimmed() };
    };
    const Outcome once = draw("DRAWTEXT_FIX(1,0,0,0,'" + text + "');X:CLOSE;");
    EXPECT_EQ(once.exitCode, 0) << once.error.toStdString();
    QFile::remove(path("out.png"));
    expectRefused(draw("DRAWTEXT(1,H,'" + text + "');X:CLOSE;"), "takes too much memory");
}

TEST_F(RenderProgram, TakesLittleMoreMemoryThanTheBarsToPaintAndToExport)
{
    if (!test::measuresMemory())
        GTEST_SKIP() << "needs several times as much, or has no such limit";
    QFile file(path("bars.csv"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("date,time,open,high,low,close,volume\n");
    constexpr int bars = 500'000; // 24 MB as numbers
    for (int bar = 0; bar < bars; ++bar)
        file.write(QDateTime(QDate(2001, 1, 1), QTime(0, 0), Qt::UTC)
                       .addSecs(60LL * bar)
                       .toString(QStringLiteral("yyyy-MM-dd,HH:mm"))
                       .toLatin1()
                   + ",10.5,12,9.25,11,1000\n");
    file.close();
    for (const QStringList& wanted :
         { QStringList { QStringLiteral("-o"), path("out.png") },
           QStringList { QStringLiteral("--export"), path("out.csv"), QStringLiteral("--export-one"),
                         QStringLiteral("KLINE") } }) {
        QProcess process; // the bars, as much again for them and their formulas to grow
        process.start(QStringLiteral("/bin/sh"),
                      QStringList { QStringLiteral("-c"), QStringLiteral("ulimit -d 50000; exec \"$@\""),
                                    QStringLiteral("sh"), QStringLiteral(RENDER_PROGRAM),
                                    QStringLiteral("--bars"), file.fileName() }
                          + wanted);
        ASSERT_TRUE(process.waitForFinished(120'000));
        EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    }
    QFile exported(path("out.csv"));
    ASSERT_TRUE(exported.open(QIODevice::ReadOnly));
    EXPECT_EQ(exported.readAll().count('\n'), bars + 1);
}

TEST_F(RenderProgram, ExportsLongBarsAsTheLibraryWritesThem)
{
    constexpr int bars = 40'000;
    const QByteArray noPrices = ",1.7976931348623157e308,1.7976931348623157e308,1.7976931348623157e308,"
                                "1.7976931348623157e308,1\n";
    for (const int without :
         { -1, 0, 16'384 }) { // a bar that carries nothing, also where texts are put together
        QByteArray csv(kHeader);
        for (int bar = 0; bar < bars; ++bar) {
            const QByteArray close = QByteArray::number(100 + bar % 37);
            csv += QDate(1900, 1, 1).addDays(bar).toString(Qt::ISODate).toLatin1();
            csv += bar == without ? noPrices : ",100,200,1," + close + ",7\n";
        }
        ASSERT_FALSE(base::writeWholeFile(path("bars.csv"), csv));
        std::string failure;
        const auto read = engine::readBars(path("bars.csv").toStdString(), failure);
        ASSERT_TRUE(read) << failure;
        chart::PaneResults results;
        for (const char* name : { "KLINE", "MA" })
            results.add({ QString(), QString::fromLatin1(name) }, *engine::computeFormula(name, *read));
        for (const char* one : { "", "MA" }) {
            QStringList words { QStringLiteral("--bars"),   path("bars.csv"),
                                QStringLiteral("--pane"),   QStringLiteral("KLINE,MA"),
                                QStringLiteral("--export"), path("out.csv") };
            if (*one)
                words << QStringLiteral("--export-one") << QString::fromLatin1(one);
            ASSERT_EQ(run(words).exitCode, 0);
            EXPECT_TRUE(test::RecoveryFolders::contentOf(path("out.csv")).toStdString()
                        == results.exported(QString::fromLatin1(one), false))
                << one << without;
        }
    }
}

TEST_F(RenderProgram, DrawsOrRefusesBarsAtTheEndOfTheNumbers)
{
    for (const char* rows :
         { "2024-01-02,1e308,1.7e308,-1.7e308,1e308,1e308\n2024-01-03,-1e308,1e308,-1e308,1,1e308\n",
           "2024-01-02,1.7976931348623157e308,1.7976931348623157e308,1,1,5\n2024-01-03,1,2,1,2,0\n",
           "2024-01-02,1e-320,1e-320,1e-320,1e-320,1e-320\n2024-01-03,0,0,0,0,0\n" }) {
        const Outcome result = runOn(QByteArray(kHeader) + rows);
        EXPECT_TRUE(result.exitCode == 0 || result.exitCode == 2) << result.error.toStdString();
        EXPECT_EQ(QFile::remove(path("out.png")), result.exitCode == 0);
        EXPECT_FALSE(result.error.contains(QLatin1Char('\n')));
    }
}

TEST_F(RenderProgram, EscapesControlCharactersSoThatAMessageIsOneLine)
{
    const Outcome result =
        run({ QStringLiteral("--bars"), path("a\nb\x1B[31m.csv"), QStringLiteral("-o"), path("out.png") });
    expectRefused(result, "a\\nb\\x1b[31m.csv");
}

TEST_F(RenderProgram, RefusesAFormulaWithoutEnd)
{
    ON_UNIX_ALONE("there are no devices among files");
    const Outcome result = run({ QStringLiteral("--check"), QStringLiteral("/dev/zero") });
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_FALSE(result.error.contains(QLatin1Char('\n'))) << result.error.toStdString();
}

TEST_F(RenderProgram, RefusesAMissingFile)
{
    expectRefused(run({ QStringLiteral("--bars"), path("none.csv"), QStringLiteral("-o"), path("out.png") }),
                  "none.csv");
}

TEST_F(RenderProgram, RefusesAFileWithoutHeader)
{
    expectRefused(runOn("2024-01-02,1,2,1,2,100\n"), "bars.csv:1:");
}

TEST_F(RenderProgram, RefusesARowWithTooFewFields)
{
    expectRefused(runOn(QByteArray(kHeader) + "2024-01-02,1,2,1,2,100\n2024-01-03,1,2\n"), "bars.csv:3:");
}

TEST_F(RenderProgram, RefusesANumberThatDoesNotParse)
{
    expectRefused(runOn(QByteArray(kHeader) + "2024-01-02,1,2,1,abc,100\n"), "bars.csv:2:");
}

TEST_F(RenderProgram, RefusesAHighBelowTheLow)
{
    expectRefused(runOn(QByteArray(kHeader) + "2024-01-02,1,1,2,1,100\n"), "bars.csv:2:");
}

TEST_F(RenderProgram, RefusesDatesOutOfOrder)
{
    expectRefused(runOn(QByteArray(kHeader) + "2024-01-03,1,2,1,2,100\n2024-01-02,1,2,1,2,100\n"),
                  "bars.csv:3:");
}

TEST_F(RenderProgram, RefusesUnknownFormulasSkinsAndArguments)
{
    const QStringList base { QStringLiteral("--bars"), sample("DFM00.csv"), QStringLiteral("-o"),
                             path("out.png") };
    expectRefused(run(base + QStringList { QStringLiteral("--pane"), QStringLiteral("NONSENSE") }),
                  "NONSENSE");
    expectRefused(run(base + QStringList { QStringLiteral("--skin"), path("no.json") }), "no.json");
    expectRefused(run(base + QStringList { QStringLiteral("--size"), QStringLiteral("0x5") }), "--size");
    expectRefused(run(base + QStringList { QStringLiteral("--wrong") }), "--wrong");
    expectRefused(run({ QStringLiteral("-o"), path("out.png") }), "--bars");
}

TEST_F(RenderProgram, NamesLineAndColumnOfABrokenSkin)
{
    QFile file(path("skin.json"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("{\n  \"colors\": {\n    \"clr_default\": \"no colour\"\n  },\n  \"fonts\": {}, \"pictures\": "
               "{}\n}\n");
    file.close();
    expectRefused(run({ QStringLiteral("--bars"), sample("DFM00.csv"), QStringLiteral("--skin"),
                        path("skin.json"), QStringLiteral("-o"), path("out.png") }),
                  "skin.json:3:5:");
}

TEST_F(RenderProgram, LeavesNothingBehindWhenTheFolderIsMissing)
{
    const Outcome result =
        run({ QStringLiteral("--bars"), sample("DFM00.csv"), QStringLiteral("-o"), path("missing/out.png") });
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_TRUE(result.error.contains(QStringLiteral("missing/out.png")));
}

TEST_F(RenderProgram, DrawsTheFormulaOfAText)
{
    QFile file(path("上轨.txt"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("MAIN;\nPARAM N(20,1,500);\n上轨:HHV(H,N),COLORRED;\n");
    file.close();
    const Outcome result = run({ QStringLiteral("--bars"), sample("DFM00.csv"), QStringLiteral("--formula"),
                                 path("上轨.txt"), QStringLiteral("-o"), path("out.png") });
    EXPECT_EQ(result.exitCode, 0) << result.error.toStdString();
    const QImage picture(path("out.png"));
    int red = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            red += picture.pixel(x, y) == qRgb(255, 0, 0);
    }
    EXPECT_GT(red, 500);
}

TEST_F(RenderProgram, ExportsTheFormulaOfAFileOverAllBarsInAnyOfItsEncodings)
{
    const QString text = QStringLiteral("{ 说明 } 均线:MA(CLOSE,5); DRAWTEXT(CLOSE>OPEN,LOW,'买');");
    constexpr std::pair<const char*, const char*> marksAndEncodings[] = { { "", "UTF-8" },
                                                                          { "\xFF\xFE", "UTF-16LE" },
                                                                          { "", "GB18030" } };
    for (const auto& [mark, codec] : marksAndEncodings) {
        ASSERT_FALSE(base::writeWholeFile(path("own.txt"), mark + utils::encoded(text, codec).value()));
        const Outcome result =
            run({ QStringLiteral("--bars"), sample("DFM00.csv"), QStringLiteral("--formula"), path("own.txt"),
                  QStringLiteral("--export"), path("out.csv") });
        ASSERT_EQ(result.exitCode, 0) << codec << result.error.toStdString();
        QFile exported(path("out.csv"));
        ASSERT_TRUE(exported.open(QIODevice::ReadOnly));
        const QByteArray all = exported.readAll();
        EXPECT_TRUE(all.contains("均线")) << codec << all.left(100).toStdString();
        EXPECT_GT(all.count('\n'), 1000) << codec;
    }
}

TEST_F(RenderProgram, ComparesWithTheIndexThatIsNamed)
{
    ASSERT_FALSE(base::writeWholeFile(path("own.txt"), "X:INDEXC/CLOSE;"));
    const auto exported = [&](const QStringList& more) {
        const Outcome result =
            run(QStringList { QStringLiteral("--bars"), sample("DFM00.csv"), QStringLiteral("--formula"),
                              path("own.txt"), QStringLiteral("--export"), path("out.csv") }
                + more);
        EXPECT_EQ(result.exitCode, 0) << result.error.toStdString();
        QFile file(path("out.csv"));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    };
    const QByteArray alone = exported({}),
                     beside = exported({ QStringLiteral("--index"), sample("DFM00.csv") });
    EXPECT_GT(beside.count("1.0000"), 1000) << beside.left(200).toStdString();
    EXPECT_EQ(alone.count("1.0000"), 0);
    expectRefused(run({ QStringLiteral("--bars"), sample("DFM00.csv"), QStringLiteral("--index"),
                        path("none.csv"), QStringLiteral("-o"), path("out.png") }),
                  "none.csv");
}

TEST_F(RenderProgram, TakesNumbersOfSharesFromTheUsersListOfInstruments)
{
    ASSERT_FALSE(base::writeWholeFile(path("own.txt"), "X:CAPITAL; Y:TOTALCAPITAL; Z:VOL/CAPITAL*100;"));
    ASSERT_TRUE(QDir().mkpath(path("home/user")));
    const auto exported = [&](const QByteArray& list) {
        EXPECT_FALSE(base::writeWholeFile(path("home/user/instruments.csv"), list));
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("INDICATORUI_HOME"), path("home"));
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(RENDER_PROGRAM),
                      { QStringLiteral("--bars"), sample("SH600030.csv"), QStringLiteral("--formula"),
                        path("own.txt"), QStringLiteral("--export"), path("out.csv") });
        EXPECT_TRUE(process.waitForFinished(60'000));
        EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
        QFile file(path("out.csv"));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    };
    const QByteArray none = exported("market,code\nSH,600030\n");
    EXPECT_FALSE(none.contains("12000000000")) << none.left(200).toStdString();
    const QByteArray list = "code,market,流通股本,总股本\r\n600030,SH,12000000000,14820546829\r\n"
                            "600030,SZ,1,1\r\n";
    for (const QByteArray& bytes : { list, utils::encoded(QString::fromUtf8(list), "GB18030").value() }) {
        const QByteArray known = exported(bytes);
        EXPECT_EQ(known.count(",12000000000.0000,14820546829.0000,"), 5639) << known.left(200).toStdString();
        EXPECT_TRUE(known.contains(",0.6451\n") || known.endsWith(",0.6451"))
            << known.right(200).toStdString();
    }
}

TEST_F(RenderProgram, BoundsTheSizeOfVectorPicturesOfManyBars)
{
    QByteArray csv = "date,time,open,high,low,close,volume\n";
    for (int bar = 0; bar < 40'000; ++bar) {
        const int price = 1000 + bar % 613, minute = bar % 240;
        const QDate day = QDate(2000, 1, 1).addDays(bar / 240);
        csv += day.toString(Qt::ISODate).toLatin1()
            + QString::asprintf(",%02d:%02d,%d,%d,%d,%d,%d\n", 9 + minute / 60, minute % 60, price, price + 9,
                                price - 9, price + 5, 1 + bar % 977)
                  .toLatin1();
    }
    ASSERT_FALSE(base::writeWholeFile(path("many.csv"), csv));
    for (const char* name : { "out.svg", "out.pdf" }) {
        const auto bytesOf = [&](int count) {
            const Outcome result =
                run({ QStringLiteral("--bars"), path("many.csv"), QStringLiteral("--count"),
                      QString::number(count), QStringLiteral("--size"), QStringLiteral("800x600"),
                      QStringLiteral("-o"), path(name) });
            EXPECT_EQ(result.exitCode, 0) << result.error.toStdString();
            return test::RecoveryFolders::contentOf(path(name));
        };
        const QByteArray many = bytesOf(40'000);
        EXPECT_LT(many.size(), 1'000'000) << name;
        const char* picture = std::strstr(name, "svg") ? "<image" : "/Subtype /Image";
        // Arrows of the legends are pictures as well.
        EXPECT_GE(many.count(picture), bytesOf(250).count(picture) + 3) << name << ": one a pane";
    }
    const QByteArray svg = test::RecoveryFolders::contentOf(path("out.svg"));
    EXPECT_GT(svg.count("<text"), 10) << "axes and legends are text";
}

TEST_F(RenderProgram, LaysOtherInstrumentsOverTheFirstPane)
{
    const auto imageOf = [&](const QStringList& more) {
        const Outcome result = run(QStringList { QStringLiteral("--bars"), sample("SH600030.csv"),
                                                 QStringLiteral("-o"), path("out.png") }
                                   + more);
        EXPECT_EQ(result.exitCode, 0) << result.error.toStdString();
        return QImage(path("out.png"));
    };
    const auto pixelsOf = [](const QImage& image, QRgb color) {
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                count += image.pixel(x, y) == color ? 1 : 0;
        return count;
    };
    const TC::CDrawStyle reader; // reads the skin's palette
    const int packed = TC::CDrawStyle::getIndexOutPutColorKey(6, 0, 0);
    const QRgb color = qRgb(packed & 255, packed >> 8 & 255, packed >> 16 & 255);
    const QString overlay = QStringLiteral("--overlay");
    EXPECT_EQ(pixelsOf(imageOf({}), color), 0);
    const QImage laid = imageOf({ overlay, sample("SH510050.csv") });
    EXPECT_GT(pixelsOf(laid, color), 500);
    EXPECT_NE(imageOf({ overlay, sample("SH510050.csv"), overlay, sample("SH000001.csv") }), laid);

    QFile::remove(path("out.png"));
    const auto refused = [&](const QStringList& arguments, const char* reason) {
        expectRefused(run(arguments + QStringList { QStringLiteral("-o"), path("out.png") }), reason);
    };
    const QStringList share { QStringLiteral("--bars"), sample("SH600030.csv") };
    refused(share + QStringList { overlay, path("none.csv") }, "none.csv");
    refused(share + QStringList { overlay, sample("SH600030.csv") }, "shows SH600030 already");
    refused({ QStringLiteral("--ticks"), sample("none.csv"), overlay, sample("SH510050.csv") },
            "--overlay goes with --bars");
}

TEST_F(RenderProgram, PrintsHintsAndTakesTheFormulaAllTheSame)
{
    ASSERT_FALSE(base::writeWholeFile(path("own.txt"), "X：MA(C,0);"));
    const Outcome result = run({ QStringLiteral("--check"), path("own.txt") });
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_TRUE(result.error.contains(QStringLiteral("own.txt:1:2: hint: a full-width sign, read as :")))
        << result.error.toStdString();
}

TEST_F(RenderProgram, ChecksATextAndNamesEveryFault)
{
    QFile file(path("faulty.txt"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("A:=MAA(C,5);\nB:A+;\nC2:HIGHH;\n");
    file.close();
    const Outcome faulty = run({ QStringLiteral("--check"), path("faulty.txt") });
    EXPECT_EQ(faulty.exitCode, 2);
    const QStringList lines = faulty.error.split(QLatin1Char('\n'));
    ASSERT_EQ(lines.size(), 3) << faulty.error.toStdString();
    EXPECT_TRUE(lines[0].contains(QStringLiteral("faulty.txt:1:4: ")));
    EXPECT_TRUE(lines[1].contains(QStringLiteral("faulty.txt:2:5: ")));
    EXPECT_TRUE(lines[2].contains(QStringLiteral("faulty.txt:3:4: ")));

    const QString shipped = QStringLiteral(SAMPLES_DIR "/formulas/MACD.txt");
    EXPECT_EQ(run({ QStringLiteral("--check"), shipped }).exitCode, 0);
    EXPECT_EQ(run({ QStringLiteral("--check"), path("none.txt") }).exitCode, 2);
}
