# Velarda, a card game of the Scopa family.
# SPDX-License-Identifier: MIT

# add_room(FOLDER [USES folder...] SOURCES file... [SYSTEMS_OWN file...])
#
# A room is a folder and a library of its sources, velarda_FOLDER with / as _. Its headers are found
# through a folder of their own in the build, so that a room sees those of the rooms that it uses
# and no others: an include that points back up finds no file, and a declaration written by hand
# finds no symbol in the test of the room. What each system has a way of its own for has a neighbour
# of the same name in platform/windows, which takes its place in a build for Windows.
function(add_room folder)
  cmake_parse_arguments(PARSE_ARGV 1 room "" "" "USES;SOURCES;SYSTEMS_OWN")
  string(REPLACE / _ name ${folder})
  set(target velarda_${name})
  set(headers ${PROJECT_BINARY_DIR}/rooms/${name})
  file(MAKE_DIRECTORY ${headers}/${folder})
  file(GLOB found CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.h)
  foreach(header IN LISTS found)
    get_filename_component(file ${header} NAME)
    file(CREATE_LINK ${header} ${headers}/${folder}/${file} SYMBOLIC)
  endforeach()

  set(systems_folder ${folder})
  if(WIN32)
    set(systems_folder platform/windows)
  endif()
  list(TRANSFORM room_SOURCES PREPEND ${PROJECT_SOURCE_DIR}/${folder}/)
  list(TRANSFORM room_SYSTEMS_OWN PREPEND ${PROJECT_SOURCE_DIR}/${systems_folder}/)
  add_library(${target} STATIC ${room_SOURCES} ${room_SYSTEMS_OWN})
  target_include_directories(${target} PUBLIC ${headers})
  target_link_libraries(${target} PUBLIC velarda_options)
  foreach(used IN LISTS room_USES)
    string(REPLACE / _ used ${used})
    target_link_libraries(${target} PUBLIC velarda_${used})
  endforeach()
endfunction()
