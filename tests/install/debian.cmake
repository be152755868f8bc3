# Makes the Debian packages as ./dev package does and takes them as a tool's packager would: lintian accepts them, the
# sample tool among the documents builds and runs on what is unpacked, and dpkg-shlibdeps finds what the tool needs.
#   cmake -D SOURCE=... -D WORK=... -P debian.cmake
include(${CMAKE_CURRENT_LIST_DIR}/run.cmake)

run(${CMAKE_COMMAND} --preset debian -S ${SOURCE} -B ${WORK}/library)
run(${CMAKE_COMMAND} --build ${WORK}/library)
run(${CMAKE_CPACK_COMMAND} --config ${WORK}/library/CPackConfig.cmake -B ${WORK}/packages)
file(GLOB packages ${WORK}/packages/*.deb)

# Which licence it is, only the owner can say.
run(lintian --allow-root --fail-on error,warning --suppress-tags no-copyright-file ${packages})

foreach(package IN LISTS packages)
  run(dpkg-deb -x ${package} ${WORK}/root)
  if(package MATCHES "/liborvet[0-9]")
    run(dpkg-deb -R ${package} ${WORK}/runtime)
  endif()
endforeach()
run(${CMAKE_COMMAND} -S ${WORK}/root/usr/share/doc/liborvet-dev/examples -B ${WORK}/tool -G Ninja
  -DCMAKE_PREFIX_PATH=${WORK}/root/usr)
run(${CMAKE_COMMAND} --build ${WORK}/tool)
file(GLOB_RECURSE library ${WORK}/root/usr/lib/*/liborvet.so.?)
get_filename_component(library_dir "${library}" DIRECTORY)
run(${CMAKE_COMMAND} -E env LD_LIBRARY_PATH=${library_dir} ${WORK}/tool/ktxsample -explain 259)
if(NOT output MATCHES "no_count")
  message(FATAL_ERROR "ktxsample printed\n${output}")
endif()

file(WRITE ${WORK}/debian/control "Source: tool\n\nPackage: tool\nArchitecture: any\n")
run(dpkg-shlibdeps -O -S${WORK}/runtime ${WORK}/tool/ktxsample)
if(NOT output MATCHES "liborvet[0-9]+ \\(>= ")
  message(FATAL_ERROR "dpkg-shlibdeps found\n${output}")
endif()
