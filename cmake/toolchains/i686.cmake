# Windows on 32-bit x86 by Debian's mingw-w64. Debian's 64-bit Wine does not run it.
set(ORVET_WINDOWS_PROCESSOR i686)
include(${CMAKE_CURRENT_LIST_DIR}/../mingw-w64.cmake)
