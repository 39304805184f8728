# 32-bit Windows from Debian: mingw-w64 with POSIX threads. packaging/windows-tools.sh installs it and builds the libraries,
# into ORVANE_WINDOWS_ROOT.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_C_COMPILER i686-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER i686-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER i686-w64-mingw32-windres)

# The x87 unit rounds to more bits than the events' arithmetic has on 64-bit systems.
set(CMAKE_C_FLAGS_INIT "-msse2 -mfpmath=sse")
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse")

# The oldest Windows that Qt 6 runs on is 10.
add_compile_definitions(WINVER=0x0A00 _WIN32_WINNT=0x0A00 UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN)

set(ORVANE_WINDOWS_ROOT ${CMAKE_CURRENT_LIST_DIR}/../build/windows CACHE PATH "What packaging/windows-tools.sh made")
set(CMAKE_FIND_ROOT_PATH ${ORVANE_WINDOWS_ROOT}/libraries ${ORVANE_WINDOWS_ROOT}/qt /usr/i686-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
