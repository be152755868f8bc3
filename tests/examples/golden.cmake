# Runs a tool and compares all that it says, and its exit value, with a golden file; a difference is shown as lines.
# With the variable ORVET_UPDATE_GOLDEN set, the file is written anew, for review.
#   cmake -D TOOL=... -D EMULATOR=... -D ARGUMENTS=...;... -D DIRECTORY=... -D WORK=... -D GOLDEN=... -P golden.cmake
file(MAKE_DIRECTORY ${WORK})
set(ENV{KTXPATH} ${WORK})
execute_process(COMMAND ${EMULATOR} ${TOOL} ${ARGUMENTS} WORKING_DIRECTORY ${DIRECTORY}
  OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE exit_value)
string(REPLACE "\r" "" transcript "${output}${errors}exit value ${exit_value}\n")
if(DEFINED ENV{ORVET_UPDATE_GOLDEN})
  file(WRITE ${GOLDEN} "${transcript}")
endif()
file(READ ${GOLDEN} expected)
if(NOT transcript STREQUAL expected)
  get_filename_component(name ${GOLDEN} NAME)
  file(WRITE ${WORK}/${name} "${transcript}")
  execute_process(COMMAND diff -u ${GOLDEN} ${WORK}/${name})
  message(FATAL_ERROR "the output differs from ${GOLDEN}")
endif()
