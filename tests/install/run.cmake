# Runs a command in WORK, which starts empty; ends the script if it fails, and leaves what it printed in `output`.
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
function(run)
  execute_process(COMMAND ${ARGN} WORKING_DIRECTORY ${WORK} RESULT_VARIABLE code OUTPUT_VARIABLE output
    ERROR_VARIABLE errors)
  if(NOT code EQUAL 0)
    list(JOIN ARGN " " command)
    message(FATAL_ERROR "${command}\ngave ${code}\n${output}${errors}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()
