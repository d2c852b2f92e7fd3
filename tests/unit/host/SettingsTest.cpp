// SPDX-License-Identifier: MIT
#include "host/TC/CAppConfig.h"
#include "host/TC/Folders.h"
#include "host/embedded/EmbeddedHost.h"
#include "host/utils/CSingletonT.h"
#include "tests/support/Trace.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

TEST(AppConfig, IsOfNoClientTypeByDefault)
{
    const auto* config = utils::CSingletonT<TC::CAppConfig>::instance();
    for (int type = 0; type < 5; ++type)
        EXPECT_FALSE(config->isClientType(type)) << type;
    TC::embedded::setClientType(3);
    EXPECT_TRUE(config->isClientType(3));
    EXPECT_FALSE(config->isClientType(2));
    TC::embedded::reset();
    EXPECT_FALSE(config->isClientType(3));
}

TEST(Folders, ExistBelowTheHomeThatTheEnvironmentNames)
{
    const QString home = qEnvironmentVariable("INDICATORUI_HOME");
    EXPECT_EQ(TC::getConfigDir(), home + QStringLiteral("/config"));
    EXPECT_EQ(TC::getUserRootDir(), home + QStringLiteral("/user"));
    EXPECT_TRUE(QDir(TC::getConfigDir()).exists());
    EXPECT_TRUE(QDir(TC::getUserRootDir()).exists());
}

TEST(Folders, CanBeChosen)
{
    const QTemporaryDir folder;
    TC::embedded::setConfigDir(folder.filePath(QStringLiteral("c")));
    TC::embedded::setUserRootDir(folder.filePath(QStringLiteral("u")));
    EXPECT_EQ(TC::getConfigDir(), folder.filePath(QStringLiteral("c")));
    EXPECT_TRUE(QDir(TC::getUserRootDir()).exists());
}
