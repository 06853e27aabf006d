// SPDX-License-Identifier: MIT
#pragma once

/// Includes the system's header without the names that would collide with ours. For "-win32.cpp"
/// files only: its macros must not get into any other header.
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>
