#include "system.h"

#include <cstdlib>

#include <windows.h>

#include "support.h"

namespace orvet_test {

void keep_crashes_quiet() { SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX); }

unsigned long process_number() { return GetCurrentProcessId(); }

void die() {
    TerminateProcess(GetCurrentProcess(), 9);
    std::abort();
}

void set_variable(const char * name, const char * value) { _putenv_s(name, value ? value : ""); }

} // namespace orvet_test
