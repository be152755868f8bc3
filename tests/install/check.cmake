# Installs the library, takes the first tool out of the README, builds it against what is installed in both ways,
# and runs it; then, once, a tool without exceptions and type information, by each of COMPILERS, of which the first has
# made the library. FROM tells how it is installed: "install", or the kind of package that is made and unpacked.
#   cmake -D FROM=install|TGZ|ZIP -D BUILD=... -D SOURCE=... -D WORK=... -D COMPILERS=...
#     [-D FLAGS=... -D TOOLCHAIN=... -D EMULATOR=... -D WINDOWS=ON] -P check.cmake
include(${CMAKE_CURRENT_LIST_DIR}/run.cmake)

set(prefix ${WORK}/prefix)
if(FROM STREQUAL install)
  run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${prefix})
else()
  run(${CMAKE_CPACK_COMMAND} --config ${BUILD}/CPackConfig.cmake -G ${FROM} -B ${WORK}/packages)
  file(GLOB packages ${WORK}/packages/*orvet*)
  foreach(package IN LISTS packages)
    if(NOT IS_DIRECTORY ${package})
      file(ARCHIVE_EXTRACT INPUT ${package} DESTINATION ${prefix})
    endif()
  endforeach()
  file(GLOB_RECURSE header ${prefix}/orvet.h)
  get_filename_component(prefix ${header}/../../.. ABSOLUTE)
endif()

file(READ ${prefix}/share/doc/orvet/README.md page)
string(REGEX MATCH "```cpp\n([^`]*)```" found "${page}")
if(NOT found)
  message(FATAL_ERROR "the README holds no tool")
endif()
file(WRITE ${WORK}/first_tool.cpp "${CMAKE_MATCH_1}")

# CMake before 3.23 ignores the file sets.
file(READ ${prefix}/lib/cmake/orvet/orvetTargets.cmake targets)
if(NOT targets MATCHES "INTERFACE_INCLUDE_DIRECTORIES")
  message(FATAL_ERROR "the CMake package names no include directory")
endif()

list(GET COMPILERS 0 compiler)
set(compiler_or_toolchain -DCMAKE_CXX_COMPILER=${compiler} -DCMAKE_CXX_FLAGS=${FLAGS})
if(TOOLCHAIN MATCHES "/mingw-w64.cmake$") # the package brings it
  set(TOOLCHAIN ${prefix}/lib/cmake/orvet/mingw-w64.cmake)
endif()
if(TOOLCHAIN)
  set(compiler_or_toolchain -DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN})
endif()
run(${CMAKE_COMMAND} -S ${SOURCE}/tests/install/consumer -B ${WORK}/build -G Ninja ${compiler_or_toolchain}
  -DCMAKE_PREFIX_PATH=${prefix} -DFIRST_TOOL=${WORK}/first_tool.cpp)
run(${CMAKE_COMMAND} --build ${WORK}/build)

# The library on its own, where the system looks for it; a static one is in the program.
file(GLOB_RECURSE library ${prefix}/*.so.? ${prefix}/*.dll)
set(run_env ${CMAKE_COMMAND} -E env --unset=KTXPATH KTXPATH=${WORK} KTXWORK=${WORK} brdcfg=${WORK} WINEDEBUG=-all)
if(library AND WINDOWS)
  file(COPY ${library} DESTINATION ${WORK}/build)
  file(COPY ${library} DESTINATION ${WORK})
elseif(library)
  get_filename_component(library_dir ${library} DIRECTORY)
  list(APPEND run_env LD_LIBRARY_PATH=${library_dir})
endif()

set(data ${SOURCE}/examples/data/scan.res)
function(expect_domains program)
  run(${run_env} ${EMULATOR} ${program} -file ${data})
  if(NOT output MATCHES "HQ1 +6 targets")
    message(FATAL_ERROR "${program} printed\n${output}")
  endif()
endfunction()
file(GLOB built ${WORK}/build/first_tool ${WORK}/build/first_tool.exe)
expect_domains(${built})

find_program(pkg_config NAMES pkg-config pkgconf)
if(NOT pkg_config)
  message(FATAL_ERROR "pkg-config is missing")
endif()
file(GLOB_RECURSE pc ${prefix}/orvet.pc)
get_filename_component(pc_dir ${pc} DIRECTORY)
run(${CMAKE_COMMAND} -E env PKG_CONFIG_PATH=${pc_dir} ${pkg_config} --cflags --libs orvet)
string(STRIP "${FLAGS} ${output}" flags)
separate_arguments(flags UNIX_COMMAND "${flags}")
if(WINDOWS) # all but this library from the compiler's static ones
  set(flags -static -Wl,-Bdynamic ${flags} -Wl,-Bstatic)
endif()
run(${compiler} -std=c++20 ${WORK}/first_tool.cpp -o ${WORK}/by_pkg_config.exe ${flags})
expect_domains(${WORK}/by_pkg_config.exe)

if(NOT FROM STREQUAL install)
  return()
endif()
foreach(compiler IN LISTS COMPILERS)
  run(${compiler} -std=c++20 -fno-exceptions -fno-rtti -Wall -Wextra -Wpedantic -Werror
    ${SOURCE}/tests/install/consumer/plain_tool.cpp -o ${WORK}/plain_tool.exe ${flags})
  run(${run_env} ${EMULATOR} ${WORK}/plain_tool.exe)
endforeach()
