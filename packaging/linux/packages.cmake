# The files that a Debian system needs in addition to the program, and the package.
include(KlvIcon)
include(linux/releases.cmake)
find_program(GZIP gzip REQUIRED)
set(doc_folder share/doc/klv)
set(files ${CMAKE_CURRENT_BINARY_DIR}/files)

# klv_compressed(FILE FOLDER NAME): installs the file as FOLDER/NAME.gz, the same for every build.
function(klv_compressed file folder name)
  set(compressed ${files}/${folder}/${name}.gz)
  add_custom_command(OUTPUT ${compressed}
    COMMAND ${CMAKE_COMMAND} -E copy ${file} ${files}/${folder}/${name}
    COMMAND ${GZIP} -9nf ${files}/${folder}/${name}
    DEPENDS ${file} COMMENT "Compressing ${name}" VERBATIM)
  install(FILES ${compressed} DESTINATION ${folder})
  set(compressed_files ${compressed_files} ${compressed} PARENT_SCOPE)
endfunction()

# A link, so that the program itself stands beside its licence and the simulated instrument.
file(CREATE_LINK ../${KLV_PROGRAM_FOLDER}/klv ${CMAKE_CURRENT_BINARY_DIR}/klv SYMBOLIC)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/klv DESTINATION bin)

foreach(file IN ITEMS desktop metainfo.xml)
  configure_file(linux/klv.${file}.in ${files}/${KLV_DESKTOP_ID}.${file} @ONLY)
endforeach()
install(FILES ${files}/${KLV_DESKTOP_ID}.desktop DESTINATION share/applications)
install(FILES ${files}/${KLV_DESKTOP_ID}.metainfo.xml DESTINATION share/metainfo)

set(sizes 16 22 24 32 48 64 96 128 256 512)
klv_icon(icons ${sizes})
foreach(size icon IN ZIP_LISTS sizes icons)
  install(FILES ${icon} DESTINATION share/icons/hicolor/${size}x${size}/apps
    RENAME ${KLV_DESKTOP_ID}.png)
endforeach()
install(FILES ${KLV_ICON_DRAWING} DESTINATION share/icons/hicolor/scalable/apps
  RENAME ${KLV_DESKTOP_ID}.svg)

configure_file(linux/klv.1.in ${files}/klv.1 @ONLY)
configure_file(linux/klv.ru.1.in ${files}/klv.ru.1 @ONLY)
klv_compressed(${files}/klv.1 share/man/man1 klv.1)
klv_compressed(${files}/klv.ru.1 share/man/ru/man1 klv.1)
klv_compressed(${PROJECT_SOURCE_DIR}/CHANGELOG.md ${doc_folder} changelog)

install(FILES 70-klv.rules DESTINATION lib/udev/rules.d)
install(FILES ${PROJECT_SOURCE_DIR}/license.txt DESTINATION ${doc_folder} RENAME copyright)

add_custom_target(packaging ALL DEPENDS ${icons} ${compressed_files})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The licence is opened with the desktop's program for text files.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS xdg-utils)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_PACKAGE_DESCRIPTION
"Sets frequency, power, RF output and reference, amplitude, frequency, phase
and pulse modulation, the LF generator, and sweeps and lists of points of a
KLV signal generator on USB, by SCPI over the kernel's USB-TMC driver or the
maker's VISA library. The VISA library for that driver can be used by other
programs, too.
.
A simulated instrument is included, so that the whole panel can be tried
without one.")

if(KLV_BUILD_TESTS)
  include(linux/tests.cmake)
endif()
