# SPDX-License-Identifier: MIT
# Cross-builds for 64-bit Windows with GCC (Debian: g++-mingw-w64-x86-64-posix libz-mingw-w64-dev).
# What is built runs, for the tests, under Wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(ZELK_MINGW x86_64-w64-mingw32)
# The compilers whose names end in "-posix" are those with threads.
set(CMAKE_C_COMPILER ${ZELK_MINGW}-gcc-posix)
set(CMAKE_CXX_COMPILER ${ZELK_MINGW}-g++-posix)
set(CMAKE_RC_COMPILER ${ZELK_MINGW}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${ZELK_MINGW})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# No libraries of the compiler need to lie beside the programs.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)

find_program(ZELK_WINE NAMES wine wine64)
if(ZELK_WINE)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${ZELK_WINE})
endif()
