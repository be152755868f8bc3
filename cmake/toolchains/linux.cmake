# Linux with glibc on another processor, by Debian's cross compilers; what is built runs under qemu-user. Included with
# `triplet` and `qemu` set.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_CXX_COMPILER ${triplet}-g++)
set(CMAKE_C_COMPILER ${triplet}-gcc)

set(sysroot /usr/${triplet})
set(CMAKE_FIND_ROOT_PATH ${sysroot})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)

find_program(ORVET_QEMU NAMES ${qemu} ${qemu}-static NO_CMAKE_FIND_ROOT_PATH)
if(ORVET_QEMU)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${ORVET_QEMU} -L ${sysroot})
endif()
