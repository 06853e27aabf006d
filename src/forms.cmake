# SPDX-License-Identifier: MIT
# OpenGL by itself: for the windows, and for pictures made without one.
zelk_add_room(gl
  SOURCES
    korvat/GlDevice.cpp
    korvat/OffscreenPainter.cpp
  LINKS Qt6::Gui Qt6::OpenGL zelk_korvat zelk_host)

# The windows: one library, so that tests and benchmarks link them, and the program itself.

if(WIN32)
  set(desktop app/DesktopScheme-win32.cpp app/GivenFile-win32.cpp app/Wastebasket-win32.cpp)
else()
  set(desktop app/DesktopScheme-posix.cpp app/GivenFile-posix.cpp)
  find_package(Qt6 6.4 QUIET COMPONENTS DBus)
  if(Qt6DBus_FOUND)
    list(APPEND desktop app/DesktopPortal-posix.cpp)
  else()
    message(STATUS "Without the desktop's portal for colours (Qt was built without D-Bus)")
  endif()
endif()
zelk_add_room(forms
  SOURCES
    about/frmAbout.cpp
    about/frmSystemInfo.cpp
    about/SystemInfo.cpp
    app/AccessibleRoles.cpp
    app/Colours.cpp
    app/FileChooser.cpp
    app/frmMain.cpp
    app/frmMainChecks.cpp
    app/frmMainCommands.cpp
    app/frmMainDrop.cpp
    app/frmMainShell.cpp
    app/frmMainViews.cpp
    app/IconSet.cpp
    app/MainMenu.cpp
    app/MainStatusBar.cpp
    app/MdiLayout.cpp
    app/PageSetup.cpp
    app/PrintJobs.cpp
    app/Printouts.cpp
    app/Program.cpp
    app/QtDesktop.cpp
    app/QtDialogs.cpp
    app/WindowBounds.cpp
    app/WindowSettings.cpp
    app/WindowSwitcher.cpp
    app/icons.qrc
    ${desktop}
    document/ConsistEditorPane.cpp
    document/ConsistListModel.cpp
    document/ConsistListPane.cpp
    document/ConsistModel.cpp
    document/FoldingRow.cpp
    document/frmDocument.cpp
    document/frmDocumentViews.cpp
    document/ListView.cpp
    document/StockListModel.cpp
    document/StockLoader.cpp
    install/frmSetLoc.cpp
    korvat/sfCanvas.cpp
    validation/FindBar.cpp
    validation/ReportView.cpp
    validation/frmResults.cpp
    validation/frmSelector.cpp
    viewer/SavedPictureBar.cpp
    viewer/ViewerPane.cpp
  LINKS Qt6::Widgets Qt6::PrintSupport zelk_gl zelk_app zelk_viewer zelk_document zelk_validation
    zelk_install)
if(Qt6DBus_FOUND)
  target_link_libraries(zelk_forms PUBLIC Qt6::DBus)
  target_compile_definitions(zelk_forms PUBLIC ZELK_DBUS)
endif()
set_target_properties(zelk_forms PROPERTIES AUTOMOC ON AUTORCC ON)

add_executable(zelk main.cpp)
target_link_libraries(zelk PRIVATE zelk_forms)
zelk_add_resource(zelk "ZELK")
install(TARGETS zelk)
zelk_copy_guide()
zelk_install_guide()
if(WIN32)
  set_target_properties(zelk PROPERTIES WIN32_EXECUTABLE ON ZELK_SHARED_RUNTIME ON)
endif()
