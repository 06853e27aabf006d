# SPDX-License-Identifier: MIT
# Gives a Windows program its icon, version and manifest. Does nothing on other systems.
# zelk_add_resource(TARGET DESCRIPTION)

if(WIN32)
  enable_language(RC)
endif()

function(zelk_add_resource name description)
  if(NOT WIN32)
    return()
  endif()
  set(resource ${CMAKE_CURRENT_BINARY_DIR}/${name}.rc)
  configure_file(${PROJECT_SOURCE_DIR}/packaging/windows/program.rc.in ${resource} @ONLY)
  target_sources(${name} PRIVATE ${resource})
  set_source_files_properties(${resource} PROPERTIES OBJECT_DEPENDS
    "${PROJECT_SOURCE_DIR}/packaging/windows/program.manifest;${PROJECT_SOURCE_DIR}/packaging/windows/zelk.ico")
  if(MSVC)
    target_sources(${name} PRIVATE ${PROJECT_SOURCE_DIR}/packaging/windows/program.manifest)
  endif()
endfunction()
