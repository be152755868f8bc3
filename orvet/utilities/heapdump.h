#ifndef ORVET_UTILITIES_HEAPDUMP_H
#define ORVET_UTILITIES_HEAPDUMP_H

#include "orvet/export.h"

namespace orvet {

/// Walks the runtime's heap, for a developer who looks for the one who damaged it. With a path, a line for
/// each block and the closing status go to that file; without one, or when it can't be opened, the status
/// alone goes to standard output. What is wrong with the heap is always told on standard output.
ORVET_API void heapdump(const char * path);

} // namespace orvet

#endif
