# Compiles the public headers, each alone, and all_calls.cpp with the warnings that a tool may have turned on, and
# sees that what is refused says what to write instead.
#   cmake -D COMPILER=... -D OTHER=... -D "HEADERS=...;..." -D "INCLUDE=...;..." -P compile.cmake
set(flags -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast -Werror -fsyntax-only)
list(TRANSFORM INCLUDE PREPEND -I)
set(calls ${CMAKE_CURRENT_LIST_DIR}/all_calls.cpp)

function(compile compiler standard)
  execute_process(COMMAND ${compiler} -x c++ -std=${standard} ${flags} ${INCLUDE} ${ARGN} RESULT_VARIABLE failed)
  if(failed)
    message(SEND_ERROR "${compiler} -std=${standard} refuses what tools write")
  endif()
endfunction()

compile(${COMPILER} c++20 ${HEADERS} ${calls})
compile(${COMPILER} c++2b ${calls})
if(OTHER)
  compile(${OTHER} c++20 ${calls})
  compile(${OTHER} c++2b ${HEADERS} ${calls})
endif()

function(refuse statement advice)
  file(WRITE refused.cpp "#include <orvet/orvet.h>
    struct own : orvet::ktobject {};
    void call(orvet::pathname path, orvet::ustring text, orvet::vector row) { ${statement} }")
  execute_process(COMMAND ${COMPILER} -std=c++20 ${INCLUDE} -fsyntax-only refused.cpp
    RESULT_VARIABLE failed ERROR_VARIABLE errors)
  string(FIND "${errors}" "${advice}" found)
  if(NOT failed OR found EQUAL -1)
    message(SEND_ERROR "${statement}: expected a refusal with \"${advice}\", got \"${errors}\"")
  endif()
endfunction()

refuse("orvet::kt_file file(\"x\")\;" "kt_file(pathname(x)) for exactly that path, or kt_file(ustring(x)) for a name")
refuse("path + text\;" "deleted")
refuse("orvet::log_message(\"%d\", text)\;" "a_text_needs_percent_s_and_a_number_percent_d")
refuse("orvet::log_message(\"%d %d\", 1)\;" "a_conversion_has_no_argument")
refuse("orvet::usprintf(text, \"%d\", 1.5)\;" "convert this argument")
refuse("for (const own & item : orvet::items<own>(row)) static_cast<void>(item)\;" "static_cast its codable")
