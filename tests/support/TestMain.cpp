// SPDX-License-Identifier: MIT
/// @file Start of every test program: the same pictures, texts and times everywhere.

#include "host/embedded/EmbeddedHost.h"
#include "tests/support/System.h"
#include "tests/support/TestFont.h"

#include <QApplication>
#include <QFontDatabase>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

/// Every test starts from the embedded host's defaults, with the bundled font in the skin.
class FreshHost : public testing::EmptyTestEventListener
{
    void OnTestStart(const testing::TestInfo&) override
    {
        TC::embedded::reset();
        for (const char* key :
             { "fnt_index_title_text", "fnt_default", "ic_fnt_index_modulegroup_header_text",
               "ic_fnt_index_realtime_stock_title_text", "fnt_graph_axis_text" })
            TC::embedded::setFont(QString::fromLatin1(key), test::font(12));
    }
};

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_HASH_SEED", "0");
    test::setTimeZone("Asia/Shanghai");
    QLocale::setDefault(QLocale::c());

    const QTemporaryDir home;
    qputenv("INDICATORUI_HOME", home.path().toUtf8());

    QApplication application(argc, argv);
    test::blendTextsAsElsewhere();
    QApplication::setFont(test::font(12));
    testing::UnitTest::GetInstance()->listeners().Append(new FreshHost);
    return RUN_ALL_TESTS();
}
