#ifndef ORVET_TESTS_SYSTEM_H
#define ORVET_TESTS_SYSTEM_H

// What the tests ask of an operating system beyond the standard library; set_variable stands in support.h.
namespace orvet_test {

/// No dialog and no core file when a test process crashes.
void keep_crashes_quiet();
unsigned long process_number();
/// Prints the name of each file that this process holds open besides its standard streams, a line each.
void print_open_files();
/// A command that signal 9 ends; null where there are no signals.
extern const char * const killed_command;

} // namespace orvet_test

#endif
