// SPDX-License-Identifier: MIT
/// @file The first chart that the programs show, composed of all its parts.

#include "apps/chart/ChartPicture.h"
#include "apps/render/ChartLoader.h"
#include "draw/CDrawStyle.h"
#include "host/embedded/EmbeddedHost.h"
#include "tests/support/Golden.h"
#include "tests/support/TestFont.h"

#include <QPainter>

#include <string>
#include <tuple>

namespace {

/// A shipped skin with a font of the tests.
void loadSkin(const QString& name, QFont (*font)(int pixelSize))
{
    ASSERT_EQ(TC::embedded::loadSkin(name), QString());
    QFont heading = font(13);
    heading.setBold(true);
    TC::embedded::setFont(QStringLiteral("ic_fnt_index_modulegroup_header_text"), heading);
    for (const char* key : { "fnt_index_title_text", "fnt_default", "ic_fnt_index_realtime_stock_title_text",
                             "fnt_graph_axis_text" })
        TC::embedded::setFont(QString::fromLatin1(key), font(12));
    TC::CDrawStyle::resetDrawStyleColor();
}

QImage paintFirstChart(int ratio)
{
    render::Options options;
    options.bars = QStringLiteral(SAMPLES_DIR "/bars/SH600030.csv");
    options.count = 120;
    options.size = QSize(760, 480);
    base::Result<render::LoadedChart> chart = render::loadChart(options);
    EXPECT_TRUE(chart.isGood());
    if (!chart.isGood())
        return {};
    QImage image =
        test::goldenCanvas(options.size.width() * ratio, options.size.height() * ratio, Qt::magenta);
    image.setDevicePixelRatio(ratio);
    QPainter painter(&image);
    chart::paintChart(painter, chart->picture, options.size);
    return image;
}

/// Skin and device pixels per pixel.
class FirstChart : public testing::TestWithParam<std::tuple<const char*, int>>
{
};

} // namespace

TEST_P(FirstChart, ShowsCandlesVolumeAndMacdWithLegendsAndAxes)
{
    const auto [skin, ratio] = GetParam();
    loadSkin(QString::fromLatin1(skin), test::font);
    const QString name =
        QStringLiteral("first_chart_%1%2")
            .arg(QString::fromLatin1(skin), ratio == 1 ? QString() : QStringLiteral("_dense"));
    EXPECT_TRUE(test::matchesGolden(name, paintFirstChart(ratio)));
}

/// Lines, candles, sticks, arrows and axes alone, which every version of Qt paints alike.
TEST(FirstChartWithoutTexts, IsTheSameToTheByte)
{
    loadSkin(QStringLiteral("dark"), test::blankFont);
    EXPECT_TRUE(test::matchesGolden(QStringLiteral("first_chart_without_texts"), paintFirstChart(1)));
    EXPECT_TRUE(test::matchesGolden(QStringLiteral("first_chart_without_texts_dense"), paintFirstChart(2)));
}

INSTANTIATE_TEST_SUITE_P(InEverySkin, FirstChart,
                         testing::Combine(testing::Values("dark", "light", "colorblind"),
                                          testing::Values(1, 2)),
                         [](const auto& shown) {
                             return std::string(std::get<0>(shown.param)) + "_at_"
                                 + std::to_string(std::get<1>(shown.param));
                         });
