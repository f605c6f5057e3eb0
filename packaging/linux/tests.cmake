# Optional: machines that only build do not need these tools.
find_program(DESKTOP_FILE_VALIDATE desktop-file-validate)
find_program(APPSTREAMCLI appstreamcli)

if(DESKTOP_FILE_VALIDATE)
  add_test(NAME desktop_entry_is_valid
    COMMAND ${DESKTOP_FILE_VALIDATE} ${files}/${KLV_DESKTOP_ID}.desktop)
endif()
if(APPSTREAMCLI)
  add_test(NAME metainfo_is_valid
    COMMAND ${APPSTREAMCLI} validate --no-net ${files}/${KLV_DESKTOP_ID}.metainfo.xml)
endif()
# Installed and started from there, it must find all that the build tree has beside it.
add_test(NAME installed_program_works
  COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/linux/test_installed.sh
    ${CMAKE_COMMAND} ${PROJECT_BINARY_DIR} ${PROJECT_VERSION})
set_tests_properties(installed_program_works PROPERTIES TIMEOUT 120)
