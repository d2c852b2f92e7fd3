// SPDX-License-Identifier: MIT
#include "tests/support/TestFont.h"

#include <QFontDatabase>

namespace test {

namespace {

QFont sizedFont(const QString& family, int pixelSize)
{
    QFont result(family);
    result.setPixelSize(pixelSize);
    result.setHintingPreference(QFont::PreferNoHinting);
    return result;
}

QString familyOf(const QString& file)
{
    return QFontDatabase::applicationFontFamilies(
               QFontDatabase::addApplicationFont(QStringLiteral(TEST_DATA_DIR "/fonts/") + file))
        .value(0);
}

} // namespace

QFont font(int pixelSize)
{
    static const QString family = familyOf(QStringLiteral("IndicatorTestSans.otf"));
    return sizedFont(family, pixelSize);
}

QFont blankFont(int pixelSize)
{
    static const QString family = familyOf(QStringLiteral("IndicatorTestBlank.otf"));
    return sizedFont(family, pixelSize);
}

QFont unusualFont(const QString& way, int pixelSize)
{
    return sizedFont(familyOf(QStringLiteral("IndicatorTest%1.otf").arg(way)), pixelSize);
}

} // namespace test
