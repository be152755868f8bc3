# Run by CPack on the Debian packages that it has made: lets a trigger call ldconfig in place of CPack's scripts, and
# lets packages of several architectures be installed together.
foreach(package IN LISTS CPACK_PACKAGE_FILES)
  set(tree ${CPACK_TEMPORARY_DIRECTORY}/finish)
  file(REMOVE_RECURSE ${tree})
  execute_process(COMMAND dpkg-deb -R ${package} ${tree} COMMAND_ERROR_IS_FATAL ANY)
  if(EXISTS ${tree}/DEBIAN/shlibs)
    file(WRITE ${tree}/DEBIAN/triggers "activate-noawait ldconfig\n")
  endif()
  file(REMOVE ${tree}/DEBIAN/postinst ${tree}/DEBIAN/postrm)
  file(READ ${tree}/DEBIAN/control control)
  file(WRITE ${tree}/DEBIAN/control "Multi-Arch: same\n${control}")
  execute_process(COMMAND dpkg-deb --root-owner-group -b ${tree} ${package} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
endforeach()
