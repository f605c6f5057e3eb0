# klv_deploy(TARGET [INSTALL]): copies beside the program, and with INSTALL into its packages, what
# a PC without Qt and MinGW needs.
function(klv_deploy target)
  cmake_parse_arguments(arg "INSTALL" "" "" ${ARGN})
  get_target_property(core Qt5::Core IMPORTED_LOCATION_RELEASE)
  get_filename_component(qt_binaries ${core} DIRECTORY)
  get_filename_component(qt_prefix ${qt_binaries} DIRECTORY)
  set(plugins ${qt_prefix}/plugins/platforms ${qt_prefix}/plugins/styles)
  set(directory $<TARGET_FILE_DIR:${target}>)

  foreach(name IN ITEMS libgcc_s_seh-1.dll libstdc++-6.dll libwinpthread-1.dll)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${name}
      OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
    # With its debug information the C++ library alone is as large as everything else.
    add_custom_command(TARGET ${target} POST_BUILD
      COMMAND ${CMAKE_STRIP} -o ${directory}/${name} ${path} VERBATIM)
    list(APPEND runtime ${directory}/${name})
  endforeach()

  add_custom_command(TARGET ${target} POST_BUILD
    COMMAND ${CMAKE_COMMAND} -E copy_if_different $<TARGET_RUNTIME_DLLS:${target}> ${directory}
    COMMAND_EXPAND_LISTS VERBATIM)

  foreach(folder IN LISTS plugins)
    get_filename_component(name ${folder} NAME)
    add_custom_command(TARGET ${target} POST_BUILD
      COMMAND ${CMAKE_COMMAND} -E copy_directory ${folder} ${directory}/${name} VERBATIM)
  endforeach()

  if(arg_INSTALL)
    install(FILES ${runtime} $<TARGET_RUNTIME_DLLS:${target}> DESTINATION ${KLV_PROGRAM_FOLDER})
    install(DIRECTORY ${plugins} DESTINATION ${KLV_PROGRAM_FOLDER})
  endif()
endfunction()
