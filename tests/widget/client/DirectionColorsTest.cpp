// SPDX-License-Identifier: MIT
/// @file Green for rises in place of red, switched while the window is open.

#include "apps/client/lists/QuoteList.h"
#include "host/WB/SkinLookup.h"
#include "tests/widget/client/ClientWindow.h"
#include "title/CIndexTitleWidget.h"

using test::ClientWindow;

namespace {

int pixelsOf(const QColor& color, QWidget* widget)
{
    const QImage image = widget->grab().toImage().convertToFormat(QImage::Format_RGB32);
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        count += static_cast<int>(std::count(line, line + image.width(), color.rgb()));
    }
    return count;
}

/// Pixels of a colour in each part of the page.
std::vector<int> countsIn(const std::vector<QWidget*>& parts, const QColor& color)
{
    std::vector<int> counts;
    for (QWidget* part : parts)
        counts.push_back(pixelsOf(color, part));
    return counts;
}

/// With Qt 6 the text of the last price's tag leaves more or less of its ground, as it blends with the one
/// colour or the other.
void expectNear(const std::vector<int>& counts, const std::vector<int>& wanted)
{
    constexpr double tagText = QT_VERSION_MAJOR < 6 ? 0.0 : 5.0; // pixels
    for (std::size_t part = 0; part < wanted.size(); ++part)
        EXPECT_NEAR(counts.at(part), wanted[part], tagText);
}

} // namespace

TEST_F(ClientWindow, ExchangesTheColoursOfRiseAndFallInEverySkinAtOnce)
{
    openShare();
    QAction* greenUp = m_window->findChild<QAction*>(QStringLiteral("greenUp"));
    const std::vector<QWidget*> parts { plot(0), plot(1) };
    QWidget* legend = panes()[0]->title();
    constexpr double softEdges = 0.1; // share of a legend's pixels that may come out as a colour by blending
    const QStringList skins = TC::embedded::skinNames();
    for (const QString& skin : skins) {
        SCOPED_TRACE(skin.toStdString());
        m_window->chooseSkin(skin);
        greenUp->setChecked(false);
        const QColor rise = WB::skinColor("ic_clr_kline_rise"), fall = WB::skinColor("ic_clr_kline_fall");
        const std::vector<int> rises = countsIn(parts, rise), falls = countsIn(parts, fall);
        const int legendRises = pixelsOf(rise, legend);
        EXPECT_LT(legendRises, pixelsOf(fall, legend)) << "more values of the newest bar have fallen";
        EXPECT_GT(rises[0], 100);
        EXPECT_GT(falls[1], 100);
        greenUp->setChecked(true);
        expectNear(countsIn(parts, fall), rises);
        expectNear(countsIn(parts, rise), falls);
        EXPECT_NEAR(pixelsOf(fall, legend), legendRises, softEdges * legendRises);
    }
    m_window->chooseSkin(skins.front());
    EXPECT_TRUE(greenUp->isChecked());
    EXPECT_EQ(WB::skinColor("ic_clr_kline_rise"), QColor(0x21, 0xc1, 0x7a)) << "another skin follows as well";
}

TEST_F(ClientWindow, ExchangesTheColoursOfTheQuotesToo)
{
    openShare();
    m_window->docks()->dock(QStringLiteral("quoteList"))->setAsCurrentTab();
    auto* quotes = m_window->findChild<client::QuoteList*>();
    ASSERT_NE(quotes, nullptr);
    const auto colors = [&] {
        QStringList names;
        for (int row = 0; row < quotes->model()->rowCount(); ++row)
            names << quotes->model()->index(row, 2).data(Qt::ForegroundRole).value<QColor>().name();
        return names;
    };
    const QColor rise = WB::skinColor("ic_clr_index_default_rise"),
                 fall = WB::skinColor("ic_clr_index_default_fall");
    ASSERT_TRUE(QTest::qWaitFor([&] { return !colors().contains(QColor().name()); }));
    QStringList wanted;
    for (const QString& name : colors())
        wanted << (name == rise.name() ? fall.name() : rise.name());
    m_window->findChild<QAction*>(QStringLiteral("greenUp"))->trigger();
    EXPECT_EQ(colors(), wanted);
}

TEST_F(ClientWindow, KeepsTheColoursOfRiseAndFallForTheNextRun)
{
    m_window->findChild<QAction*>(QStringLiteral("greenUp"))->trigger();
    m_window->close();
    m_window.reset();
    const QColor rise = WB::skinColor("ic_clr_kline_rise");
    const client::MainWindow next;
    EXPECT_TRUE(next.findChild<QAction*>(QStringLiteral("greenUp"))->isChecked());
    EXPECT_NE(WB::skinColor("ic_clr_kline_rise"), rise);
}
