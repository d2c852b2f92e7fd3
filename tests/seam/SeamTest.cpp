// SPDX-License-Identifier: MIT
/// @file The library over a second host: nothing of the embedded default is linked here.

#include "dock/IIndexDockableWidget.h"
#include "draw/CDrawStyle.h"
#include "dock/IndexTitle.h"
#include "recovery/CRecoveryVersionManager.h"

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>

#include <gtest/gtest.h>

TEST(Seam, PaintsInTheColoursOfAnotherHost)
{
    TC::RPCFormulaResultCache cache;
    cache.meta.outputCount = 1;
    cache.meta.outputNames = { "line" };
    cache.meta.outputColumns = { { 0 } };
    cache.meta.drawType = cache.meta.color = cache.meta.colorSet = { 0 };
    cache.meta.lineWidth = { 1 };
    cache.result.barTimes.resize(2);
    cache.result.barValid = { 1, 1 };
    cache.result.columnSeries = cache.result.columnType = { 0 };
    cache.result.columnNeedsAxis = { 1 };
    cache.result.numberSeries = { { 5.0, 5.0 } };

    QImage image(40, 20, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    QPainter painter(&image);
    QRect pane(0, 0, 40, 20);
    TC::CDrawStyle().drawSimpleLine(&painter, pane, cache, { 10.0, 0.0 }, Qt::SolidLine, 0, 0, 1, 2, 0, true,
                                    false, 1.0f, false, true);
    painter.end();
    EXPECT_EQ(image.pixelColor(10, 14), QColor(Qt::black));
    EXPECT_EQ(image.pixelColor(10, 9), QColor(255, 0, 255)); // 19 - 5 * 2
}

TEST(Seam, AsksAnotherHostForTitlesAndWidgets)
{
    EXPECT_EQ(TC::indexTitle(QStringLiteral("messagePanel"), 3), QStringLiteral("消息面板 (3)"));
    TC::IIndexDockableWidget panel(false, 0, QStringLiteral("starryPanel"), nullptr);
    EXPECT_TRUE(panel.isSimpleHeaderTitle());
}

TEST(Seam, BackupFolderIsNotMadeInAConfigurationFolderThatIsMissing)
{
    const QTemporaryDir home;
    qputenv("SEAM_CONFIG_DIR", home.filePath(QStringLiteral("missing")).toUtf8());
    TC::CRecoveryVersionManager manager;
    manager.backUp();
    EXPECT_FALSE(manager.init());
    qunsetenv("SEAM_CONFIG_DIR");
    EXPECT_TRUE(QDir(home.path()).isEmpty());
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
