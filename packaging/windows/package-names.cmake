# SPDX-License-Identifier: MIT
# cpack reads this once for each package.
if(CPACK_GENERATOR STREQUAL "NSIS")
  string(APPEND CPACK_PACKAGE_FILE_NAME "-setup")
endif()
