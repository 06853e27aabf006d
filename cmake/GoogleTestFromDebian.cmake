# SPDX-License-Identifier: MIT
# Builds GoogleTest from the sources that the distribution ships, for native and cross builds alike.

set(ZELK_GOOGLETEST_SOURCE /usr/src/googletest CACHE PATH "Sources of GoogleTest")
if(NOT EXISTS ${ZELK_GOOGLETEST_SOURCE}/CMakeLists.txt)
  message(FATAL_ERROR "No GoogleTest in ${ZELK_GOOGLETEST_SOURCE}: install the package 'googletest', "
    "set ZELK_GOOGLETEST_SOURCE, or configure with -DZELK_TESTS=OFF.")
endif()
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
set(BUILD_GMOCK OFF CACHE BOOL "" FORCE)
set(ZELK_SAVED_WERROR ${CMAKE_COMPILE_WARNING_AS_ERROR})
set(CMAKE_COMPILE_WARNING_AS_ERROR OFF)
add_subdirectory(${ZELK_GOOGLETEST_SOURCE} ${CMAKE_BINARY_DIR}/_googletest EXCLUDE_FROM_ALL)
set(CMAKE_COMPILE_WARNING_AS_ERROR ${ZELK_SAVED_WERROR})
include(GoogleTest)

set(ZELK_TEST_LIMIT 120 CACHE STRING "Seconds that a test may take")

# Registers the tests of a program under a label. Each has a limit, so that a hanging test cannot
# stop a run. Further properties may set another limit. zelk_discover_tests(TARGET LABEL
# [PROPERTY VALUE]...)
function(zelk_discover_tests name label)
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 120
    PROPERTIES TIMEOUT ${ZELK_TEST_LIMIT} LABELS ${label} ${ARGN})
endfunction()
