# klv_windows_resource(TARGET): icon and version, as the Explorer shows them.
include(KlvIcon)
find_program(ICOTOOL icotool REQUIRED)

function(klv_windows_resource target)
  klv_icon(images 16 24 32 48 64 128 256)
  # Old readers of icons know PNG in the largest size only.
  set(large ${images})
  list(FILTER large INCLUDE REGEX "/256\\.png$")
  set(small ${images})
  list(REMOVE_ITEM small ${large})
  set(KLV_ICON ${CMAKE_CURRENT_BINARY_DIR}/klv.ico)
  add_custom_command(OUTPUT ${KLV_ICON}
    COMMAND ${ICOTOOL} --create --output=${KLV_ICON} ${small} --raw=${large}
    DEPENDS ${images} COMMENT "Making klv.ico" VERBATIM)

  string(REPLACE "." "," KLV_VERSION_NUMBERS "${PROJECT_VERSION}.0")
  set(resource ${CMAKE_CURRENT_BINARY_DIR}/klv.rc)
  configure_file(${PROJECT_SOURCE_DIR}/packaging/windows/klv.rc.in ${resource} @ONLY)
  set_source_files_properties(${resource} PROPERTIES OBJECT_DEPENDS ${KLV_ICON})
  target_sources(${target} PRIVATE ${resource})
  set_target_properties(${target} PROPERTIES KLV_ICON ${KLV_ICON})
endfunction()
