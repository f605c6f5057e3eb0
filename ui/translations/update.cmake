# Updates klv_ru.ts from the texts of the sources: ROOT is the checkout, LUPDATE the tool.
# With CHECK (a file to write) the .ts stays as it is, and a text without a finished translation
# or a translation without a text is an error.
set(translation ${CMAKE_CURRENT_LIST_DIR}/klv_ru.ts)
set(output ${translation})
if(CHECK)
  set(output ${CHECK})
  configure_file(${translation} ${output} COPYONLY)
else()
  set(drop_stale -no-obsolete)
endif()

set(sources "")
foreach(folder IN ITEMS app connection cw fields link log modulation numbers profiles service sweep ui)
  if(IS_DIRECTORY ${ROOT}/${folder})
    list(APPEND sources ${ROOT}/${folder})
  endif()
endforeach()
execute_process(
  COMMAND ${LUPDATE} -silent ${drop_stale} -locations none -I ${ROOT} ${sources} -ts ${output}
  COMMAND_ERROR_IS_FATAL ANY)

if(CHECK)
  file(STRINGS ${output} lines)
  set(source "")
  set(faults "")
  foreach(line IN LISTS lines)
    if(line MATCHES "<source>(.*)</source>")
      set(source "${CMAKE_MATCH_1}")
    elseif(line MATCHES "type=\"(unfinished|vanished|obsolete)\"")
      string(APPEND faults "\n  ${CMAKE_MATCH_1}: ${source}")
    endif()
  endforeach()
  if(faults)
    message(FATAL_ERROR "klv_ru.ts is not complete (build the target update_translation):${faults}")
  endif()
endif()
