# How every target of the project is made: our warnings, our sanitizers, Qt's code generators.

add_library(klv_options INTERFACE)
target_include_directories(klv_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_definitions(klv_options INTERFACE
  QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING QT_DEPRECATED_WARNINGS)
target_compile_options(klv_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
if(MINGW)
  # Its va_list has an attribute, which does not matter to a template.
  target_compile_options(klv_options INTERFACE -Wno-ignored-attributes)
endif()
if(KLV_SANITIZE)
  target_compile_options(klv_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  target_link_options(klv_options INTERFACE -fsanitize=address,undefined)
endif()
if(KLV_FUZZ)
  target_compile_options(klv_options INTERFACE
    -fsanitize=fuzzer-no-link,float-cast-overflow -fno-sanitize-recover=all)
  target_compile_definitions(klv_options INTERFACE _GLIBCXX_ASSERTIONS)
endif()

# klv_library(NAME SOURCES file... [LINK library...])
# A static library of one folder. Headers with Q_OBJECT and forms need no listing.
function(klv_library name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_link_libraries(${name} PUBLIC ${arg_LINK} klv_options)
endfunction()

# klv_test(NAME SOURCES file... [LINK library...])
# One Qt Test executable, run by CTest on the offscreen platform.
function(klv_test name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  set_target_properties(${name} PROPERTIES
    AUTOMOC ON RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${arg_LINK} Qt5::Test klv_options)
  if(CMAKE_CROSSCOMPILING)
    set_target_properties(${name} PROPERTIES
      CROSSCOMPILING_EMULATOR ${PROJECT_SOURCE_DIR}/tests/wine.sh)
  endif()
  add_test(NAME ${name} COMMAND ${name})
  set(longest 300)
  if(KLV_SANITIZE)
    set(longest 900)
  endif()
  # Private folders: settings, locks and sockets are shared with no other test.
  set(private ${PROJECT_BINARY_DIR}/tests/private/${name})
  file(MAKE_DIRECTORY ${private})
  file(CHMOD ${private} PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
  set_tests_properties(${name} PROPERTIES
    TIMEOUT ${longest}
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;XDG_CONFIG_HOME=${private};XDG_RUNTIME_DIR=${private};LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/leaks.txt")
endfunction()
