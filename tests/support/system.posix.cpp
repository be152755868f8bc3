#include "system.h"

#include <cstdlib>

#include <sys/resource.h>
#include <unistd.h>

#include "support.h"

namespace orvet_test {

void keep_crashes_quiet() {
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
}

unsigned long process_number() { return static_cast<unsigned long>(getpid()); }

void die() { _exit(9); }

void set_variable(const char * name, const char * value) {
    if (value)
        setenv(name, value, 1);
    else
        unsetenv(name);
}

} // namespace orvet_test
