# SPDX-License-Identifier: MIT
# The guide, docs/guide: pages for any browser. Programs look for them in the folder "guide" beside
# them, or in share/zelk/guide of their prefix.

# Copies the guide beside the programs of the current folder.
function(zelk_copy_guide)
  set(guide ${PROJECT_SOURCE_DIR}/docs/guide)
  file(GLOB_RECURSE pages CONFIGURE_DEPENDS RELATIVE ${guide} ${guide}/*)
  foreach(page ${pages})
    configure_file(${guide}/${page} ${CMAKE_CURRENT_BINARY_DIR}/guide/${page} COPYONLY)
  endforeach()
endfunction()

function(zelk_install_guide)
  if(WIN32)
    set(folder guide)
  else()
    include(GNUInstallDirs)
    set(folder ${CMAKE_INSTALL_DATADIR}/zelk/guide)
  endif()
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/guide/ DESTINATION ${folder})
endfunction()
