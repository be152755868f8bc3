#ifndef KTXTRACE_LIBRARY_CALLS_H
#define KTXTRACE_LIBRARY_CALLS_H

#include <cstddef>
#include <string_view>

/// What has to be known of a function of the library to read its trace.
struct library_function {
    std::string_view name;       ///< its name in the trace
    bool writes_exit;            ///< else it ends unseen
    std::string_view calls;      ///< the functions that it calls, each followed by ";"; empty for most
    std::string_view only_first; ///< one of them that it calls only before all others; empty for most
};

/// The function of that trace name; null for one that is not the library's.
const library_function * find_library_function(std::string_view name);

/// Whether the function can call the other one, after `done` other calls.
bool may_call(const library_function & caller, std::string_view callee, std::size_t done);

#endif
