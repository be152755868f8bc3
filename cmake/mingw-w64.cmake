# Windows on x86-64 by Debian's mingw-w64; what is built runs under Wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(triplet x86_64-w64-mingw32)
set(CMAKE_CXX_COMPILER ${triplet}-g++-posix)
set(CMAKE_C_COMPILER ${triplet}-gcc-posix)
set(CMAKE_RC_COMPILER ${triplet}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${triplet})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)

find_program(ORVET_WINE NAMES wine64 wine64-stable wine PATHS /usr/lib/wine NO_CMAKE_FIND_ROOT_PATH)
if(ORVET_WINE)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${ORVET_WINE})
endif()
