// SPDX-License-Identifier: MIT
/// @file A client's first steps with the library: a row, the palette, a pane's data.

#include "data/IndexBaseData.h"
#include "draw/CDrawStyle.h"

#include <QApplication>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const TC::CDrawStyle style;
    TC::IndexBaseData pane(nullptr);
    return TC::dataToYAxis(5.0, 0, 100, 10.0, 0.0) == 50 && pane.getFormulaSize() == 0 ? 0 : 1;
}
