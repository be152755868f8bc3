# Installs the library, takes the first tool out of the README, builds it against what is installed in both ways,
# and runs it. FROM tells how it is installed: "install", or the kind of package that is made and unpacked.
#   cmake -D FROM=install|TGZ|ZIP -D BUILD=... -D SOURCE=... -D WORK=... -D COMPILER=...
#     [-D TOOLCHAIN=... -D EMULATOR=...] -P check.cmake
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

set(toolchain)
if(TOOLCHAIN)
  file(GLOB TOOLCHAIN ${prefix}/lib/cmake/orvet/mingw-w64.cmake)
  set(toolchain -DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN})
endif()
run(${CMAKE_COMMAND} -S ${SOURCE}/tests/install/consumer -B ${WORK}/build -G Ninja ${toolchain}
  -DCMAKE_PREFIX_PATH=${prefix} -DFIRST_TOOL=${WORK}/first_tool.cpp)
run(${CMAKE_COMMAND} --build ${WORK}/build)

# The library on its own, where the system looks for it.
file(GLOB_RECURSE library ${prefix}/*.so.? ${prefix}/*.dll)
get_filename_component(library_dir ${library} DIRECTORY)
set(run_env ${CMAKE_COMMAND} -E env --unset=KTXPATH KTXPATH=${WORK} KTXWORK=${WORK} brdcfg=${WORK}
  LD_LIBRARY_PATH=${library_dir} WINEDEBUG=-all)
if(EMULATOR)
  file(COPY ${library} DESTINATION ${WORK}/build)
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
string(STRIP "${output}" flags)
separate_arguments(flags UNIX_COMMAND "${flags}")
set(program ${WORK}/build/by_pkg_config.exe)
if(EMULATOR) # all but this library from the compiler's static ones
  set(flags -static -Wl,-Bdynamic ${flags} -Wl,-Bstatic)
endif()
run(${COMPILER} -std=c++20 ${WORK}/first_tool.cpp -o ${program} ${flags})
expect_domains(${program})
