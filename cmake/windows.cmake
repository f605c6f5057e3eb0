# Cross build for 64-bit Windows with MinGW-w64 and the Qt that tools/build-qt-windows.sh keeps.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(triplet x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${triplet}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triplet}-g++-posix)
set(CMAKE_RC_COMPILER ${triplet}-windres)
set(CMAKE_CROSSCOMPILING_EMULATOR wine)

# Asked once a run: CMake reads this file again for each of its own trial builds.
if(NOT DEFINED ENV{KLV_QT_WINDOWS})
  execute_process(COMMAND ${CMAKE_CURRENT_LIST_DIR}/../tools/build-qt-windows.sh
    OUTPUT_VARIABLE qt_prefix OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  set(ENV{KLV_QT_WINDOWS} "${qt_prefix}")
endif()
set(CMAKE_FIND_ROOT_PATH $ENV{KLV_QT_WINDOWS} /usr/${triplet})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
