# KLV_RELEASES: the releases that the changelog heads "## [version] - date", as AppStream writes
# them. A version that it does not head yet is one in development.
file(STRINGS ${PROJECT_SOURCE_DIR}/CHANGELOG.md headings REGEX "^## \\[[0-9.]+\\] - [0-9-]+$")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/CHANGELOG.md)
set(KLV_RELEASES "")
set(released "")
foreach(heading IN LISTS headings)
  string(REGEX MATCH "\\[(.+)\\] - (.+)" heading "${heading}")
  list(APPEND released ${CMAKE_MATCH_1})
  string(APPEND KLV_RELEASES
    "    <release version=\"${CMAKE_MATCH_1}\" date=\"${CMAKE_MATCH_2}\"/>\n")
endforeach()
file(TIMESTAMP ${PROJECT_SOURCE_DIR}/CHANGELOG.md KLV_DATE "%Y-%m-%d" UTC)
if(NOT PROJECT_VERSION IN_LIST released)
  string(PREPEND KLV_RELEASES
    "    <release version=\"${PROJECT_VERSION}\" date=\"${KLV_DATE}\" type=\"development\"/>\n")
endif()
