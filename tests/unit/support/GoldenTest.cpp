// SPDX-License-Identifier: MIT
#include "tests/support/Golden.h"

#include <QFile>
#include <QTemporaryDir>

namespace {

/// Pictures are kept and compared in folders of the test's own.
class Golden : public testing::Test
{
protected:
    /// With the environment variable on, as after the explicit command.
    void keep(const QImage& image)
    {
        const QByteArray before = qgetenv(kUpdate);
        qputenv(kUpdate, "1");
        EXPECT_TRUE(test::matchesGolden(QStringLiteral("case"), image, m_folders));
        qputenv(kUpdate, before);
    }

    testing::AssertionResult compare(const QImage& image)
    {
        const QByteArray before = qgetenv(kUpdate);
        qunsetenv(kUpdate);
        const testing::AssertionResult answer = test::matchesGolden(QStringLiteral("case"), image, m_folders);
        qputenv(kUpdate, before);
        return answer;
    }

    QString result(const char* kind) const
    {
        return m_folders.results + QStringLiteral("/case.%1.png").arg(QString::fromLatin1(kind));
    }

    static constexpr const char* kUpdate = "INDICATORUI_UPDATE_GOLDEN";
    QTemporaryDir m_home;
    test::GoldenFolders m_folders { m_home.filePath(QStringLiteral("kept")),
                                    m_home.filePath(QStringLiteral("results")) };
};

} // namespace

TEST_F(Golden, AcceptsThePictureThatWasKept)
{
    const QImage picture = test::goldenCanvas(20, 10, Qt::red);
    keep(picture);
    EXPECT_TRUE(compare(picture));
    EXPECT_FALSE(QFile::exists(result("actual")));
}

TEST_F(Golden, LeavesExpectedActualAndDifferenceWhereOnePixelDiffers)
{
    QImage picture = test::goldenCanvas(20, 10, Qt::red);
    keep(picture);
    picture.setPixelColor(7, 3, QColor(254, 0, 0));
    EXPECT_FALSE(compare(picture));
    EXPECT_EQ(QImage(result("expected")).pixelColor(7, 3), QColor(255, 0, 0));
    EXPECT_EQ(QImage(result("actual")).pixelColor(7, 3), QColor(254, 0, 0));
    const QImage difference(result("difference"));
    EXPECT_EQ(difference.pixelColor(7, 3), QColor(Qt::white));
    EXPECT_EQ(difference.pixelColor(8, 3), QColor(Qt::black));
}

TEST_F(Golden, RefusesAPictureOfAnotherSize)
{
    keep(test::goldenCanvas(20, 10, Qt::red));
    EXPECT_FALSE(compare(test::goldenCanvas(21, 10, Qt::red)));
    EXPECT_EQ(QImage(result("difference")).size(), QSize(21, 10));
}

TEST_F(Golden, RefusesAPictureThatWasNeverKeptAndKeepsNone)
{
    EXPECT_FALSE(compare(test::goldenCanvas(20, 10, Qt::red)));
    EXPECT_TRUE(QFile::exists(result("actual")));
    EXPECT_FALSE(QFile::exists(m_folders.references + QStringLiteral("/case.png")));
}
