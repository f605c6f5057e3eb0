# klv_deploy(TARGET): puts beside the program what a PC without Qt and MinGW lacks.
function(klv_deploy target)
  get_target_property(core Qt5::Core IMPORTED_LOCATION_RELEASE)
  get_filename_component(qt_binaries ${core} DIRECTORY)
  get_filename_component(qt_prefix ${qt_binaries} DIRECTORY)

  set(runtime "")
  foreach(name IN ITEMS libgcc_s_seh-1.dll libstdc++-6.dll libwinpthread-1.dll)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${name}
      OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
    list(APPEND runtime ${path})
  endforeach()

  set(directory $<TARGET_FILE_DIR:${target}>)
  add_custom_command(TARGET ${target} POST_BUILD
    COMMAND ${CMAKE_COMMAND} -E copy_if_different
      $<TARGET_RUNTIME_DLLS:${target}> ${runtime} ${directory}
    COMMAND ${CMAKE_COMMAND} -E copy_directory
      ${qt_prefix}/plugins/platforms ${directory}/platforms
    COMMAND ${CMAKE_COMMAND} -E copy_directory
      ${qt_prefix}/plugins/styles ${directory}/styles
    COMMAND_EXPAND_LISTS VERBATIM)
endfunction()
