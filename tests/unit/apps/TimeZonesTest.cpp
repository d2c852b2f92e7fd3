// SPDX-License-Identifier: MIT
/// @file Sound files are drawn whatever the local clock does on their days, in every zone.

#include <QDateTime>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

struct ClockChange
{
    const char* zone;
    const char* from; ///< first of the days that are written
    const char* what;
};

constexpr ClockChange kChanges[] = {
    { "America/New_York", "2024-03-09", "an hour left out at two" },
    { "America/New_York", "2024-11-02", "an hour shown twice" },
    { "Africa/Cairo", "2024-04-25", "a day that begins at one" },
    { "Asia/Shanghai", "1986-05-03", "the first summer time" },
    { "Asia/Shanghai", "1991-09-14", "the last one's end" },
    { "Australia/Lord_Howe", "2024-10-05", "half an hour left out" },
    { "Australia/Lord_Howe", "2024-04-06", "half an hour shown twice" },
    { "Pacific/Apia", "2011-12-29", "a day left out" },
    { "Europe/London", "2024-03-30", "an hour left out at one" },
    { "Europe/London", "1968-10-26", "a winter without winter time" },
    { "UTC", "1969-12-31", "time before its count" },
};

/// Bars of three days as they are written, without a gap.
/// @param minutes  between two bars.
QByteArray barsOf(const char* from, int minutes)
{
    QByteArray text = "date,time,open,high,low,close,volume\n";
    // On a clock that never changes.
    const QDateTime start(QDate::fromString(QString::fromLatin1(from), Qt::ISODate), QTime(0, 0), Qt::UTC);
    for (int bar = 0; bar < 3 * 1440 / minutes; ++bar)
        text += start.addSecs(60 * minutes * bar).toString(QStringLiteral("yyyy-MM-dd,HH:mm")).toLatin1()
            + ",1,2,1,2,5\n";
    return text;
}

/// Draws the bars and exports them.
/// @return the exported text; what the renderer says when it refuses them.
QByteArray exported(const char* zone, const QByteArray& bars)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("bars.csv")));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bars);
    file.close();
    QFile answer(folder.filePath(QStringLiteral("out.csv")));
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("TZ"), QString::fromLatin1(zone));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(RENDER_PROGRAM),
                  { QStringLiteral("--bars"), file.fileName(), QStringLiteral("-o"),
                    folder.filePath(QStringLiteral("out.png")), QStringLiteral("--pane"),
                    QStringLiteral("KLINE"), QStringLiteral("--export"), answer.fileName(),
                    QStringLiteral("--with-time") });
    EXPECT_TRUE(process.waitForFinished(60'000));
    if (process.exitCode() != 0 || !answer.open(QIODevice::ReadOnly))
        return process.readAllStandardError();
    return answer.readAll();
}

} // namespace

TEST(TimeZones, ASoundFileIsDrawnOnDaysOnWhichTheClockChanges)
{
    for (const ClockChange& change : kChanges) {
        for (const int minutes : { 15, 1440 }) {
            const QByteArray text = exported(change.zone, barsOf(change.from, minutes));
            EXPECT_EQ(text.count('\n'), 1 + 3 * 1440 / minutes)
                << change.zone << ", " << change.what << ": " << text.left(200).constData();
        }
    }
}

TEST(TimeZones, RowsOutOfOrderAreRefusedOnSuchDaysToo)
{
    for (const ClockChange& change : kChanges) {
        const QByteArray row = "\n" + QByteArray(change.from) + ",02:";
        const QByteArray bars =
            "date,time,open,high,low,close,volume" + row + "30,1,2,1,2,5" + row + "15,1,2,1,2,5\n";
        EXPECT_TRUE(exported(change.zone, bars).contains("bars.csv:3: the date is not after the one before"))
            << change.zone;
    }
}
