# The packages: a Debian pair and a tar.gz, or, for Windows, a zip with the DLL, its import library and headers.
#
# The SONAME is the major version. It goes up with any change after which a tool built against the former library
# may misbehave: an exported name gone or changed, a public class with other fields or virtual functions. What only
# adds names raises the minor version; what changes no interface, the last number.
set(CPACK_PACKAGE_NAME orvet)
set(CPACK_PACKAGE_VENDOR "Ketrix")
set(CPACK_PACKAGE_CONTACT "Ketrix maintainers <ketrix@localhost>")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_STRIP_FILES ON)
if(WIN32)
  set(orvet_packages ZIP)
else()
  set(orvet_packages DEB TGZ)
endif()

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME liborvet${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "${PROJECT_DESCRIPTION}, to run them")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME liborvet-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
  "${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME} (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "${PROJECT_DESCRIPTION}, to build them")

set(CPACK_GENERATOR ${orvet_packages}) # CPack leaves another value behind
include(CPack)
