# What a user gets: headers, the library, a CMake package, a pkg-config file, documents and the sample tool.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/orvet)

install(TARGETS orvet
  EXPORT orvetTargets
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
  FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development
  FILE_SET generated DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}) # for CMake before 3.23, which knows no file sets
install(EXPORT orvetTargets NAMESPACE orvet:: DESTINATION ${package_dir} COMPONENT development)

configure_package_config_file(cmake/orvetConfig.cmake.in orvetConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(orvetConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/orvetConfig.cmake ${PROJECT_BINARY_DIR}/orvetConfigVersion.cmake
  DESTINATION ${package_dir} COMPONENT development)

file(RELATIVE_PATH relative_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" relative_prefix "${relative_prefix}")
set(static_flag)
if(NOT BUILD_SHARED_LIBS)
  set(static_flag " -DORVET_STATIC")
endif()
configure_file(cmake/orvet.pc.in orvet.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/orvet.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

install(FILES README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development)
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development FILES_MATCHING PATTERN *.md)
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development USE_SOURCE_PERMISSIONS)
if(WIN32)
  # A tool takes the compiler that has made the DLL.
  install(FILES cmake/mingw-w64.cmake DESTINATION ${package_dir} COMPONENT development)
endif()
