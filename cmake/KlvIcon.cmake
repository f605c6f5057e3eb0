# klv_icon(VARIABLE SIZE...): draws the program's icon in these sizes, in pixels; the files' names
# are stored in VARIABLE.
set(KLV_ICON_DRAWING ${PROJECT_SOURCE_DIR}/ui/images/logotip.svg)

function(klv_icon variable)
  set(images "")
  foreach(size IN LISTS ARGN)
    set(image ${CMAKE_CURRENT_BINARY_DIR}/icons/${size}.png)
    add_custom_command(OUTPUT ${image}
      COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_CURRENT_BINARY_DIR}/icons
      COMMAND ${RSVG_CONVERT} --width ${size} --height ${size} --output ${image}
        ${KLV_ICON_DRAWING}
      DEPENDS ${KLV_ICON_DRAWING} COMMENT "Drawing the icon, ${size} pixels" VERBATIM)
    list(APPEND images ${image})
  endforeach()
  set(${variable} ${images} PARENT_SCOPE)
endfunction()
