// SPDX-License-Identifier: MIT
#include "tests/support/TestFont.h"

#include <QFontDatabase>

namespace test {

QFont font(int pixelSize)
{
    static const QString family =
        QFontDatabase::applicationFontFamilies(
            QFontDatabase::addApplicationFont(QStringLiteral(TEST_DATA_DIR "/fonts/IndicatorTestSans.otf")))
            .value(0);
    QFont result(family);
    result.setPixelSize(pixelSize);
    result.setHintingPreference(QFont::PreferNoHinting);
    return result;
}

} // namespace test
