// SPDX-License-Identifier: MIT
#include "apps/client/basket/ImportReport.h"

#include "host/embedded/EmbeddedHost.h"
#include "tests/support/System.h"
#include "tests/support/Workbooks.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class ImportReport : public testing::Test
{
protected:
    QString path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }
    static QString lineOn(const QString& workbook)
    {
        return client::reportOnFile(workbook, true).text(QStringLiteral("a"));
    }

    QTemporaryDir m_folder;
    const QString m_sound = test::writeXlsx(path("sound.xlsx"), { { QStringLiteral("600000") } });
};

} // namespace

TEST_F(ImportReport, OfASoundWorkbookCountsItsRowsAlone)
{
    EXPECT_EQ(lineOn(m_sound), QStringLiteral("a：读入 1 行，识别 1 行"));
}

TEST_F(ImportReport, CountsNoFirstRowThatNamesTheColumns)
{
    const auto lineOf = [](const QVector<QString>& codes) {
        return client::reportOn(codes, false).text(QStringLiteral("a"));
    };
    EXPECT_EQ(lineOf({ QStringLiteral("代码"), QStringLiteral("600000") }),
              QStringLiteral("a：读入 1 行，识别 1 行"));
    EXPECT_EQ(lineOf({ QStringLiteral("600000"), QStringLiteral("代码") }),
              QStringLiteral("a：读入 2 行，识别 1 行，跳过 1 行（代码未知 1），例如 代码"))
        << "only the first one names columns";
    EXPECT_EQ(lineOf({ QStringLiteral("999999"), QStringLiteral("600000") }),
              QStringLiteral("a：读入 2 行，识别 1 行，跳过 1 行（代码未知 1），例如 999999"));
    EXPECT_EQ(lineOf({ QStringLiteral("words") }),
              QStringLiteral("a：读入 1 行，识别 0 行，跳过 1 行（代码未知 1），例如 words"))
        << "a list of one row has no columns to name";
}

TEST_F(ImportReport, SaysThatADamagedWorkbookMayBeIncomplete)
{
    test::Parts parts = test::soundParts("<row><c><v>600000</v></c></row>");
    parts["xl/worksheets/sheet1.xml"].chop(20);
    EXPECT_EQ(lineOn(test::writeParts(path("cut.xlsx"), parts)),
              QStringLiteral("a：读入 1 行，识别 1 行；工作簿有损坏，内容可能不完整"));
}

TEST_F(ImportReport, SaysWhyAWorkbookGaveNothing)
{
    ON_UNIX_ALONE("a Python library makes the workbook");
    const auto expectReason = [](const QString& workbook, const char* reason) {
        const QString line = lineOn(workbook);
        EXPECT_TRUE(line.startsWith(QStringLiteral("a：读入 0 行，识别 0 行；") + QString::fromUtf8(reason)))
            << line.toStdString();
    };
    expectReason(test::writeXls(path("a.xls"), { { 1 } }, QStringLiteral("password")),
                 "工作簿有密码或已加密");
    expectReason(test::writeXls(path("b.xls"), { { 1 } }, QStringLiteral("encrypted")),
                 "工作簿有密码或已加密");
    expectReason(test::writeFile(path("c.xlsx"), QByteArray()), "文件是空的");
    expectReason(test::writeFile(path("d.xlsx"), "PK\x03\x04 and nothing behind it"), "工作簿已损坏");
    expectReason(test::writeFile(path("e.xls"),
                                 QByteArray("\x7F"
                                            "ELF\x02\x01\x01\0\0\0",
                                            10)),
                 "不是工作簿，也不是文本");
    expectReason(test::writeParts(path("f.xlsx"), test::soundParts(QByteArray())), "第一个工作表没有内容");
    expectReason(test::writeParts(path("g.xlsx"), { { "content.xml", "<x/>" } }), "不支持这种工作簿");
    expectReason(test::writeZipBomb(path("h.xlsx"), 300), "解压后超过 256 MiB");
    expectReason(test::addEmptyEntries(path("i.xlsx"), 1'001), "压缩包超过 1000 个条目");
    expectReason(path("missing.xlsx"), "文件打不开（文件不存在）");
    expectReason(m_folder.path(), "文件打不开（不是普通文件）");
    QFile large(path("large.xlsx"));
    ASSERT_TRUE(large.open(QIODevice::WriteOnly) && large.resize(qint64 { 65 } << 20));
    expectReason(large.fileName(), "文件超过 64 MiB");
}

TEST_F(ImportReport, SaysThatTheReadingProgramIsMissing)
{
    TC::embedded::setWorkbookProgram(path("nowhere"));
    EXPECT_EQ(lineOn(m_sound),
              QStringLiteral("a：读入 0 行，识别 0 行；找不到读取程序 indicatorui-workbook（%1）")
                  .arg(path("nowhere")));
}

TEST_F(ImportReport, SaysThatNoWorkbookCanBeRead)
{
    TC::embedded::setExcelAvailable(false);
    EXPECT_EQ(lineOn(m_sound), QStringLiteral("a：读入 0 行，识别 0 行；工作簿读取不可用"));
}
