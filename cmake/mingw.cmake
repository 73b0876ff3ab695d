# The tools of mingw-w64 for ${triplet}.
set(CMAKE_C_COMPILER ${triplet}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triplet}-g++-posix)
set(CMAKE_RC_COMPILER ${triplet}-windres)
set(QUILLET_WIDL ${triplet}-widl)
