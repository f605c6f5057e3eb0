# A zip to unpack anywhere, and an installer with a start-menu entry and an uninstaller.
set(debian_doc /usr/share/doc)
foreach(library IN ITEMS
    Qt:qtbase5-dev Qwt:libqwt-qt5-dev GCC:gcc-mingw-w64-x86-64-posix-runtime
    MinGW-w64:mingw-w64-x86-64-dev DejaVu:fonts-dejavu-core)
  string(REPLACE ":" ";" library ${library})
  list(GET library 0 name)
  list(GET library 1 package)
  install(FILES ${debian_doc}/${package}/copyright DESTINATION licenses RENAME ${name}.txt)
endforeach()
# The copyright files above refer to these texts without containing them.
foreach(licence IN ITEMS GPL-2 GPL-3 LGPL-2.1 LGPL-3)
  install(FILES /usr/share/common-licenses/${licence} DESTINATION licenses RENAME ${licence}.txt)
endforeach()

get_target_property(icon klv KLV_ICON)
set(CPACK_GENERATOR ZIP NSIS)
set(CPACK_PACKAGE_FILE_NAME klv-${PROJECT_VERSION}-win64)
# An installed version is uninstalled before the next one is installed.
set(CPACK_PACKAGE_INSTALL_REGISTRY_KEY "KLV panel")
set(CPACK_PACKAGE_INSTALL_DIRECTORY "KLV panel")
set(CPACK_NSIS_ENABLE_UNINSTALL_BEFORE_INSTALL ON)
set(CPACK_NSIS_PACKAGE_NAME "KLV panel")
set(CPACK_NSIS_DISPLAY_NAME "KLV panel")
set(CPACK_NSIS_INSTALL_ROOT $PROGRAMFILES64)
# The same word size as the program.
set(CPACK_NSIS_EXECUTABLE_PRE_ARGUMENTS [[-XTarget\ amd64-unicode]])
set(CPACK_NSIS_COMPRESSOR "/SOLID lzma")
set(CPACK_NSIS_MUI_ICON ${icon})
set(CPACK_NSIS_MUI_UNIICON ${icon})
set(CPACK_NSIS_INSTALLED_ICON_NAME klv.exe)
set(CPACK_NSIS_MANIFEST_DPI_AWARE ON)
set(CPACK_NSIS_DEFINES "BrandingText \"KLV panel ${PROJECT_VERSION}\"")
set(CPACK_NSIS_CONTACT ${CPACK_PACKAGE_CONTACT})
set(CPACK_NSIS_URL_INFO_ABOUT ${CPACK_PACKAGE_HOMEPAGE_URL})
set(CPACK_NSIS_CREATE_ICONS_EXTRA
  [[CreateShortCut "$SMPROGRAMS\$STARTMENU_FOLDER\KLV panel.lnk" "$INSTDIR\klv.exe"
  CreateShortCut "$SMPROGRAMS\$STARTMENU_FOLDER\KLV panel (simulated instrument).lnk" "$INSTDIR\klv.exe" "--demo"]])
set(CPACK_NSIS_DELETE_ICONS_EXTRA
  [[Delete "$SMPROGRAMS\$MUI_TEMP\KLV panel.lnk"
  Delete "$SMPROGRAMS\$MUI_TEMP\KLV panel (simulated instrument).lnk"]])
# The maker's key stays only if others use it.
set(CPACK_NSIS_EXTRA_UNINSTALL_COMMANDS
  [[DeleteRegKey SHCTX "Software\Veltro\KLV panel"
  DeleteRegKey /ifempty SHCTX "Software\Veltro"]])

if(KLV_BUILD_TESTS)
  add_test(NAME windows_packages_work
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/windows/test_packages.sh
      ${CMAKE_CPACK_COMMAND} ${PROJECT_BINARY_DIR} ${PROJECT_VERSION})
  set_tests_properties(windows_packages_work PROPERTIES TIMEOUT 600)
endif()
