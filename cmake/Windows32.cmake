# 32-bit Windows from Debian: mingw-w64 with POSIX threads. packaging/windows/tools.sh installs it and builds the libraries.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_C_COMPILER i686-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER i686-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER i686-w64-mingw32-windres)

# The x87 unit rounds to more bits than the events' arithmetic has on 64-bit systems. Where g++ 12 splits a cold part off a
# function it may leave one of no size at the same address, and the unwinder then ends the program at an exception.
set(CMAKE_C_FLAGS_INIT "-msse2 -mfpmath=sse")
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse -fno-reorder-blocks-and-partition")

get_filename_component(windows_tools ${CMAKE_CURRENT_LIST_DIR}/../build/windows-tools REALPATH)
set(ORVANE_WINDOWS_ROOT ${windows_tools} CACHE PATH "What packaging/windows/tools.sh made")
set(CMAKE_FIND_ROOT_PATH ${ORVANE_WINDOWS_ROOT}/libraries ${ORVANE_WINDOWS_ROOT}/qt /usr/i686-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_LIBDIR} ${ORVANE_WINDOWS_ROOT}/libraries/lib/pkgconfig)

# Qt's tools (moc, rcc) are those of this machine, in the same version.
set(QT_HOST_PATH /usr CACHE PATH "")
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/${CMAKE_HOST_SYSTEM_PROCESSOR}-linux-gnu/cmake CACHE PATH "")
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../packaging/windows/wine.sh)
