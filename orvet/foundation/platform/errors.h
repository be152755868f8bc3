#ifndef ORVET_FOUNDATION_PLATFORM_ERRORS_H
#define ORVET_FOUNDATION_PLATFORM_ERRORS_H

#include <cstddef>

#include "orvet/foundation/platform/seam.h"

namespace orvet::platform {

namespace native {

/// The code of the last system error.
unsigned long last_error();
/// Writes the system's text for `code`, cut to `size` bytes with its zero. False, and nothing written, for an
/// unknown code.
bool error_text(unsigned long code, char * text, std::size_t size);

} // namespace native

ORVET_PLATFORM_CALL(last_error);
ORVET_PLATFORM_CALL(error_text);

} // namespace orvet::platform

#endif
