// SPDX-License-Identifier: MIT
/// @file The examples of the reference: the skin and the widgets of the client's platform.

#include "host/WB/CBaseWidget.h"
#include "host/WB/CPushButton.h"
#include "host/WB/CSimpleText.h"
#include "host/WB/CUiResource.h"
#include "host/WB/IDockableWidget.h"
#include "host/WB/StripEvents.h"
#include "host/embedded/SkinSetup.h"
#include "host/utils/CSingletonT.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace {

//! [CUiResourceChangeHandler]
/// Keeps what it made of the skin until the skin changes.
class Background : public WB::CUiResourceChangeHandler
{
public:
    void uiResourceChanged() override { m_color = QColor(); }
    QColor color()
    {
        if (!m_color.isValid()) {
            const auto* skin = utils::CSingletonT<WB::CUiResource>::instance();
            const QColor* found = skin->getColor(QStringLiteral("ic_clr_graph_kline_bg"));
            m_color = found ? *found : QColor(Qt::black);
        }
        return m_color;
    }

private:
    QColor m_color;
};
//! [CUiResourceChangeHandler]

//! [CEventWidgetT]
/// A page that hears of clicks on the strips in it.
class Page : public WB::CEventWidgetT<QWidget>
{
public:
    bool handleDeliveredEvent(int id, const QString&, void*) override
    {
        m_presses += id == WB::EStripEvent_Pressed;
        return true;
    }
    int presses() const { return m_presses; }

private:
    int m_presses = 0;
};
//! [CEventWidgetT]

} // namespace

TEST(WidgetExamples, TheSkinIsAskedAgainOnceItChanges)
{
    Background background;
    background.color();
    //! [CUiResource]
    TC::embedded::setColor(QStringLiteral("ic_clr_graph_kline_bg"),
                           Qt::darkBlue); // every handler hears of it
    const QColor* color =
        utils::CSingletonT<WB::CUiResource>::instance()->getColor(QStringLiteral("ic_clr_graph_kline_bg"));
    //! [CUiResource]
    ASSERT_NE(color, nullptr);
    EXPECT_EQ(background.color(), *color);
    EXPECT_EQ(*color, QColor(Qt::darkBlue));
}

TEST(WidgetExamples, AWidgetSendsEventsToThePageAroundIt)
{
    Page page;
    //! [CBaseWidget]
    auto* strip = new WB::CBaseWidget(QStringLiteral("strip"), true, &page);
    const bool isHandled = strip->deliverEvent(WB::EStripEvent_Pressed, QString()); // by the page
    //! [CBaseWidget]
    EXPECT_TRUE(isHandled);
    EXPECT_EQ(page.presses(), 1);
}

TEST(WidgetExamples, AButtonShowsAPictureOfTheSkin)
{
    QWidget strip;
    //! [CPushButton]
    auto* close = new WB::CPushButton(QStringLiteral("img_index_title_normal_close"),
                                      WB::CPushButton::kPictureOnly, &strip);
    close->setImageKey(QStringLiteral("img_index_title_normal_close_a")); // of the active strip
    //! [CPushButton]
    EXPECT_EQ(close->imageKey(), QStringLiteral("img_index_title_normal_close_a"));
}

TEST(WidgetExamples, ATextIsPaintedInTheSkinsColourAndFont)
{
    QImage image(80, 20, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    QPainter painter(&image);
    TC::embedded::setColor(QStringLiteral("clr_stock_index"), Qt::white);
    //! [CSimpleText]
    const WB::CSimpleText text(QStringLiteral("MACD"), QStringLiteral("clr_stock_index"),
                               QStringLiteral("fnt_index_title_text"));
    const QSize size = WB::CSimpleText::getSize(text.text(), QStringLiteral("fnt_index_title_text"));
    text.drawText(&painter, 4, 0, size.width(), 16, Qt::AlignVCenter, false, false);
    //! [CSimpleText]
    EXPECT_GT(size.width(), 0);
    EXPECT_EQ(*text.color(), QColor(Qt::white));
}

TEST(WidgetExamples, ADockKnowsItsPanel)
{
    //! [IDockableWidget]
    WB::IDockableWidget panel(true, QStringLiteral("notes"), QStringLiteral("Notes"), nullptr, 0);
    const QString& tab = panel.title();
    const bool mayBeClosed = panel.isCloseEnable();
    //! [IDockableWidget]
    EXPECT_EQ(tab, QStringLiteral("Notes"));
    EXPECT_TRUE(mayBeClosed);
}
