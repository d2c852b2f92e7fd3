// SPDX-License-Identifier: MIT
#include "host/WB/CExcelReader.h"
#include "host/embedded/ReadingSetup.h"
#include "tests/support/Workbooks.h"

#include <QDir>

#include <gtest/gtest.h>

using TC::embedded::WorkbookOutcome;

namespace {

const QString kFolder = QStringLiteral(TEST_DATA_DIR "/workbooks/");

/// What a workbook holds, as its text file states it: rows by lines, with "\n" for a line end within a cell.
QString statedText(const QString& workbook)
{
    QString text = QString::fromUtf8(test::bytesOf(kFolder + workbook + QStringLiteral(".txt"))).trimmed();
    return text.replace(QLatin1Char('\n'), QLatin1Char('/'))
        .replace(QLatin1String("\\n"), QLatin1String("\n"));
}

class WorkbookProducers : public testing::TestWithParam<QString>
{
};

} // namespace

TEST_P(WorkbookProducers, WriteWorkbooksThatAreReadAsStated)
{
    WB::CExcelReader reader;
    reader.init(false);
    EXPECT_TRUE(reader.open(kFolder + GetParam()));
    EXPECT_EQ(test::sheetText(reader), statedText(GetParam()));
    EXPECT_FALSE(TC::embedded::lastWorkbookReport().mayBeIncomplete);
    EXPECT_EQ(TC::embedded::textOf(TC::embedded::lastWorkbookReport()), QString());
}

namespace {

QStringList workbooks()
{
    QStringList names;
    const QStringList stated = QDir(kFolder).entryList({ QStringLiteral("*.txt") });
    for (const QString& name : stated)
        names << name.chopped(4);
    return names;
}

std::string testName(const testing::TestParamInfo<QString>& info)
{
    return QString(info.param).replace(QLatin1Char('.'), QLatin1Char('_')).toStdString();
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Files, WorkbookProducers, testing::ValuesIn(workbooks()), testName);
