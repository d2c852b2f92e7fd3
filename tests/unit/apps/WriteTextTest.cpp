#include "apps/chart/TextExport.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>
#include <string>
#include <sys/resource.h>

namespace {

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

/// Files that grow no further than a size, as on a disk that is full.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes)
        : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_former);
        const rlimit limit { bytes, m_former.rlim_max };
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_former);
        std::signal(SIGXFSZ, m_handler);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit m_former {};
    void (*m_handler)(int);
};

class WriteText : public testing::Test
{
protected:
    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("out.csv"));
};

} // namespace

TEST_F(WriteText, WritesTheBytesAsTheyAre)
{
    EXPECT_EQ(chart::writeText(path, "时间,a\n"), QString());
    EXPECT_EQ(contentOf(path), QByteArray("时间,a\n"));
}

TEST_F(WriteText, ReplacesAnOlderFile)
{
    chart::writeText(path, "a long first text");
    EXPECT_EQ(chart::writeText(path, "second"), QString());
    EXPECT_EQ(contentOf(path), QByteArray("second"));
}

TEST_F(WriteText, NamesTheFileThatItCannotOpen)
{
    const QString nowhere = folder.filePath(QStringLiteral("none/out.csv"));
    EXPECT_TRUE(chart::writeText(nowhere, "x").contains(nowhere));
}

TEST_F(WriteText, LeavesTheOldFileAloneWhenTheDiskIsFull)
{
    ASSERT_EQ(chart::writeText(path, "first"), QString());
    const std::string large(1 << 20, 'x');
    {
        const FullDisk disk(64 * 1024);
        const QString failure = chart::writeText(path, large);
        EXPECT_TRUE(failure.contains(path));
        EXPECT_FALSE(failure.contains(QLatin1Char('\n')));
    }
    EXPECT_EQ(contentOf(path), QByteArray("first"));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList(QStringLiteral("out.csv")));
}
