// SPDX-License-Identifier: MIT
#pragma once
/// @file Linkage of the client platform's classes and functions.
///
/// The library behind the seam defines INDICATORHOST_BUILD while it is compiled; everybody else imports.

#if defined(_WIN32)
#if defined(INDICATORHOST_BUILD)
#define INDICATORHOST_EXPORT __declspec(dllexport)
#else
#define INDICATORHOST_EXPORT __declspec(dllimport)
#endif
#else
#define INDICATORHOST_EXPORT __attribute__((visibility("default")))
#endif
