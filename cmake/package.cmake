# The packages: a Debian pair if the prefix is /usr, else a tar.gz, or, for Windows, a zip with the DLL, its import
# library and headers.
#
# The SONAME is the major version. It goes up with any change after which a tool built against the former library
# may misbehave: an exported name gone or changed, a public class with other fields or virtual functions. What only
# adds names raises the minor version; what changes no interface, the last number.
set(CPACK_PACKAGE_NAME orvet)
set(CPACK_PACKAGE_VENDOR "Ketrix")
set(CPACK_PACKAGE_CONTACT "Ketrix maintainers <maintainers@ketrix.example>")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_STRIP_FILES ON)
if(WIN32)
  set(orvet_packages ZIP)
elseif(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
  set(orvet_packages DEB)
  include(${CMAKE_CURRENT_LIST_DIR}/debian.cmake)
else()
  set(orvet_packages TGZ)
endif()

set(CPACK_GENERATOR ${orvet_packages}) # CPack leaves another value behind
include(CPack)
