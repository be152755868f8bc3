#ifndef ORVET_FUZZ_FUZZ_H
#define ORVET_FUZZ_FUZZ_H

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <orvet/orvet.h>

// What the targets share. A target feeds any bytes to a part of the library and states what must hold
// whatever they are. The sanitizers find the rest: crashes, overruns and leaked memory.

using orvet::ustring;

/// The targets, a source file each.
void cmdline(std::string_view input);
void commands(std::string_view input);
void configuration(std::string_view input);
void files(std::string_view input);
void input_files(std::string_view input);
void text(std::string_view input);
void topology(std::string_view input);
void trace(std::string_view input);

/// Runs a target on one input, first with trace and log shut, then open. `file` holds the input.
void run(const std::string & target, std::string_view input, const std::string & file);

/// The bytes of a number or a text, to be compared and printed.
struct value : std::string {
    value(std::integral auto number) : std::string(std::to_string(number)) {}
    value(const std::convertible_to<std::string_view> auto & text) : std::string(text) {}
    bool has(const std::string & part) const { return find(part) != npos; }
    value(const ustring & text) : std::string(text.mbcs_str(), text.mbcs_length()) {}
};

/// Prints what does not hold, both sides and the input's file, and ends the process.
[[noreturn]] void fail(const char * what, const value & expected, const value & actual);
/// `what` says what must hold.
inline void expect(bool holds, const char * what, const auto & other, const auto & actual)
{
    if (!holds)
        fail(what, other, actual);
}
void expect_same(const char * what, const value & expected, const value & actual);
/// The result must be the same with trace and log shut and open.
void show(const char * what, const value & actual);

// Files in the current directory.
void write_file(const char * name, std::string_view bytes);
std::string read_file(const char * name);
/// The front of a file, up to `at` bytes before a buffer's end: 'b' for one of 4 KB, 'B' for one of 64 KB,
/// both in lines of 1 KB, and 'L' for 64 KB without a line end. Empty for other choices.
std::string filler(unsigned char choice, unsigned char at);

ustring text_of(std::string_view bytes);

/// Takes a byte off the front of an input; zero if there is none.
unsigned char take_byte(std::string_view & input);
/// Takes a line off the front of a file and returns it without its end, which is LF, CR LF or the end of the
/// file.
std::string take_line(std::string_view & file);
std::vector<std::string> lines_of(std::string_view file);

#endif
