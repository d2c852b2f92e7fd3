// SPDX-License-Identifier: MIT
#include "host/WB/CUiResource.h"
#include "host/WB/CUiResourceChangeHandler.h"
#include "host/embedded/EmbeddedHost.h"
#include "host/utils/CSingletonT.h"
#include "tests/support/System.h"
#include "tests/support/Trace.h"

#include <QFile>
#include <QFontDatabase>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

WB::CUiResource* skin()
{
    return utils::CSingletonT<WB::CUiResource>::instance();
}

class SkinFile : public testing::Test
{
protected:
    QString write(const QByteArray& json)
    {
        QFile file(m_folder.filePath(QStringLiteral("skin.json")));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(json);
        return file.fileName();
    }

    void expectRefused(const QByteArray& json, const QString& place)
    {
        const QColor before = *skin()->getColor(QStringLiteral("ic_clr_kline_rise"));
        const QString path = write(json);
        const QString failure = TC::embedded::loadSkin(path);
        EXPECT_TRUE(failure.startsWith(path + QLatin1Char(':') + place + QStringLiteral(": ")))
            << failure.toStdString();
        EXPECT_FALSE(failure.contains(QLatin1Char('\n')));
        EXPECT_EQ(*skin()->getColor(QStringLiteral("ic_clr_kline_rise")), before); // the previous skin stays
        EXPECT_EQ(TC::embedded::currentSkin(), QStringLiteral("dark"));
    }

    void expectRefusedFamily(const QByteArray& family)
    {
        EXPECT_TRUE(
            TC::embedded::loadSkin(write(R"({"colors": {}, "pictures": {}, "fonts": {"f":)"
                                         "{\"pixelSize\": 9, \"family\": "
                                         + family + "}}}"))
                .endsWith(QStringLiteral("\"f\" needs a \"family\" and a \"pixelSize\" from 1 to 200")))
            << family.toStdString();
    }

    /// Writes a picture beside the skin.
    void writePicture(const QString& name, const QByteArray& svg)
    {
        QFile file(m_folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(svg);
    }

    QString loadWithPicture(const QByteArray& svg)
    {
        writePicture(QStringLiteral("p.svg"), svg);
        const QString path = write(R"({"colors": {}, "fonts": {}, "pictures": {"p": "p.svg"}})");
        return TC::embedded::loadSkin(path).remove(m_folder.path() + QLatin1Char('/'));
    }

    QTemporaryDir m_folder;
};

QByteArray squareOf(int side)
{
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + QByteArray::number(side) + "\" height=\""
        + QByteArray::number(side) + "\"/>";
}

/// Brightness as the eye weighs it, 0 to 1.
double luminance(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// 1 for equal brightness, 21 for black on white; small text wants 4.5.
double contrast(const QColor& a, const QColor& b)
{
    const double bright = std::max(luminance(a), luminance(b)), dark = std::min(luminance(a), luminance(b));
    return (bright + 0.05) / (dark + 0.05);
}

struct CountingHandler : WB::CUiResourceChangeHandler
{
    void uiResourceChanged() override { ++changes; }
    int changes = 0;
};

} // namespace

TEST(ShippedSkins, HoldEveryKeyThatTheLibraryReads)
{
    QStringList colors { QStringLiteral("ic_clr_index_gradient1"),
                         QStringLiteral("ic_clr_index_gradient2"),
                         QStringLiteral("ic_clr_kline_rise"),
                         QStringLiteral("ic_clr_kline_fall"),
                         QStringLiteral("ic_clr_kline_highlow_line"),
                         QStringLiteral("ic_clr_realtime_colorstick"),
                         QStringLiteral("ic_clr_draw_icon"),
                         QStringLiteral("clr_default"),
                         QStringLiteral("ic_clr_index_default_rise"),
                         QStringLiteral("ic_clr_index_default_fall"),
                         QStringLiteral("clr_stock_code"),
                         QStringLiteral("clr_stock_index"),
                         QStringLiteral("ic_clr_realtime_title_account_position_text"),
                         QStringLiteral("ic_clr_graph_kline_bg"),
                         QStringLiteral("ic_clr_kline_graph_frame_border"),
                         QStringLiteral("ic_clr_modulegroup_header_stock"),
                         QStringLiteral("tc_clr_total_buyamount"),
                         QStringLiteral("tc_clr_total_sellamount"),
                         QStringLiteral("tc_clr_buyamount") };
    for (int i = 1; i <= 10; ++i)
        colors << QStringLiteral("ic_clr_index_output_var%1").arg(i);
    for (const QString& name : TC::embedded::skinNames()) {
        ASSERT_EQ(TC::embedded::loadSkin(name), QString());
        for (const QString& key : colors)
            EXPECT_NE(skin()->getColor(key), nullptr) << name.toStdString() << " " << key.toStdString();
        for (const char* key :
             { "fnt_index_title_text", "fnt_default", "ic_fnt_index_modulegroup_header_text",
               "ic_fnt_index_realtime_stock_title_text", "fnt_graph_axis_text" })
            EXPECT_NE(skin()->getFont(QString::fromLatin1(key)), nullptr) << name.toStdString() << " " << key;
        for (const char* key :
             { "ic_img_arrow_up", "ic_img_arrow_down", "img_code_gem_icon", "img_code_kcb_icon",
               "img_index_title_normal_close", "img_index_title_normal_close_a" })
            EXPECT_NE(skin()->getPixmap(QString::fromLatin1(key)), nullptr)
                << name.toStdString() << " " << key;
    }
}

TEST(ShippedSkins, AreThreeAndTheDarkOneIsTheDefault)
{
    EXPECT_EQ(TC::embedded::skinNames().size(), 3);
    EXPECT_EQ(TC::embedded::currentSkin(), QStringLiteral("dark"));
}

TEST(ShippedSkins, SetEveryTextOffAgainstTheBackground)
{
    QStringList texts { QStringLiteral("clr_default"),
                        QStringLiteral("clr_stock_code"),
                        QStringLiteral("clr_stock_index"),
                        QStringLiteral("ic_clr_modulegroup_header_stock"),
                        QStringLiteral("ic_clr_kline_rise"),
                        QStringLiteral("ic_clr_kline_fall"),
                        QStringLiteral("ic_clr_index_default_rise"),
                        QStringLiteral("ic_clr_index_default_fall"),
                        QStringLiteral("ic_clr_realtime_title_account_position_text"),
                        QStringLiteral("tc_clr_total_buyamount"),
                        QStringLiteral("tc_clr_total_sellamount"),
                        QStringLiteral("tc_clr_buyamount"),
                        QStringLiteral("clr_chart_axis_text") };
    for (int output = 1; output <= 10; ++output)
        texts << QStringLiteral("ic_clr_index_output_var%1").arg(output);
    for (const QString& name : TC::embedded::skinNames()) {
        ASSERT_EQ(TC::embedded::loadSkin(name), QString());
        const QColor background = *skin()->getColor(QStringLiteral("ic_clr_graph_kline_bg"));
        for (const QString& text : texts)
            EXPECT_GE(contrast(*skin()->getColor(text), background), 4.5)
                << name.toStdString() << ": " << text.toStdString();
    }
}

TEST(Skin, AnswersNullForKeysThatItDoesNotHold)
{
    EXPECT_EQ(skin()->getColor(QStringLiteral("none")), nullptr);
    EXPECT_EQ(skin()->getFont(QStringLiteral("none")), nullptr);
    EXPECT_EQ(skin()->getPixmap(QStringLiteral("none")), nullptr);
}

TEST(Skin, IsEmptyAfterItWasCleared)
{
    TC::embedded::clearSkin();
    EXPECT_EQ(skin()->getColor(QStringLiteral("ic_clr_kline_rise")), nullptr);
    TC::embedded::setColor(QStringLiteral("ic_clr_kline_rise"), Qt::blue);
    EXPECT_EQ(*skin()->getColor(QStringLiteral("ic_clr_kline_rise")), QColor(Qt::blue));
}

TEST(Skin, TellsItsHandlersOfEveryChangeUntilTheyAreGone)
{
    auto handler = std::make_unique<CountingHandler>();
    TC::embedded::loadSkin(QStringLiteral("light"));
    TC::embedded::setColor(QStringLiteral("clr_default"), Qt::red);
    TC::embedded::removeSkinKey(QStringLiteral("clr_default"));
    EXPECT_EQ(handler->changes, 3);
    handler.reset();
    TC::embedded::loadSkin(QStringLiteral("dark"));
}

TEST_F(SkinFile, ReplacesTheWholeSkin)
{
    const QString path = write(R"({"name": "mine", "colors": {"clr_default": "#80ff0000"},
        "fonts": {"fnt_default": {"family": "Sans", "pixelSize": 15, "bold": true}}, "pictures": {}})");
    ASSERT_EQ(TC::embedded::loadSkin(path), QString());
    EXPECT_EQ(TC::embedded::currentSkin(), QStringLiteral("mine"));
    EXPECT_EQ(*skin()->getColor(QStringLiteral("clr_default")), QColor(255, 0, 0, 128));
    EXPECT_EQ(skin()->getFont(QStringLiteral("fnt_default"))->pixelSize(), 15);
    EXPECT_EQ(skin()->getColor(QStringLiteral("ic_clr_kline_rise")), nullptr);
}

TEST_F(SkinFile, NamesThePlaceOfASyntaxError)
{
    expectRefused("{\n  \"colors\": {,}\n}\n", QStringLiteral("2:14")); // the comma
}

TEST_F(SkinFile, NamesThePlaceOfABadColour)
{
    expectRefused(
        "{\n \"colors\": {\n  \"a\": \"#fff\",\n  \"b\": \"reddish\"\n },\n \"fonts\": {}, \"pictures\": {}}",
        QStringLiteral("4:3"));
}

TEST_F(SkinFile, NamesThePlaceOfABadFont)
{
    expectRefused("{\"colors\": {},\n \"fonts\": {\"f\": {\"family\": \"x\"}}, \"pictures\": {}}",
                  QStringLiteral("2:12"));
}

TEST_F(SkinFile, NamesThePlaceOfAMissingPicture)
{
    expectRefused("{\"colors\": {}, \"fonts\": {},\n \"pictures\": {\"p\": \"none.svg\"}}",
                  QStringLiteral("2:15"));
}

TEST_F(SkinFile, NamesThePlaceOfTheFaultAndNotOfTheSameWordElsewhere)
{
    expectRefused(R"({
  "name": "fonts",
  "colors": {
    "fnt_default": "#ffffff", "pictures": "#000000"
  },
  "fonts": {
    "pictures": { "family": "fnt_default", "pixelSize": 9 },
    "fnt_default": { "family": "Sans", "pixelSize": 0 }
  },
  "pictures": {}
})",
                  QStringLiteral("8:5"));
    expectRefused(R"({ "name": "pictures", "colors": { "pictures": "#fff" }, "fonts": {},
  "pictures": 1 })",
                  QStringLiteral("2:3"));
    expectRefused(
        R"({ "a": "\"colors\": ", "fonts": {}, "pictures": {}, "colors": { "a/b": "", "a": "red" } })",
        QStringLiteral("1:65"));
}

TEST_F(SkinFile, OfNoEndOrOfNoOrdinaryKindIsRefused)
{
    ON_UNIX_ALONE("pipes and devices stand in no folder");
    const QColor before = *skin()->getColor(QStringLiteral("clr_default"));
    EXPECT_EQ(TC::embedded::loadSkin(QStringLiteral("/dev/zero")),
              QStringLiteral("/dev/zero:1:1: is no ordinary file"));
    const QString pipe = m_folder.filePath(QStringLiteral("pipe\n.json"));
    ASSERT_TRUE(test::makePipe(pipe));
    EXPECT_EQ(TC::embedded::loadSkin(pipe),
              m_folder.filePath(QStringLiteral("pipe?.json:1:1: is no ordinary file")));
    EXPECT_TRUE(
        TC::embedded::loadSkin(m_folder.path()).endsWith(QStringLiteral(":1:1: is no ordinary file")));
    EXPECT_TRUE(TC::embedded::loadSkin(write(QByteArray(1024 * 1024 + 1, ' ')))
                    .endsWith(QStringLiteral(":1:1: is larger than 1048576 bytes")));
    EXPECT_EQ(*skin()->getColor(QStringLiteral("clr_default")), before);
}

TEST_F(SkinFile, TakesTheFirstFontFamilyThatTheMachineHas)
{
    const QString known =
        QFontDatabase().families().value(0).section(QStringLiteral(" ["), 0, 0); // no foundry
    ASSERT_FALSE(known.isEmpty());
    const QString entry = QStringLiteral(R"({"colors": {}, "pictures": {}, "fonts": {
        "list": {"family": ["No Such Family", "", "%1", "Sans"], "pixelSize": 9},
        "none": {"family": ["No Such Family", "Nor This One"], "pixelSize": 9}}})")
                              .arg(known);
    ASSERT_EQ(TC::embedded::loadSkin(write(entry.toUtf8())), QString());
    EXPECT_EQ(skin()->getFont(QStringLiteral("list"))->family(), known);
    EXPECT_EQ(skin()->getFont(QStringLiteral("none"))->family(), QStringLiteral("No Such Family"));
    expectRefusedFamily("[]");
    expectRefusedFamily("7");
    expectRefusedFamily("[7]");
}

TEST_F(SkinFile, PicturesAreOfAtMost512PixelsASide)
{
    EXPECT_EQ(loadWithPicture(squareOf(512)), QString());
    EXPECT_EQ(skin()->getPixmap(QStringLiteral("p"))->size(), QSize(1536, 1536));
    EXPECT_EQ(loadWithPicture(squareOf(513)),
              QStringLiteral(
                  "skin.json:1:42: \"p\" names a picture of 513 x 513 pixels; 1 to 512 a side are possible"));
    EXPECT_EQ(
        loadWithPicture(squareOf(300000)),
        QStringLiteral("skin.json:1:42: \"p\" names a picture of 300000 x 300000 pixels; 1 to 512 a side are "
                       "possible"));
    EXPECT_TRUE(loadWithPicture(squareOf(0)).contains(QStringLiteral("names a picture of 0 x 0 pixels")));
    EXPECT_TRUE(loadWithPicture(squareOf(9) + QByteArray(1024 * 1024, ' '))
                    .contains(QStringLiteral("does not name a readable SVG file")));
}

TEST_F(SkinFile, PicturesTogetherAreBounded)
{
    writePicture(QStringLiteral("p.svg"), squareOf(512));
    QByteArray pictures;
    for (int picture = 10; picture < 24; ++picture) // 14 * 1536 * 1536 pixels = 31.5 Mi
        pictures += "\"p" + QByteArray::number(picture) + "\": \"p.svg\",\n";
    const QByteArray before = R"({"colors": {}, "fonts": {}, "pictures": {)"
                              "\n";
    EXPECT_EQ(TC::embedded::loadSkin(write(before + pictures.chopped(2) + "}}")), QString());
    TC::embedded::loadSkin(QStringLiteral("dark"));
    expectRefused(before + pictures + "\"p24\": \"p.svg\"}}", QStringLiteral("16:1"));
}

TEST_F(SkinFile, MustHaveEverySection)
{
    expectRefused("{\"colors\": {}, \"fonts\": {}}", QStringLiteral("1:1"));
    expectRefused("[]", QStringLiteral("1:1"));
    expectRefused("", QStringLiteral("1:1"));
}

TEST_F(SkinFile, CountsColumnsInCharacters)
{
    expectRefused("{\"名字\": \"色\", \"colors\": {\"b\": 1}, \"fonts\": {}, \"pictures\": {}}",
                  QStringLiteral("1:24"));
}

TEST_F(SkinFile, ThatDoesNotExistIsNamed)
{
    const QString failure = TC::embedded::loadSkin(m_folder.filePath(QStringLiteral("none.json")));
    EXPECT_TRUE(failure.contains(QStringLiteral("none.json:1:1: "))) << failure.toStdString();
}
