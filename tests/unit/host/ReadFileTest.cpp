// SPDX-License-Identifier: MIT
#include "host/TC/QReadFile.h"
#include "tests/support/System.h"
#include "tests/support/Trace.h"
#include "tests/support/Workbooks.h"
#include "host/utils/TextCodec.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class ReadFile : public testing::Test
{
protected:
    QString path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }

    QStringList linesOf(const QByteArray& bytes, bool skipEmptyLines = false)
    {
        QString file = test::writeFile(path("text.csv"), bytes);
        QList<QString> lines { QStringLiteral("old") };
        EXPECT_TRUE(TC::QReadFile(file, lines, skipEmptyLines));
        return lines;
    }

    QTemporaryDir m_folder;
};

QByteArray encoded(const char* encoding, const QString& text)
{
    return utils::encoded(text, encoding).value();
}

const QString kText = QStringLiteral("600000,浦发银行,1\n000001,平安银行,2\n");
const QStringList kLines { QStringLiteral("600000,浦发银行,1"), QStringLiteral("000001,平安银行,2") };

} // namespace

TEST_F(ReadFile, TakesUtf8WithAndWithoutAMark)
{
    EXPECT_EQ(linesOf(kText.toUtf8()), kLines);
    EXPECT_EQ(linesOf("\xEF\xBB\xBF" + kText.toUtf8()), kLines);
}

TEST_F(ReadFile, TakesGbkThatIsNoUtf8)
{
    EXPECT_EQ(linesOf(encoded("GB18030", kText)), kLines);
    EXPECT_EQ(linesOf(encoded("GB18030", QStringLiteral("股"))), QStringList(QStringLiteral("股")));
}

TEST_F(ReadFile, TakesUtf16OfEitherOrderWithAndWithoutAMark)
{
    EXPECT_EQ(linesOf(encoded("UTF-16LE", kText)), kLines);
    EXPECT_EQ(linesOf(encoded("UTF-16BE", kText)), kLines);
    EXPECT_EQ(linesOf("\xFF\xFE" + encoded("UTF-16LE", kText)), kLines);
    EXPECT_EQ(linesOf("\xFE\xFF" + encoded("UTF-16BE", kText)), kLines);
}

TEST_F(ReadFile, DoesNotTakeAStrayNulForUtf16)
{
    QByteArray bytes = QByteArray(200, 'a');
    bytes[100] = '\0';
    EXPECT_EQ(linesOf(bytes).value(0).size(), 200);
}

TEST_F(ReadFile, RemovesTheLineEndsOfEveryPlatform)
{
    const QStringList expected { QStringLiteral("a"), QString(), QStringLiteral("b"), QStringLiteral("c ") };
    EXPECT_EQ(linesOf("a\n\nb\nc "), expected);
    EXPECT_EQ(linesOf("a\r\n\r\nb\r\nc \r\n"), expected);
    EXPECT_EQ(linesOf("a\r\rb\rc \r"), expected);
}

TEST_F(ReadFile, LeavesOutEmptyLinesOnRequest)
{
    EXPECT_EQ(linesOf("\na\n\nb\n", true), QStringList({ QStringLiteral("a"), QStringLiteral("b") }));
}

TEST_F(ReadFile, GivesNoLineForAnEmptyFile)
{
    EXPECT_EQ(linesOf(""), QStringList());
}

TEST_F(ReadFile, RefusesWhatIsNoReadableFile)
{
    for (QString file : { m_folder.path(), path("missing.csv"), QStringLiteral("/dev/zero"), QString() }) {
        QList<QString> lines { QStringLiteral("old") };
        EXPECT_FALSE(TC::QReadFile(file, lines, false)) << file.toStdString();
        EXPECT_TRUE(lines.isEmpty());
    }
}

TEST_F(ReadFile, RefusesAFileWithoutReadPermission)
{
    ON_UNIX_ALONE("permissions are of another kind");
    QString file = test::writeFile(path("locked.csv"), "600000");
    QFile::setPermissions(file, {});
    QFile::setPermissions(m_folder.path(), QFile::Permissions(0x7755)); // others may enter
    ASSERT_TRUE(test::becomeStranger()); // the administrator may read everything
    QList<QString> lines;
    const bool wasRead = TC::QReadFile(file, lines, false);
    test::becomeOneself();
    EXPECT_FALSE(wasRead);
    EXPECT_TRUE(lines.isEmpty());
}

TEST_F(ReadFile, RefusesMoreThanTwoMillionLines)
{
    QString file = test::writeFile(path("many.csv"), QByteArray(2'000'000, '\n'));
    QList<QString> lines;
    EXPECT_TRUE(TC::QReadFile(file, lines, false));
    EXPECT_EQ(lines.size(), 2'000'000);
    test::writeFile(file, QByteArray(2'000'001, '\n'));
    EXPECT_FALSE(TC::QReadFile(file, lines, false));
    EXPECT_TRUE(lines.isEmpty());
}

TEST_F(ReadFile, RefusesMoreThan64MiB)
{
    QFile file(path("large.csv"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_TRUE(file.resize(64 * 1024 * 1024 + 1));
    file.close();
    QString name = file.fileName();
    QList<QString> lines;
    EXPECT_FALSE(TC::QReadFile(name, lines, false));
}
