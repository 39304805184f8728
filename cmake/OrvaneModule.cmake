# A module: one folder, one static library, and an include path that shows this folder alone.
#
#     orv_module(orv_engine backend/engine
#       USES orv_model orv_messages      modules whose headers it may include; so may the modules that use it
#       LINKS PkgConfig::SDL2            libraries and modules that its sources alone use
#       PRECOMPILE qt                    the kind of its precompiled headers; standard without it
#       ALONE ChordArpeggio.cpp          sources that a unity build compiles by themselves, because names that are local to
#                                        them are local to others too
#       SOURCES Arpeggio.cpp ...)        relative to the folder
#
# Sources write `#include "backend/engine/Slice.h"`; a header of a module that is not among USES, or theirs, is not found.
function(orv_module name folder)
  cmake_parse_arguments(ARG "" "PRECOMPILE" "USES;LINKS;ALONE;SOURCES" ${ARGN})
  list(TRANSFORM ARG_SOURCES PREPEND ${CMAKE_SOURCE_DIR}/${folder}/)
  if(ARG_SOURCES)
    add_library(${name} STATIC ${ARG_SOURCES})
    list(TRANSFORM ARG_ALONE PREPEND ${CMAKE_SOURCE_DIR}/${folder}/)
    set_source_files_properties(${ARG_ALONE} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
    set(scope PUBLIC)
    target_link_libraries(${name} PRIVATE ${ARG_LINKS})
    if(NOT ARG_PRECOMPILE)
      set(ARG_PRECOMPILE standard)
    endif()
    orv_precompile(${name} ${ARG_PRECOMPILE})
  else()
    add_library(${name} INTERFACE)
    set(scope INTERFACE)
  endif()

  set(view ${CMAKE_BINARY_DIR}/include/${name})
  get_filename_component(parent ${view}/${folder} DIRECTORY)
  file(MAKE_DIRECTORY ${parent})
  file(CREATE_LINK ${CMAKE_SOURCE_DIR}/${folder} ${view}/${folder} SYMBOLIC)
  target_include_directories(${name} ${scope} ${view})
  target_link_libraries(${name} ${scope} ${ARG_USES})
  set_property(GLOBAL APPEND_STRING PROPERTY ORVANE_MODULES "${folder} ${name} ${ARG_USES} ${ARG_LINKS}\n")
endfunction()

# The targets, with sources, of the modules in these folders and below.
function(orv_modules_below result)
  get_property(modules GLOBAL PROPERTY ORVANE_MODULES)
  string(REPLACE "\n" ";" modules "${modules}")
  set(found)
  foreach(module ${modules})
    string(REGEX MATCH "^([^ /]+)[^ ]* ([^ ]+)" whole "${module}")
    set(target ${CMAKE_MATCH_2})
    if(CMAKE_MATCH_1 IN_LIST ARGN)
      get_target_property(type ${target} TYPE)
      if(NOT type STREQUAL INTERFACE_LIBRARY)
        list(APPEND found ${target})
      endif()
    endif()
  endforeach()
  set(${result} ${found} PARENT_SCOPE)
endfunction()

# Writes modules.txt into the build folder, a line for each module: its folder, then the folders of the modules it uses.
# What draws the architecture reads it.
function(orv_write_modules)
  get_property(modules GLOBAL PROPERTY ORVANE_MODULES)
  string(REPLACE ";" " " modules "${modules}")
  string(REPLACE "\n" ";" modules "${modules}")
  foreach(module ${modules})
    separate_arguments(words UNIX_COMMAND "${module}")
    list(GET words 0 folder)
    list(GET words 1 target)
    set(folder_of_${target} ${folder})
  endforeach()
  set(folder_of_Orv3_32 library)
  set(folder_of_orv_host_platform platform)

  set(text "")
  foreach(module ${modules})
    separate_arguments(words UNIX_COMMAND "${module}")
    list(POP_FRONT words folder target)
    set(used)
    foreach(use ${words})
      if(DEFINED folder_of_${use})
        list(APPEND used ${folder_of_${use}})
      elseif(TARGET ${use} AND use MATCHES "^orv_")  # several modules under one name
        get_target_property(members ${use} INTERFACE_LINK_LIBRARIES)
        foreach(member ${members})
          list(APPEND used ${folder_of_${member}})
        endforeach()
      endif()
    endforeach()
    list(SORT used)
    list(REMOVE_DUPLICATES used)
    list(JOIN used " " used)
    string(APPEND text "${folder}: ${used}\n")
  endforeach()
  file(WRITE ${CMAKE_BINARY_DIR}/modules.txt "${text}")
endfunction()
