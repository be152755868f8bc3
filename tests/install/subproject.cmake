# Takes the library into another project, to which it must bring neither warnings nor files to install.
#   cmake -D SOURCE=... -D WORK=... -D COMPILER=... -P subproject.cmake
file(REMOVE_RECURSE ${WORK})
file(WRITE ${WORK}/CMakeLists.txt "cmake_minimum_required(VERSION 3.25)
project(parent LANGUAGES CXX)
add_subdirectory(${SOURCE} orvet)
")
execute_process(COMMAND ${CMAKE_COMMAND} -S ${WORK} -B ${WORK}/build -G Ninja -D CMAKE_CXX_COMPILER=${COMPILER}
  -D CMAKE_EXPORT_COMPILE_COMMANDS=ON OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(STRINGS ${WORK}/build/compile_commands.json with_warnings REGEX "\"command\".* -W")
if(with_warnings)
  message(SEND_ERROR "compiled with warnings:\n${with_warnings}")
endif()
file(READ ${WORK}/build/orvet/cmake_install.cmake install_rules)
if(install_rules MATCHES "file\\(INSTALL")
  message(SEND_ERROR "files are installed:\n${install_rules}")
endif()
