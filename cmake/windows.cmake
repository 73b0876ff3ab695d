# Cross-compiles for 64 bits with mingw-w64, whose posix variant has the standard library's threads
# and file system.
set(CMAKE_SYSTEM_NAME Windows)
set(triplet x86_64-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
