# Tool chain file: builds for 64-bit Windows with Debian's MinGW-w64 (posix threads). The libraries come from the
# prefix that scripts/windows/build-sysroot.sh makes; KESTRUM_WINDOWS_SYSROOT, in the environment or the cache,
# says where it is.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

if(NOT KESTRUM_WINDOWS_SYSROOT)
    set(KESTRUM_WINDOWS_SYSROOT "$ENV{KESTRUM_WINDOWS_SYSROOT}" CACHE PATH "Prefix with the libraries for Windows")
endif()
if(NOT KESTRUM_WINDOWS_SYSROOT)
    message(FATAL_ERROR "KESTRUM_WINDOWS_SYSROOT does not say where the libraries for Windows are.")
endif()
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES KESTRUM_WINDOWS_SYSROOT)

find_program(KESTRUM_WINE NAMES wine64 PATHS /usr/lib/wine)
if(KESTRUM_WINE)
    # Tests are Windows programs, so ctest starts them under Wine.
    set(CMAKE_CROSSCOMPILING_EMULATOR ${KESTRUM_WINE})
endif()

set(CMAKE_FIND_ROOT_PATH ${KESTRUM_WINDOWS_SYSROOT})
set(CMAKE_PREFIX_PATH ${KESTRUM_WINDOWS_SYSROOT})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)
