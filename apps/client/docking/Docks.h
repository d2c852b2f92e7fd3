// SPDX-License-Identifier: MIT
#pragma once
/// @file The docking library, or what stands in for it.

#ifdef INDICATORUI_PLAIN_DOCKS
#include "apps/client/docking/plain/PlainDocks.h"
#else
#include <qtadvanceddocking/DockAreaWidget.h>
#include <qtadvanceddocking/DockManager.h>
#include <qtadvanceddocking/DockWidget.h>
#include <qtadvanceddocking/DockWidgetTab.h>
#include <qtadvanceddocking/FloatingDockContainer.h>
#endif
