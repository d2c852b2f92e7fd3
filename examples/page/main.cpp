// SPDX-License-Identifier: MIT
/// @file A whole page: BARS.csv [PICTURE.png]. The base name of the file is the instrument ("SH600030").

#include "page/Show.h"

#include <QApplication>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    return example::showPage(application.arguments());
}
