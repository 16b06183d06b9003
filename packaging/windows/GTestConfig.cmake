# GoogleTest from the sources of the package `googletest`.
if(NOT TARGET gtest)
    set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
    add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
endif()
set(GTest_FOUND TRUE)
include_directories(SYSTEM ${CMAKE_BINARY_DIR}/include)  # nlohmann-json, see CLI11Config.cmake
