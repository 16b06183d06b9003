# Windows from Debian: engine, app, command line and their tests with g++-mingw-w64-x86-64-posix. The desktop, PDF, PNG
# and spreadsheets need libraries that Debian does not have for Windows.
#   cmake -S . -B build/windows -G Ninja --toolchain packaging/mingw-w64.cmake -DKESTRUM_DESKTOP=OFF -DKESTRUM_BENCH=OFF
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# The programs run without the compiler's own libraries next to them.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")

# Tools of this machine, libraries of the other one; header-only packages may come from here.
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)

find_program(KESTRUM_WINE wine64 PATHS /usr/lib/wine)
if(KESTRUM_WINE)
    set(CMAKE_CROSSCOMPILING_EMULATOR ${KESTRUM_WINE})
endif()

# What Debian has as sources or headers only.
set(CLI11_DIR ${CMAKE_CURRENT_LIST_DIR}/windows CACHE PATH "")
set(GTest_DIR ${CMAKE_CURRENT_LIST_DIR}/windows CACHE PATH "")
