// SPDX-License-Identifier: MIT
/// @file Start of the driven tests: a desktop for the client.

#include "tests/driven/Desktop.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

#include <cstdlib>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QGuiApplication application(argc, argv);
    test::Desktop desktop;
    if (!desktop.stands()) {
        qCritical("the window manager does not start");
        return EXIT_FAILURE;
    }
    return RUN_ALL_TESTS();
}
