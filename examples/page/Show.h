// SPDX-License-Identifier: MIT
#pragma once
/// @file The page of a file of bars in a window, or as a picture.

#include "page/Page.h"

#include <engine/files/BarFile.h>

#include <QApplication>
#include <QFileInfo>

namespace example {

/// @param arguments  program, bars, and optionally the picture to make instead of waiting for the user.
/// @return the program's exit code.
inline int showPage(const QStringList& arguments)
{
    std::string failure;
    const auto bars = engine::readBars(arguments.value(1).toStdString(), failure);
    if (!bars) {
        qWarning("%s", failure.c_str());
        return 1;
    }
    Page page(QFileInfo(arguments.at(1)).baseName(), *bars);
    page.resize(960, 640);
    page.show();
    page.pointAt(static_cast<int>(bars->size()) - 40); // as if the mouse stood there
    return arguments.size() > 2 ? !page.grab().save(arguments.at(2)) : QApplication::exec();
}

} // namespace example
