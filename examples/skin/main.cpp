// SPDX-License-Identifier: MIT
/// @file The page in a skin of your own, paper.json: BARS.csv [PICTURE.png]

#include "page/Show.h"

#include <host/embedded/SkinSetup.h>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const QString failure = TC::embedded::loadSkin(QStringLiteral(SKIN_FILE));
    if (!failure.isEmpty()) {
        qWarning("%s", qPrintable(failure)); // file, line and column of what is wrong
        return 1;
    }
    return example::showPage(application.arguments());
}
