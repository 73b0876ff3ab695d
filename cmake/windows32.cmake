# The same for 32 bits: a host cannot load a component of the other width.
set(CMAKE_SYSTEM_NAME Windows)
set(triplet i686-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
