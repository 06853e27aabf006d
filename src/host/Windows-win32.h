// SPDX-License-Identifier: MIT
#pragma once

/// The system's own header without the names that would stand in the way of ours. For "-win32.cpp"
/// files alone: its macros must not get into any other header.
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>
