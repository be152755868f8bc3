# Windows on x86-64 with the universal C runtime, by Debian's mingw-w64, whose own choice is the older msvcrt.
# Programs are linked with -static: the compiler's own DLLs are made for the older one.
include(${CMAKE_CURRENT_LIST_DIR}/../mingw-w64.cmake)

# The checks that CMake compiles on the way use the files of the build that they are for.
if(NOT ORVET_UCRT_DIR)
  set(ORVET_UCRT_DIR ${CMAKE_BINARY_DIR}/ucrt)
endif()
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ORVET_UCRT_DIR)

# What the compiler links with is in its specs; here they name the other runtime, and a library with a function
# that the thread library asks for and this runtime has by another name.
set(specs ${ORVET_UCRT_DIR}/specs)
set(setjmp ${ORVET_UCRT_DIR}/setjmp)
if(NOT EXISTS ${specs})
  file(WRITE ${setjmp}.s ".globl _setjmp\n_setjmp: jmp __intrinsic_setjmpex\n")
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -c ${setjmp}.s -o ${setjmp}.o COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND ${triplet}-ar rcs ${setjmp}.a ${setjmp}.o COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -dumpspecs OUTPUT_VARIABLE text COMMAND_ERROR_IS_FATAL ANY)
  string(REPLACE "-lmsvcrt" "${setjmp}.a -lucrt" text "${text}")
  # The compiler's C++ library is made for the older runtime's mbstate_t, an int. It uses it for wide streams alone.
  file(READ /usr/${triplet}/include/wchar.h header)
  string(REPLACE "defined(_UCRT) || defined(__LARGE" "defined(__LARGE" header "${header}")
  string(REPLACE "!defined(_UCRT) && !defined(__LARGE" "!defined(__LARGE" header "${header}")
  file(WRITE ${ORVET_UCRT_DIR}/include/wchar.h "${header}")
  file(WRITE ${specs} "${text}")
endif()
set(flags " -D_UCRT -isystem ${ORVET_UCRT_DIR}/include -specs=${specs}")
string(APPEND CMAKE_C_FLAGS_INIT ${flags})
string(APPEND CMAKE_CXX_FLAGS_INIT ${flags})
