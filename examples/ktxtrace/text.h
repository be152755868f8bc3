#ifndef KTXTRACE_TEXT_H
#define KTXTRACE_TEXT_H

#include <cstddef>
#include <string>
#include <string_view>

#include "view.h"

/// The most bytes of a line that are shown, where lines are kept in memory.
inline constexpr std::size_t shown_length = 200;

/// The text as a terminal can show it: bytes that are not text as "\xNN", and cut after `most` bytes.
std::string shown(std::string_view text, std::size_t most = std::string_view::npos);
/// "  (3 times)" for more than one.
std::string times(std::size_t count);
/// "1 line", "2 lines".
std::string counted(std::size_t count, const char * word);
/// "run 1, Sun Nov 22 22:51:34 2026".
std::string title(const run & each);
/// Prints a whole text to standard output.
void print(const std::string & text);

#endif
