#include "orvet/foundation/platform/processes.h"

#include <cerrno>
#include <cstdlib>

#include "orvet/foundation/platform/native_text.h"

namespace orvet::platform {

const char print_command[] = "type";
const bool shell_is_cmd_exe = true;

int native::run_command(const ustring & line)
{
    const native_text text(line);
    const int result = text.wide ? _wsystem(text.wide) : -1;
    if (result != -1) // the runtime's search for the shell may leave a number
        errno = 0;
    return result;
}

} // namespace orvet::platform
