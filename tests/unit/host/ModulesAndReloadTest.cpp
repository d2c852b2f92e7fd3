// SPDX-License-Identifier: MIT
#include "host/embedded/EmbeddedHost.h"
#include "host/luawrapper/LuaModuleCtrl.h"
#include "host/se/LoadConfig.h"
#include "host/utils/CSingletonT.h"

#include <gtest/gtest.h>

namespace {

const QStringList kPath { QStringLiteral("outer"), QStringLiteral("inner") };

bool checkModule(bool fallback)
{
    return utils::CSingletonT<luawrapper::LuaModuleCtrl>::instance()->checkModule(kPath, fallback);
}

TEST(ModuleRights, UnknownRightAnswersTheFallback)
{
    EXPECT_TRUE(checkModule(true));
    EXPECT_FALSE(checkModule(false));
}

TEST(ModuleRights, SetRightOverridesTheFallbackUntilReset)
{
    TC::embedded::setModuleRight(kPath, false);
    EXPECT_FALSE(checkModule(true));
    TC::embedded::reset();
    EXPECT_TRUE(checkModule(true));
}

TEST(EngineReload, ReceiverMayReplaceItselfWhileItIsCalled)
{
    int calls = 0;
    TC::embedded::setReloadReceiver([&](auto&&...) {
        ++calls;
        TC::embedded::setReloadReceiver(nullptr);
    });
    se::loadConfig("root", "configFormula", "");
    se::loadConfig("root", "configFormula", "");
    EXPECT_EQ(calls, 1);
}

} // namespace
