// SPDX-License-Identifier: MIT
/// @file The pictures of the documentation show what the programs draw, and are all there.

#include "tests/support/System.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

const QString kDocs = QStringLiteral(DOCS_DIR);

QString page(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

} // namespace

TEST(DocumentPictures, TheFirstChartIsWhatTheRendererDrawsNow)
{
    ON_UNIX_ALONE("a Python program makes the pictures, with the edges of glyphs of Linux");
    if (QT_VERSION >= QT_VERSION_CHECK(6, 0, 0))
        GTEST_SKIP() << "the documentation shows texts as Qt 5 paints them; the golden pictures hold Qt 6's";
    const QTemporaryDir folder;
    QProcess script;
    script.setProcessChannelMode(QProcess::MergedChannels);
    script.start(QStringLiteral("python3"),
                 { kDocs + QStringLiteral("/make_pictures.py"), QStringLiteral("--into"), folder.path(),
                   QStringLiteral(RENDER_PROGRAM), QStringLiteral("chart") });
    ASSERT_TRUE(script.waitForFinished(120'000)) << script.errorString().toStdString();
    ASSERT_EQ(script.exitCode(), 0) << script.readAll().toStdString();
    const QImage drawn(folder.filePath(QStringLiteral("chart.png")));
    ASSERT_FALSE(drawn.isNull());
    EXPECT_TRUE(drawn == QImage(kDocs + QStringLiteral("/chart.png")))
        << "docs/chart.png is out of date: look at what ./dev pictures makes, and keep it";
}

TEST(DocumentPictures, AreTheOnesThatThePagesShow)
{
    static const QRegularExpression link(QStringLiteral("!\\[[^\\]]*\\]\\(([^)]*)\\)"));
    QSet<QString> shown;
    for (auto found = link.globalMatch(page(kDocs + QStringLiteral("/formulas.md"))); found.hasNext();)
        shown.insert(found.next().captured(1));
    EXPECT_GT(shown.size(), 40);

    const QDir docs(kDocs);
    QSet<QString> kept;
    for (const char* folder : { "formulas", "formulas/functions" }) {
        const QString below = QString::fromLatin1(folder);
        for (const QString& name : QDir(docs.filePath(below)).entryList({ QStringLiteral("*.png") }))
            kept.insert(below + QLatin1Char('/') + name);
    }
    EXPECT_EQ(kept, shown);
    EXPECT_TRUE(
        page(docs.filePath(QStringLiteral("../README.md"))).contains(QStringLiteral("(docs/chart.png)")));
}
