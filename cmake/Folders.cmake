# Each folder is a library target, and a target sees the headers of exactly the folders it links. Headers are
# included by their path from the repository's root ("dsp/flush.h"); that path resolves through a small
# directory of links per target, so an include that the layer rules forbid doesn't build.

# velmora_expose(TARGET FOLDER [HEADER...]): lets users of TARGET include FOLDER's headers, or only those named.
function(velmora_expose target folder)
  set(root ${CMAKE_BINARY_DIR}/include/${target})
  if(ARGN)
    file(MAKE_DIRECTORY ${root}/${folder})
    foreach(header IN LISTS ARGN)
      file(CREATE_LINK ${CMAKE_SOURCE_DIR}/${folder}/${header} ${root}/${folder}/${header} SYMBOLIC)
    endforeach()
  else()
    get_filename_component(parent ${root}/${folder} DIRECTORY)
    file(MAKE_DIRECTORY ${parent})
    file(CREATE_LINK ${CMAKE_SOURCE_DIR}/${folder} ${root}/${folder} SYMBOLIC)
  endif()
  get_target_property(type ${target} TYPE)
  if(type STREQUAL "INTERFACE_LIBRARY")
    target_include_directories(${target} INTERFACE ${root})
  else()
    target_include_directories(${target} PUBLIC ${root})
  endif()
endfunction()

# velmora_folder(TARGET FOLDER SOURCES... [LINKS targets...]): a static library for a folder of the tree.
function(velmora_folder target folder)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${target} STATIC ${ARG_SOURCES})
  target_link_libraries(${target} PUBLIC ${ARG_LINKS})
  velmora_expose(${target} ${folder})
endfunction()
