# What every target is compiled with.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)

set(ORVANE_SANITIZE "" CACHE STRING "Sanitizers, as for -fsanitize=")

# Oscillators are IEEE double, left to right: no contraction, ever.
add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Wnon-virtual-dtor -Werror
                    -ffp-contract=off -fno-semantic-interposition)
if(WIN32)
  add_compile_definitions(UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN)
endif()
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  add_compile_options(-Wthread-safety -Wthread-safety-beta)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # The compiler collects its garbage from 512 MB on (in kilobytes), which few of our sources need: at its default, at
  # most 128 MB, a twelfth of the time goes into it.
  add_compile_options(--param=ggc-min-heapsize=524288)
endif()
if(ORVANE_SANITIZE)
  add_compile_options(-fsanitize=${ORVANE_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${ORVANE_SANITIZE})
endif()

option(ORVANE_ANALYSE "Only check the sources: empty files stand for objects, libraries and programs" OFF)
if(ORVANE_ANALYSE)
  set(nothing "${CMAKE_COMMAND} -E touch")
  set(CMAKE_CXX_COMPILE_OBJECT
    "<CMAKE_CXX_COMPILER> <DEFINES> <INCLUDES> -fsyntax-only <FLAGS> -Xclang -o -Xclang <OBJECT> <SOURCE>"
    "${nothing} <OBJECT>")
  set(CMAKE_CXX_ARCHIVE_CREATE "${nothing} <TARGET>")
  set(CMAKE_CXX_ARCHIVE_FINISH "")
  set(CMAKE_CXX_CREATE_SHARED_LIBRARY "${nothing} <TARGET>")
  set(CMAKE_CXX_CREATE_SHARED_MODULE "${nothing} <TARGET>")
  set(CMAKE_CXX_LINK_EXECUTABLE "${nothing} <TARGET>")
else()
  # The compiler's cache, allowed to take precompiled headers
  find_program(CCACHE ccache)
  if(CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
      CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${CCACHE})
  endif()
endif()

find_package(Threads REQUIRED)
include(OrvanePrecompile)
