# Velarda, a card game of the Scopa family.
# SPDX-License-Identifier: MIT

# add_host_tool(NAME SOURCES file... [LIBRARIES library...])
#
# A program that is run while the game is built. Where the game is built for another system, it is
# taken from a finished build for this one, whose folder VELARDA_HOST_BUILD names.
function(add_host_tool name)
  cmake_parse_arguments(PARSE_ARGV 1 tool "" "" "SOURCES;LIBRARIES")
  if(NOT CMAKE_CROSSCOMPILING)
    add_executable(${name} ${tool_SOURCES})
    target_link_libraries(${name} PRIVATE velarda_options ${tool_LIBRARIES})
    return()
  endif()
  file(GLOB program ${VELARDA_HOST_BUILD}/*/${name})
  if(NOT program)
    message(FATAL_ERROR "There is no ${name} in VELARDA_HOST_BUILD, ${VELARDA_HOST_BUILD}.")
  endif()
  add_executable(${name} IMPORTED)
  set_target_properties(${name} PROPERTIES IMPORTED_LOCATION ${program})
endfunction()
