# SPDX-License-Identifier: MIT
# 64-bit Windows by MinGW-w64, whose C++ library knows threads by the posix model. Libraries stand below
# INDICATORUI_WINDOWS_PREFIX, in the environment; programs of the build run under Wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

set(CMAKE_FIND_ROOT_PATH $ENV{INDICATORUI_WINDOWS_PREFIX} /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_LIBDIR} $ENV{INDICATORUI_WINDOWS_PREFIX}/lib/pkgconfig)

# Texts are translated by the tools of this machine.
file(GLOB Qt5LinguistTools_DIR /usr/lib/*/cmake/Qt5LinguistTools)

set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/run.sh)
