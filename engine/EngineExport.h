// SPDX-License-Identifier: MIT
#pragma once
/// @file Linkage of the engine's classes and functions.
///
/// The engine defines ENGINE_BUILD while it is compiled; everybody else imports.

#if !defined(_WIN32)
#define ENGINE_EXPORT __attribute__((visibility("default")))
#elif defined(ENGINE_BUILD)
#define ENGINE_EXPORT __declspec(dllexport)
#else
#define ENGINE_EXPORT __declspec(dllimport)
#endif
