# How the shared library is linked. What one compiler or linker alone knows is asked for before it is used.
include(CheckCXXCompilerFlag)
include(CheckLinkerFlag)

# The library's calls of its own functions stay inside, and take no detour to see who else defines them.
check_cxx_compiler_flag(-fno-semantic-interposition ORVET_HAS_NO_INTERPOSITION)
if(ORVET_HAS_NO_INTERPOSITION AND NOT WIN32)
  target_compile_options(orvet_objects PRIVATE -fno-semantic-interposition)
endif()

# Links with `flag` if the linker knows it; `result` is the variable that keeps the answer.
function(orvet_link_with flag result)
  check_linker_flag(CXX ${flag} ${result})
  if(${result})
    target_link_options(orvet PRIVATE ${flag})
  endif()
endfunction()

if(WIN32)
  set_target_properties(orvet PROPERTIES RUNTIME_OUTPUT_NAME orvet DLL_NAME_WITH_SOVERSION OFF)
  if(MINGW) # The DLL stands alone: a tool needs no other file of the compiler's.
    target_link_options(orvet PRIVATE -static)
  endif()
  enable_language(RC)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/version.rc.in version.rc @ONLY)
  target_sources(orvet PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/version.rc)
  return()
endif()

# Unloading would lose the channels, whose files stay open, and what is written at exit.
orvet_link_with(LINKER:-z,nodelete ORVET_HAS_NODELETE)
orvet_link_with(LINKER:-Bsymbolic-functions ORVET_HAS_SYMBOLIC_FUNCTIONS)
# Visibility hides what is not marked; the list also hides what the standard library's templates bring along.
set(exports ${CMAKE_CURRENT_SOURCE_DIR}/exports.map)
orvet_link_with(LINKER:--version-script=${exports} ORVET_HAS_VERSION_SCRIPT)
set_target_properties(orvet PROPERTIES LINK_DEPENDS ${exports})
if(PROJECT_IS_TOP_LEVEL) # a check of our own; with clang's sanitizers it fails
  orvet_link_with(LINKER:--no-undefined ORVET_HAS_NO_UNDEFINED)
endif()
