# The Debian pair: the library, and what tools are built with. What CPack can't say is added by finish_debian.cmake.
set(runtime_package liborvet${PROJECT_VERSION_MAJOR})

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${runtime_package})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "${PROJECT_DESCRIPTION}, to run them")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME liborvet-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
if(BUILD_SHARED_LIBS) # the static library needs nothing to run
  set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${runtime_package} (= ${PROJECT_VERSION})")
endif()
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "${PROJECT_DESCRIPTION}, to build them")
set(CPACK_POST_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/finish_debian.cmake)

# What changes is in CHANGELOG.md, in each package; Debian asks for a changelog of its own form beside it.
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
file(WRITE ${PROJECT_BINARY_DIR}/changelog
"orvet (${PROJECT_VERSION}) unstable; urgency=medium

  * Version ${PROJECT_VERSION}: see CHANGELOG.md in this directory.

 -- ${CPACK_PACKAGE_CONTACT}  ${date}
")
execute_process(COMMAND gzip -9nf ${PROJECT_BINARY_DIR}/changelog COMMAND_ERROR_IS_FATAL ANY)
install(FILES ${PROJECT_BINARY_DIR}/changelog.gz CHANGELOG.md
  DESTINATION share/doc/${runtime_package} COMPONENT runtime)
install(FILES ${PROJECT_BINARY_DIR}/changelog.gz DESTINATION share/doc/liborvet-dev COMPONENT development)
