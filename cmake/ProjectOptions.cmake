# SPDX-License-Identifier: MIT
# One interface target sets the language standard, the warnings and the definitions for all targets.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "Build type" FORCE)
endif()

find_program(ZELK_CCACHE ccache)
if(ZELK_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${ZELK_CCACHE})
endif()

find_package(Threads REQUIRED)

add_library(project_options INTERFACE)
target_include_directories(project_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_link_libraries(project_options INTERFACE Threads::Threads)
target_compile_definitions(project_options INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_NO_KEYWORDS)
if(MSVC)
  target_compile_options(project_options INTERFACE /W4 /utf-8 /permissive-)
else()
  target_compile_options(project_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Wnon-virtual-dtor
    -Woverloaded-virtual -Wformat=2)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 wrongly reports overlapping copies and uninitialised bytes in std::string.
    target_compile_options(project_options INTERFACE -Wno-restrict -Wno-maybe-uninitialized)
  endif()
endif()
if(MINGW)
  # Links the compiler's libraries statically, except in programs that use Qt, which needs them as
  # DLLs.
  target_link_options(project_options INTERFACE
    $<$<NOT:$<BOOL:$<TARGET_PROPERTY:ZELK_SHARED_RUNTIME>>>:-static>)
endif()
if(ZELK_SANITIZE)
  target_compile_options(project_options INTERFACE
    -fsanitize=${ZELK_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  target_link_options(project_options INTERFACE -fsanitize=${ZELK_SANITIZE})
endif()

# Adds a room: a static library zelk_NAME from the given sources, linked to the given rooms.
function(zelk_add_room name)
  cmake_parse_arguments(ROOM "" "" "SOURCES;LINKS" ${ARGN})
  add_library(zelk_${name} STATIC ${ROOM_SOURCES})
  target_link_libraries(zelk_${name} PUBLIC project_options ${ROOM_LINKS})
endfunction()
