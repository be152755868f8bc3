#ifndef ORVET_FOUNDATION_PLATFORM_PROCESSES_H
#define ORVET_FOUNDATION_PLATFORM_PROCESSES_H

#include "orvet/foundation/base/ustring.h"
#include "orvet/foundation/platform/seam.h"

namespace orvet::platform {

/// The shell's command that prints a file.
extern const char print_command[];
/// Which of the two shells commands are for: cmd.exe or sh.
extern const bool shell_is_cmd_exe;

namespace native {

/// Has the system's command shell run `line` unchanged, and waits for its end. Returns its exit value, 128 +
/// n if signal n ended it, and -1, with `errno`, if no shell could be started.
int run_command(const ustring & line);

} // namespace native

ORVET_PLATFORM_CALL(run_command);

} // namespace orvet::platform

#endif
