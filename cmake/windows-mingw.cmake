# SPDX-License-Identifier: MIT
# Cross-builds for 64-bit Windows with GCC (Debian: g++-mingw-w64-x86-64-posix). Uses the libraries
# that scripts/windows leaves in the user's cache folder. The tests run under Wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(ZELK_MINGW x86_64-w64-mingw32)
# The compilers whose names end in "-posix" support C++ threads.
set(CMAKE_C_COMPILER ${ZELK_MINGW}-gcc-posix)
set(CMAKE_CXX_COMPILER ${ZELK_MINGW}-g++-posix)
set(CMAKE_RC_COMPILER ${ZELK_MINGW}-windres)

set(ZELK_WINDOWS_CACHE $ENV{XDG_CACHE_HOME})
if(NOT ZELK_WINDOWS_CACHE)
  set(ZELK_WINDOWS_CACHE $ENV{HOME}/.cache)
endif()
set(ZELK_WINDOWS_LIBRARIES ${ZELK_WINDOWS_CACHE}/zelk/windows/libraries CACHE PATH
  "libdeflate for Windows, and the header libraries")
set(ZELK_QT_WINDOWS $ENV{ZELK_QT_WINDOWS})
if(NOT ZELK_QT_WINDOWS)
  set(ZELK_QT_WINDOWS ${ZELK_WINDOWS_CACHE}/zelk/windows/qt)
endif()
set(ZELK_QT_WINDOWS ${ZELK_QT_WINDOWS} CACHE PATH "Qt for Windows, in the version of this machine's Qt")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ZELK_WINDOWS_LIBRARIES ZELK_QT_WINDOWS)

# Uses the Qt tools of this machine.
set(QT_HOST_PATH /usr CACHE PATH "")
file(GLOB ZELK_HOST_QT /usr/lib/*/cmake/Qt6HostInfo)
cmake_path(GET ZELK_HOST_QT PARENT_PATH ZELK_HOST_QT)
set(QT_HOST_PATH_CMAKE_DIR ${ZELK_HOST_QT} CACHE PATH "")

set(CMAKE_FIND_ROOT_PATH /usr/${ZELK_MINGW} ${ZELK_WINDOWS_LIBRARIES} ${ZELK_QT_WINDOWS})
list(APPEND CMAKE_PREFIX_PATH ${ZELK_WINDOWS_LIBRARIES} ${ZELK_QT_WINDOWS})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The compiler's DLLs, which Qt and the programs with windows need beside them.
set(ZELK_MINGW_RUNTIME
  /usr/lib/gcc/${ZELK_MINGW}/12-posix/libgcc_s_seh-1.dll
  /usr/lib/gcc/${ZELK_MINGW}/12-posix/libstdc++-6.dll
  /usr/${ZELK_MINGW}/lib/libwinpthread-1.dll)

find_program(ZELK_WINE wine)
if(ZELK_WINE)
  cmake_path(GET CMAKE_CURRENT_LIST_DIR PARENT_PATH ZELK_TOP)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${ZELK_TOP}/scripts/wine-run
    ${ZELK_QT_WINDOWS}/bin:/usr/lib/gcc/${ZELK_MINGW}/12-posix:/usr/${ZELK_MINGW}/lib)
endif()
