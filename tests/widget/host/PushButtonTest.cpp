// SPDX-License-Identifier: MIT
#include "host/WB/CPushButton.h"
#include "host/embedded/EmbeddedHost.h"

#include <QCoreApplication>
#include <QEnterEvent>
#include <QImage>
#include <QTest>

#include <gtest/gtest.h>

namespace {

/// Puts a picture of one colour into the skin.
void setPicture(const char* key, const QColor& color, const QSize& size = QSize(20, 10))
{
    QPixmap picture(size);
    picture.fill(color);
    TC::embedded::setPixmap(QString::fromLatin1(key), picture);
}

/// A button that is its picture.
class PushButton : public testing::Test
{
protected:
    PushButton()
    {
        setPicture("red", Qt::red);
        setPicture("red_a", Qt::yellow);
        setPicture("blue", Qt::blue, QSize(30, 12));
        m_button.resize(40, 20);
    }
    QColor middle() { return m_button.grab().toImage().pixelColor(20, 10); }

    WB::CPushButton m_button { QStringLiteral("red"), WB::CPushButton::kPictureOnly, nullptr };
};

} // namespace

TEST_F(PushButton, IsAsLargeAsItsPictureOnScreensOfAnyDensity)
{
    EXPECT_EQ(m_button.sizeHint(), QSize(20, 10));
    QPixmap dense(40, 20);
    dense.setDevicePixelRatio(2.0);
    TC::embedded::setPixmap(QStringLiteral("red"), dense);
    EXPECT_EQ(m_button.sizeHint(), QSize(20, 10));
}

TEST_F(PushButton, PaintsItsPictureInTheMiddleAndNothingAround)
{
    const QImage painted = m_button.grab().toImage();
    const QColor around = painted.pixelColor(0, 0);
    EXPECT_EQ(painted.pixelColor(10, 5), QColor(Qt::red));
    EXPECT_EQ(painted.pixelColor(29, 14), QColor(Qt::red));
    EXPECT_EQ(painted.pixelColor(9, 5), around);
    EXPECT_EQ(painted.pixelColor(30, 14), around);
    EXPECT_NE(around, QColor(Qt::red));
}

TEST_F(PushButton, ShowsTheOtherPictureOfItsKeyUnderThePointer)
{
    QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QCoreApplication::sendEvent(&m_button, &enter);
    EXPECT_EQ(middle(), QColor(Qt::yellow));
    m_button.setImageKey(QStringLiteral("blue")); // which has no other one
    EXPECT_EQ(middle(), QColor(Qt::blue));
    m_button.setImageKey(QStringLiteral("red"));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&m_button, &leave);
    EXPECT_EQ(middle(), QColor(Qt::red));
}

TEST_F(PushButton, WithoutAPictureShowsNothingAndHasThePlatformsSize)
{
    const QColor around = m_button.grab().toImage().pixelColor(0, 0);
    m_button.setImageKey(QStringLiteral("none"));
    EXPECT_EQ(middle(), around);
    EXPECT_EQ(m_button.sizeHint(), QPushButton().sizeHint());
}

TEST_F(PushButton, OfThePlatformBearsItsPictureAsItsIcon)
{
    WB::CPushButton framed(QStringLiteral("red"), 0, nullptr);
    const auto icon = [&] { return framed.icon().pixmap(20, 10).toImage().pixelColor(5, 5); };
    EXPECT_EQ(icon(), QColor(Qt::red));
    setPicture("red", Qt::green);
    EXPECT_EQ(icon(), QColor(Qt::green)); // follows the skin
    framed.setImageKey(QStringLiteral("none"));
    EXPECT_TRUE(framed.icon().isNull());
    EXPECT_NE(framed.focusPolicy(), Qt::NoFocus);
    EXPECT_EQ(m_button.focusPolicy(), Qt::NoFocus);

    framed.resize(40, 20);
    QPushButton plain;
    plain.resize(40, 20);
    EXPECT_EQ(framed.grab().toImage(), plain.grab().toImage());
}
