// SPDX-License-Identifier: MIT
#include "title/CIndexTitleWidget.h"

#include "host/TC/UiParams.h"
#include "host/WB/CPushButton.h"
#include "host/WB/SkinLookup.h"
#include "tests/support/Pane.h"
#include "tests/support/Strip.h"
#include "tests/support/Trace.h"

#include <boost/make_shared.hpp>

#include <QApplication>
#include <QDateTime>
#include <QSignalSpy>
#include <QPainter>
#include <QSet>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <climits>

using test::FormulaBuilder;

namespace {

/// Keeps the host events that reach the pane.
class Pane : public WB::CEventWidgetT<QWidget>
{
public:
    bool handleDeliveredEvent(int id, const QString& text, void* pointer) override
    {
        events.append(id);
        EXPECT_TRUE(text.isEmpty());
        EXPECT_EQ(pointer, nullptr);
        return true;
    }
    QList<int> events;
};

TC::RPCFormulaResultCache outputs(int count, const char* name = "output")
{
    FormulaBuilder builder;
    for (int output = 0; output < count; ++output)
        builder.output(name, 0, { { 1.0, 2.0, 3.0 } });
    return builder.build();
}

class TitleWidget : public testing::Test
{
protected:
    void SetUp() override
    {
        TC::embedded::setColor(QStringLiteral("ic_clr_graph_kline_bg"), background);
        TC::embedded::setColor(QStringLiteral("clr_stock_index"), Qt::white);
        TC::embedded::setColor(QStringLiteral("clr_stock_code"), Qt::white);
    }

    /// Whether anything but background stands in a part of a picture (logical pixels).
    bool hasInk(const QImage& image, const QRect& part) const
    {
        const double ratio = image.devicePixelRatioF();
        for (int y = qRound(part.top() * ratio); y < qRound((part.bottom() + 1) * ratio); ++y) {
            for (int x = qRound(part.left() * ratio); x < qRound((part.right() + 1) * ratio); ++x) {
                if (image.valid(x, y) && image.pixelColor(x, y) != background)
                    return true;
            }
        }
        return false;
    }
    /// Last column (device pixels) with ink; -1 without any.
    int lastInk(const QImage& image) const
    {
        for (int x = image.width() - 1; x >= 0; --x) {
            for (int y = 0; y < image.height(); ++y) {
                if (image.pixelColor(x, y) != background)
                    return x;
            }
        }
        return -1;
    }

    const QColor background { 20, 23, 28 };
    test::Pane data;
    test::Instrument stock = test::instrument("SH", "600000", "浦发银行", 0.01);
};

} // namespace

TEST_F(TitleWidget, IsOneRowHighAndNamed)
{
    test::Strip strip(&data, 1, 0, 2);
    EXPECT_EQ(strip.objectName(), QStringLiteral("index_title_widget"));
    EXPECT_EQ(strip.height(), 16);
    EXPECT_EQ(strip.titleHeight(), 16);
}

TEST_F(TitleWidget, HasACloseButtonInLegendStripsOutsideTheQuoteView)
{
    EXPECT_NE(test::Strip(&data, 1, 0, 2).closeButton(), nullptr);
    EXPECT_NE(test::Strip(&data, 7, 0, 2).closeButton(), nullptr);
    EXPECT_EQ(test::Strip(&data, 0, 0, 2).closeButton(), nullptr);
    EXPECT_EQ(test::Strip(&data, 1, 3, 2).closeButton(), nullptr);
    EXPECT_EQ(test::Strip(&data, 1, 0, 2).closeButton()->imageKey(),
              QStringLiteral("img_index_title_normal_close"));
}

TEST_F(TitleWidget, AResizePlacesTheCloseButton)
{
    test::Strip strip(&data, 1, 0, 2);
    strip.picture(300, 16);
    EXPECT_EQ(strip.closeButton()->geometry(), QRect(283, 0, 12, 12));
    strip.picture(500, 16);
    EXPECT_EQ(strip.closeButton()->geometry(), QRect(483, 0, 12, 12));
}

TEST_F(TitleWidget, TheCloseButtonIsClickedHighlightedAndHidden)
{
    Pane pane;
    test::Strip strip(&data, 1, 0, 2, 0, &pane);
    strip.picture(300, 16);
    pane.resize(300, 100);
    pane.show();
    QSignalSpy clicked(strip.closeButton(), SIGNAL(clicked()));
    QTest::mouseClick(strip.closeButton(), Qt::LeftButton);
    EXPECT_EQ(clicked.size(), 1);
    EXPECT_TRUE(pane.events.isEmpty());

    strip.highlightTitleWidget(true);
    EXPECT_EQ(strip.closeButton()->imageKey(), QStringLiteral("img_index_title_normal_close_a"));
    strip.setShowTitleBg(false);
    EXPECT_EQ(strip.closeButton()->imageKey(), QStringLiteral("img_index_title_normal_close"));
    strip.setShowTitleBg(true);
    EXPECT_EQ(strip.closeButton()->imageKey(), QStringLiteral("img_index_title_normal_close_a"));

    strip.setCloseBtnVisible(false);
    EXPECT_FALSE(strip.closeButton()->isVisible());
    strip.setCloseBtnVisible(true);
    EXPECT_TRUE(strip.closeButton()->isVisible());
}

TEST_F(TitleWidget, AStripWithoutButtonIgnoresButtonCalls)
{
    test::Strip strip(&data, 0, 0, 0);
    strip.setCloseBtnVisible(true);
    strip.highlightTitleWidget(true);
    strip.setShowTitleBg(true);
    EXPECT_EQ(strip.closeButton(), nullptr);
}

TEST_F(TitleWidget, APressSendsEvent188)
{
    for (const int displayType : { 0, 1, 7 }) {
        Pane pane;
        test::Strip strip(&data, displayType, 0, 2, 0, &pane);
        strip.resize(300, 16);
        QTest::mousePress(&strip, Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
        EXPECT_EQ(pane.events, QList<int>({ 188 })) << displayType;
    }
}

TEST_F(TitleWidget, ADoubleClickOnALegendSendsEvent213InTheFirstTwoViews)
{
    for (const int viewType : { 0, 1 }) {
        Pane pane;
        test::Strip strip(&data, 1, viewType, 2, 0, &pane);
        QTest::mouseDClick(&strip, Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
        EXPECT_EQ(pane.events.count(213), 1) << viewType;
    }
    for (const int viewType : { 2, 3, 6 }) {
        Pane pane;
        test::Strip strip(&data, 1, viewType, 2, 0, &pane);
        QTest::mouseDClick(&strip, Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
        EXPECT_FALSE(pane.events.contains(213)) << viewType;
    }
}

TEST_F(TitleWidget, ADoubleClickItselfOnAHeadingSendsNothing)
{
    Pane pane;
    test::Strip strip(&data, 0, 0, 0, 0, &pane);
    QMouseEvent doubleClick(QEvent::MouseButtonDblClick, QPointF(5, 5), Qt::LeftButton, Qt::LeftButton,
                            Qt::NoModifier);
    QApplication::sendEvent(&strip, &doubleClick);
    EXPECT_TRUE(pane.events.isEmpty());
}

TEST_F(TitleWidget, ADoubleClickOnALegendDoesNotPressAgain)
{
    Pane pane;
    test::Strip strip(&data, 1, 0, 2, 0, &pane);
    QMouseEvent doubleClick(QEvent::MouseButtonDblClick, QPointF(5, 5), Qt::LeftButton, Qt::LeftButton,
                            Qt::NoModifier);
    QApplication::sendEvent(&strip, &doubleClick);
    EXPECT_EQ(pane.events, QList<int>({ 213 }));
}

TEST_F(TitleWidget, WithoutDataHasNoContentHeightAndShrinksToNothing)
{
    test::Strip strip(nullptr, 1, 0, 2);
    EXPECT_EQ(strip.heightForContent(), -1);
    strip.resetSize();
    EXPECT_EQ(strip.maximumHeight(), 0);
}

TEST_F(TitleWidget, AsksForTwoRowsAtMost)
{
    test::Strip strip(&data, 1, 0, 2);
    EXPECT_EQ(strip.heightForContent(), 16);
    for (int formula = 0; formula < 6; ++formula)
        data.add(QStringLiteral("F%1").arg(formula), outputs(1));
    EXPECT_EQ(strip.heightForContent(), 32);
    strip.resetSize();
    EXPECT_EQ(strip.height(), 32);
}

TEST_F(TitleWidget, AGroupHeadingAsksForTwoRows)
{
    EXPECT_EQ(test::Strip(&data, 0, 0, 0).heightForContent(), 32);
    EXPECT_EQ(test::Strip(&data, 0, 0, 2).heightForContent(), 16);
    EXPECT_EQ(test::Strip(&data, 1, 0, 0).heightForContent(), 16);
}

TEST_F(TitleWidget, ContentHeightStaysAtTwoRowsWhileFiveAreOpen)
{
    data.add(QStringLiteral("F"), outputs(60));
    test::Strip strip(&data, 1, 0, 2);
    strip.resize(400, 16);
    strip.slotShowAllIndex();
    strip.updateTitleHeight();
    EXPECT_EQ(strip.height(), 5 * 16);
    EXPECT_EQ(strip.heightForContent(), 32);
}

TEST_F(TitleWidget, SetsItsHeightInRows)
{
    test::Strip strip(&data, 1, 0, 2);
    strip.setSubHeight(3);
    EXPECT_EQ(strip.height(), 48);
    strip.setSubHeight(0);
    EXPECT_EQ(strip.height(), 16);
    strip.setSubHeight(INT_MIN);
    EXPECT_EQ(strip.height(), 16);
    strip.setSubHeight(INT_MAX);
    EXPECT_EQ(strip.maximumHeight(), QWIDGETSIZE_MAX);
}

TEST_F(TitleWidget, CountsRowsUpToTheShownState)
{
    data.add(QStringLiteral("F"), outputs(60));
    test::Strip strip(&data, 1, 0, 2);
    EXPECT_EQ(strip.rowsIn(QRect(0, 0, 100000, 16)), 1);
    EXPECT_EQ(strip.rowsIn(QRect(0, 0, 300, 16)), 2);
    strip.slotShowAllIndex();
    EXPECT_EQ(strip.rowsIn(QRect(0, 0, 300, 16)), 5);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&strip, &leave);
    EXPECT_EQ(strip.rowsIn(QRect(0, 0, 300, 16)), 2);
}

TEST_F(TitleWidget, OnlyALegendFollowsItsRows)
{
    data.add(QStringLiteral("F"), outputs(60));
    for (const int displayType : { 0, 2, 7 }) {
        test::Strip strip(&data, displayType, 0, 2);
        strip.setStock(stock);
        strip.resize(300, 16);
        strip.updateTitleHeight();
        EXPECT_EQ(strip.height(), 16) << displayType;
    }
    test::Strip strip(&data, 1, 0, 2);
    strip.resize(300, 16);
    strip.updateTitleHeight();
    EXPECT_EQ(strip.height(), 32);
    data.clearAll();
    strip.updateTitleHeight();
    EXPECT_EQ(strip.height(), 16);
}

TEST_F(TitleWidget, AnIndentedLegendHasLessRoom)
{
    data.add(QStringLiteral("F"), outputs(1));
    const int text = WB::CSimpleText::getSize(QStringLiteral("F"), QFont()).width()
        + WB::CSimpleText::getSize(QStringLiteral("output: 3 "), QFont()).width();
    TC::embedded::removeSkinKey(QStringLiteral("ic_img_arrow_up"));
    const int gap = 30;
    // Second list: gap + 1, then gap + text for both pieces; the reserve of 50 and the indent go off.
    const int plain = gap + 1 + 2 * gap + text + 50;
    const auto rows = [&](int subViewType, int width) {
        test::Strip strip(&data, 1, 0, subViewType, gap);
        strip.resize(width, 16);
        strip.updateTitleHeight();
        return strip.height() / 16;
    };
    for (const int subViewType : { 0, 2, 3 }) {
        EXPECT_EQ(rows(subViewType, plain), 1);
        EXPECT_EQ(rows(subViewType, plain - 1), 2);
    }
    EXPECT_EQ(rows(1, plain + gap), 1);
    EXPECT_EQ(rows(1, plain + gap - 1), 2);
}

TEST_F(TitleWidget, CountsOnlyArrowsThatAreShown)
{
    data.add(QStringLiteral("F"), outputs(1));
    const int text = WB::CSimpleText::getSize(QStringLiteral("F"), QFont()).width()
        + WB::CSimpleText::getSize(QStringLiteral("output: 3 "), QFont()).width();
    test::setArrows(QSize(100, 10), QSize(10, 10)); // the last value rose
    test::Strip strip(&data, 1, 0, 2);
    EXPECT_EQ(strip.rowsIn(QRect(0, 0, 1 + text + 100, 16)), 1);
    EXPECT_EQ(strip.rowsIn(QRect(0, 0, text + 100, 16)), 2);
}

TEST_F(TitleWidget, ARestingPointerOpensFiveRowsAfterASecond)
{
    data.add(QStringLiteral("F"), outputs(60));
    test::Strip strip(&data, 1, 0, 2);
    QEnterEvent enter({}, {}, {});
    QApplication::sendEvent(&strip, &enter);
    QTest::qWait(700);
    EXPECT_EQ(strip.rowsIn(QRect(0, 0, 300, 16)), 2);
    QTest::qWait(500);
    EXPECT_EQ(strip.rowsIn(QRect(0, 0, 300, 16)), 5);
    EXPECT_EQ(strip.height(), 16); // the height follows with the next updateTitleHeight
    strip.resize(400, 16);
    strip.updateTitleHeight();
    EXPECT_EQ(strip.height(), 80);
}

TEST_F(TitleWidget, LeavingBeforeASecondOpensNothing)
{
    data.add(QStringLiteral("F"), outputs(60));
    test::Strip strip(&data, 1, 0, 2);
    QEnterEvent enter({}, {}, {});
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&strip, &enter);
    QTest::qWait(300);
    QApplication::sendEvent(&strip, &leave);
    QTest::qWait(1000);
    EXPECT_EQ(strip.rowsIn(QRect(0, 0, 300, 16)), 2);
}

TEST_F(TitleWidget, TakesItsHoverTimerAlong)
{
    class FiredTimers : public QObject
    {
    public:
        int ofASecond = 0;

    protected:
        bool eventFilter(QObject* receiver, QEvent* event) override
        {
            const auto* timer = qobject_cast<QTimer*>(receiver);
            if (event->type() == QEvent::Timer && timer && timer->interval() == 1000)
                ++ofASecond;
            return false;
        }
    } fired;
    {
        test::Strip strip(&data, 1, 0, 2);
        QEnterEvent enter({}, {}, {});
        QApplication::sendEvent(&strip, &enter);
    }
    qApp->installEventFilter(&fired);
    QTest::qWait(1200);
    EXPECT_EQ(fired.ofASecond, 0);
}

TEST_F(TitleWidget, LeavingDoesNotRedraw)
{
    data.add(QStringLiteral("F"), outputs(1));
    test::Strip strip(&data, 1, 3, 2);
    strip.setStock(stock);
    const QImage before = strip.picture(300, 16);
    data.clearAll();
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&strip, &leave);
    QImage now(before.size(), before.format());
    strip.render(&now);
    EXPECT_EQ(now, before);
    strip.updateView();
    strip.render(&now);
    EXPECT_NE(now, before);
}

TEST_F(TitleWidget, AHeadingDoesNotReactToARestingPointer)
{
    data.add(QStringLiteral("F"), outputs(60));
    test::Strip strip(&data, 0, 0, 2);
    QEnterEvent enter({}, {}, {});
    QApplication::sendEvent(&strip, &enter);
    QTest::qWait(1200);
    EXPECT_EQ(strip.rowsIn(QRect(0, 0, 300, 16)), 2);
}

TEST_F(TitleWidget, PaintsTheBackgroundAloneWithoutDataOrInstrument)
{
    data.add(QStringLiteral("F"), outputs(2));
    test::Strip without(nullptr, 1, 3, 2);
    without.setStock(stock);
    EXPECT_EQ(lastInk(without.picture(300, 16)), -1);
    test::Strip heading(nullptr, 0, 0, 0);
    heading.setStock(stock);
    EXPECT_EQ(lastInk(heading.picture(300, 32)), -1);
    test::Strip nameless(&data, 1, 3, 2);
    EXPECT_EQ(lastInk(nameless.picture(300, 16)), -1);
}

TEST_F(TitleWidget, AnInstrumentWithoutANameHasNoHeadingColumn)
{
    test::Strip strip(&data, 0, 0, 0);
    strip.setStock(test::instrument("SH", "600000", "", 0.01));
    EXPECT_EQ(lastInk(strip.picture(300, 32)), -1);
}

TEST_F(TitleWidget, PaintsTheLegendOfTheShownBar)
{
    data.add(QStringLiteral("F"), FormulaBuilder().output("a", 0, { { 1.0, 88888.0 } }).build());
    test::Strip strip(&data, 1, 3, 2);
    strip.setStock(stock);
    const int last = lastInk(strip.picture(300, 16));
    EXPECT_GT(last, 0);
    strip.updateIndexId(0);
    const QImage first = strip.picture(300, 16);
    EXPECT_LT(lastInk(first), last);
    strip.clear(); // no redraw of its own
    QImage still(first.size(), first.format());
    still.setDevicePixelRatio(1.0);
    strip.render(&still);
    EXPECT_EQ(still, first);
    strip.updateView();
    strip.render(&still);
    EXPECT_EQ(lastInk(still), last);
}

TEST_F(TitleWidget, StoresSomeThingsWithoutRedrawing)
{
    data.add(QStringLiteral("F"), outputs(1));
    test::Strip strip(&data, 1, 3, 2);
    strip.setStock(stock);
    const QImage before = strip.picture(300, 16);
    const auto now = [&] {
        QImage image(before.size(), before.format());
        strip.render(&image);
        return image;
    };
    test::Pane empty;
    strip.clearStock();
    EXPECT_EQ(now(), before);
    strip.setRealtimeUiParam(boost::make_shared<TC::CRealtimeUiParam>());
    EXPECT_EQ(now(), before);
    strip.setStock(stock);
    strip.setIndexData(&empty);
    EXPECT_EQ(now(), before);
    strip.updateView();
    EXPECT_NE(now(), before);
    strip.setIndexData(nullptr);
    EXPECT_EQ(lastInk(now()), -1);
}

TEST_F(TitleWidget, OverlaidInstrumentsRedrawOnlyWhenTheListDiffers)
{
    data.add(QStringLiteral("KLINE"), outputs(1, "收"), QStringLiteral("SZ000001"));
    test::Strip strip(&data, 0, 2, 2);
    strip.setStock(stock);
    const auto now = [&] {
        QImage image(600, 32, QImage::Format_ARGB32_Premultiplied);
        strip.render(&image);
        return image;
    };
    const QImage without = strip.picture(600, 32);
    QList<test::Instrument> list { test::instrument("SZ", "000001", "平安银行", 0.01) };
    strip.setAddStockList(list);
    const QImage with = now();
    EXPECT_NE(with, without);
    data.clearAll(); // the next redraw would show nothing of it
    QList<test::Instrument> same = list;
    strip.setAddStockList(same);
    EXPECT_EQ(now(), with);
    strip.clearAddStockList();
    EXPECT_EQ(now(), without);
}

TEST_F(TitleWidget, HidingAnIndicatorRedrawsInAnyCase)
{
    for (const char* hidden : { "F", "another" }) {
        data.add(QStringLiteral("F"), outputs(1));
        test::Strip strip(&data, 1, 3, 2);
        strip.setStock(stock);
        strip.setShowIndex(QStringLiteral("F"));
        QImage now = strip.picture(300, 16);
        ASSERT_GE(lastInk(now), 0);
        data.clearAll();
        strip.hideIndex(QLatin1String(hidden));
        strip.render(&now);
        EXPECT_EQ(lastInk(now), -1) << hidden;
    }
}

TEST_F(TitleWidget, SettersRedrawAtOnce)
{
    using Set = void (*)(test::Strip&);
    const Set setters[] = {
        [](test::Strip& strip) { strip.setPeroid(TC::EFormulaPeriod_Day); },
        [](test::Strip& strip) { strip.setDrType(1); },
        [](test::Strip& strip) { strip.updateIndexId(0); },
        [](test::Strip& strip) { strip.setShowIndex(QStringLiteral("F")); },
        [](test::Strip& strip) { strip.setStock(test::instrument("SH", "600000", "浦发银行", 0.01)); },
        [](test::Strip& strip) { strip.clearAddStockList(); },
        [](test::Strip& strip) { strip.setShowTitleBg(true); },
    };
    for (const Set set : setters) {
        data.add(QStringLiteral("F"), outputs(1));
        test::Strip strip(&data, 1, 3, 2);
        strip.setStock(stock);
        QImage now = strip.picture(300, 16);
        ASSERT_GE(lastInk(now), 0);
        data.clearAll();
        set(strip);
        strip.render(&now);
        EXPECT_EQ(lastInk(now), -1) << &set - setters;
    }
}

TEST_F(TitleWidget, PeriodAdjustmentAndNameStandInTheGroupHeading)
{
    test::Strip strip(&data, 0, 0, 0);
    strip.setStock(stock);
    const QImage day = strip.picture(400, 32);
    strip.setPeroid(TC::EFormulaPeriod_Minute15);
    const QImage minutes = strip.picture(400, 32);
    EXPECT_NE(minutes, day);
    strip.setDrType(2);
    EXPECT_NE(strip.picture(400, 32), minutes);
}

TEST_F(TitleWidget, TheIconFollowsTheInstrumentsClassInTheQuoteView)
{
    const QColor science(Qt::red), growth(Qt::blue);
    const auto picture = [](const QColor& color) {
        QPixmap pixmap(18, 16);
        pixmap.fill(color);
        return pixmap;
    };
    TC::embedded::setPixmap(QStringLiteral("img_code_kcb_icon"), picture(science));
    TC::embedded::setPixmap(QStringLiteral("img_code_gem_icon"), picture(growth));
    const auto iconOf = [&](int viewType, const char* market, const char* code) {
        test::Strip strip(&data, 0, viewType, 0);
        strip.setStock(test::instrument(market, code, "某某", 0.01));
        const QImage image = strip.picture(500, 32);
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, 16) == science)
                return 1;
            if (image.pixelColor(x, 16) == growth)
                return 2;
        }
        return 0;
    };
    EXPECT_EQ(iconOf(3, "SH", "688001"), 1);
    EXPECT_EQ(iconOf(3, "SZ", "300750"), 2);
    EXPECT_EQ(iconOf(3, "SH", "300750"), 2); // asked for market SZ whatever the instrument's own
    EXPECT_EQ(iconOf(3, "SZ", "688001"), 0);
    EXPECT_EQ(iconOf(3, "SH", "600000"), 0);
    EXPECT_EQ(iconOf(0, "SH", "688001"), 0);
}

TEST_F(TitleWidget, ADateStripShowsTheReplayedDayAlone)
{
    data.add(QStringLiteral("F"), outputs(1));
    test::Strip strip(&data, 7, 3, 2);
    strip.setStock(stock);
    const QImage before = strip.picture(300, 16);
    const auto day = QDateTime(QDate(2024, 6, 21), QTime(9, 30)).toMSecsSinceEpoch();
    TC::embedded::setReplayDate(day);
    strip.updateView();
    const QImage replayed = strip.picture(300, 16);
    EXPECT_NE(replayed, before);

    QImage expected(300, 16, QImage::Format_ARGB32_Premultiplied);
    expected.fill(background);
    QPainter painter(&expected);
    painter.setFont(test::font(12));
    painter.setPen(Qt::white);
    painter.drawText(QRect(0, 0, 300, 16), Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("2024/06/21"));
    painter.end();
    EXPECT_EQ(replayed, expected);
}

TEST_F(TitleWidget, TheReplayedDayDropsFractionsOfASecondTowardZero)
{
    test::Strip strip(&data, 7, 3, 2);
    const auto midnight = QDateTime(QDate(1969, 12, 31), QTime(0, 0)).toMSecsSinceEpoch();
    strip.slotTradeDateChanged(midnight);
    const QImage day = strip.picture(300, 16);
    strip.slotTradeDateChanged(midnight - 999); // still the day before, but for the fraction
    EXPECT_EQ(strip.picture(300, 16), day);
    strip.slotTradeDateChanged(midnight - 1000);
    EXPECT_NE(strip.picture(300, 16), day);
}

TEST_F(TitleWidget, AReplayedDayReachesTheStripsThatAreLeft)
{
    test::Strip left(&data, 7, 0, 2);
    {
        test::Strip gone(&data, 7, 0, 2);
    }
    const QImage before = left.picture(300, 16);
    TC::embedded::setReplayDate(86'400'000);
    EXPECT_NE(left.picture(300, 16), before);
}

TEST_F(TitleWidget, ASkinChangeRepaintsTheStripWithItsPictures)
{
    data.add(QStringLiteral("F"), outputs(1));
    test::Strip strip(&data, 1, 3, 2);
    strip.setStock(stock);
    strip.picture(300, 16);
    test::setArrows(QSize(9, 10), QSize(9, 10)); // a red arrow up
    QImage now(300, 16, QImage::Format_ARGB32_Premultiplied);
    strip.render(&now);
    bool hasRed = false;
    for (int x = 0; x < now.width(); ++x)
        hasRed = hasRed || now.pixelColor(x, 8) == QColor(Qt::red);
    EXPECT_TRUE(hasRed);

    TC::embedded::setColor(QStringLiteral("ic_clr_graph_kline_bg"), QColor(1, 2, 3));
    strip.render(&now);
    EXPECT_EQ(now.pixelColor(299, 15), QColor(1, 2, 3));
    EXPECT_EQ(now.pixelColor(2, 15), QColor(1, 2, 3)); // in the buffer as well
}

TEST_F(TitleWidget, EverySkinEvenAnEmptyOneCanBeLoadedWhileStripsShow)
{
    data.add(QStringLiteral("F"), outputs(3));
    test::Strip legend(&data, 1, 3, 2), heading(&data, 0, 3, 0);
    for (test::Strip* strip : { &legend, &heading })
        strip->setStock(test::instrument("SH", "688001", "某某", 0.01));
    QSet<QRgb> backgrounds;
    for (const QString& skin : TC::embedded::skinNames()) {
        EXPECT_EQ(TC::embedded::loadSkin(skin), QString());
        for (test::Strip* strip : { &legend, &heading }) {
            const QImage picture = strip->picture(500, 32);
            EXPECT_EQ(picture.pixelColor(499, 31), WB::skinColor("ic_clr_graph_kline_bg"));
            backgrounds.insert(picture.pixel(499, 31));
        }
        legend.updateTitleHeight();
        EXPECT_EQ(legend.height() % 16, 0);
    }
    EXPECT_GE(backgrounds.size(), 2); // or the skins are not told apart
    TC::embedded::clearSkin();
    for (test::Strip* strip : { &legend, &heading })
        EXPECT_EQ(strip->picture(500, 32).size(), QSize(500, 32));
}

TEST_F(TitleWidget, TheBufferIsAsDenseAsTheScreen)
{
    data.add(QStringLiteral("F"), outputs(1));
    test::Strip strip(&data, 1, 3, 2);
    strip.setStock(stock);
    const QImage plain = strip.picture(300, 16);
    strip.ratio = 2.0;
    const QImage dense = strip.picture(300, 16);
    ASSERT_EQ(dense.size(), QSize(600, 32));
    // An enlarged picture would repeat each pixel in blocks of two by two.
    bool isEnlarged = true;
    for (int y = 0; y < 32 && isEnlarged; y += 2) {
        for (int x = 0; x < 600 && isEnlarged; x += 2)
            isEnlarged =
                dense.pixel(x, y) == dense.pixel(x + 1, y) && dense.pixel(x, y) == dense.pixel(x, y + 1);
    }
    EXPECT_FALSE(isEnlarged);
    EXPECT_NEAR(lastInk(dense), 2 * lastInk(plain), 4);
}

TEST_F(TitleWidget, MovesToAScreenOfAnotherDensityWithoutAResize)
{
    data.add(QStringLiteral("F"), outputs(1));
    test::Strip strip(&data, 1, 3, 2);
    strip.setStock(stock);
    strip.ratio = 2.0;
    const QImage resized = strip.picture(300, 16);
    strip.ratio = 1.0;
    strip.picture(300, 16);
    strip.ratio = 2.0;
    QImage moved(600, 32, QImage::Format_ARGB32_Premultiplied);
    moved.setDevicePixelRatio(2.0);
    strip.render(&moved);
    EXPECT_EQ(moved, resized);
}

TEST_F(TitleWidget, LegendsAreCutBetweenPiecesAtEveryWidthAndDensity)
{
    data.add(QStringLiteral("F"), outputs(12, "value"));
    data.add(QStringLiteral("REALTIMEVOL"), outputs(1, "volume"));
    for (const double ratio : { 1.0, 1.5, 2.0, 3.0 }) {
        for (int width = 120; width <= 700; width += 29) {
            test::Strip strip(&data, 1, 2, 2);
            strip.ratio = ratio;
            strip.setStock(stock);
            strip.setCloseBtnVisible(false);
            const QImage image = strip.picture(width, 32);
            EXPECT_FALSE(hasInk(image, QRect(width - 70 + 1, 0, 69, 32))) << width << " at " << ratio;
        }
    }
}

TEST_F(TitleWidget, IsPaintedInItsOwnSizeUnderWildSettings)
{
    data.add(QStringLiteral("F"), outputs(3));
    data.add(QStringLiteral("KLINE"), outputs(3, "收"));
    for (const int displayType : { 0, 1, 2, 7, -1 }) {
        for (const int viewType : { 0, 1, 2, 3, 6, 99 }) {
            for (const int offset : { INT_MIN, -1, 0, 50, INT_MAX }) {
                test::Strip strip(&data, displayType, viewType, viewType, offset);
                strip.setStock(stock);
                for (const QSize size :
                     { QSize(0, 0), QSize(1, 1), QSize(0, 32), QSize(60, 16), QSize(400, 32) }) {
                    strip.resize(size);
                    strip.updateView();
                    strip.updateTitleHeight();
                    const QImage picture = strip.picture(size.width(), size.height());
                    EXPECT_EQ(picture.size(), size.isEmpty() ? QSize(0, 0) : size);
                }
            }
        }
    }
}

TEST_F(TitleWidget, DataMayGoBetweenRedraws)
{
    auto owned = std::make_unique<test::Pane>();
    owned->add(QStringLiteral("F"), outputs(1));
    test::Strip strip(owned.get(), 1, 3, 2);
    strip.setStock(stock);
    strip.picture(300, 16);
    strip.setIndexData(nullptr);
    owned.reset();
    EXPECT_EQ(lastInk(strip.picture(300, 16)), -1);
    strip.updateTitleHeight();
    EXPECT_EQ(strip.heightForContent(), -1);
}

TEST_F(TitleWidget, PositionsShowWhenTheSettingsAskForThem)
{
    const auto candles = FormulaBuilder().output("K", 12, { { 1.0 }, { 1.0 }, { 1.0 }, { 1.0 } }).build();
    data.add(QStringLiteral("KLINE"), candles);
    TC::CPositionNumber numbers;
    numbers.summary.profitLoss = 5.0;
    TC::CAccountPosition position;
    position.account = QStringLiteral("demo");
    numbers.accounts = { position };
    TC::embedded::setPositionNumber(QStringLiteral("SH600000"), numbers);

    test::Strip strip(&data, 0, 0, 0);
    strip.setStock(stock);
    const QImage without = strip.picture(900, 32);
    auto settings = boost::make_shared<TC::CRealtimeUiParam>();
    strip.setRealtimeUiParam(settings);
    EXPECT_EQ(strip.picture(900, 32), without);
    settings->displayFlags = 3;
    const QImage with = strip.picture(900, 32);
    EXPECT_GT(lastInk(with), lastInk(without));
    settings->displayFlags = 5;
    EXPECT_EQ(strip.picture(900, 32), without);

    auto klineSettings = boost::make_shared<TC::CKLineUiParam>();
    test::Strip klineStrip(&data, 0, 0, 0, 0, nullptr, klineSettings);
    klineStrip.setStock(stock);
    EXPECT_EQ(klineStrip.picture(900, 32), without);
    klineSettings->displayFlags = 2;
    EXPECT_EQ(klineStrip.picture(900, 32), with);
}

TEST_F(TitleWidget, OpenedRowsShowTheRestOfTheLegend)
{
    data.add(QStringLiteral("F"), outputs(4));
    data.add(QStringLiteral("G"), outputs(4));
    test::Strip strip(&data, 1, 2, 2);
    strip.setStock(stock);
    const QImage image = strip.picture(330, 64);
    EXPECT_TRUE(hasInk(image, QRect(0, 2, 200, 12)));
    EXPECT_TRUE(hasInk(image, QRect(0, 18, 200, 12)));
    EXPECT_TRUE(hasInk(image, QRect(0, 34, 200, 12)));
}
