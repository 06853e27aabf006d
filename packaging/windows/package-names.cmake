# SPDX-License-Identifier: MIT
# Read once for each package, when it is made.
if(CPACK_GENERATOR STREQUAL "NSIS")
  string(APPEND CPACK_PACKAGE_FILE_NAME "-setup")
endif()
