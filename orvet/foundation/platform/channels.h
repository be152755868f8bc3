#ifndef ORVET_FOUNDATION_PLATFORM_CHANNELS_H
#define ORVET_FOUNDATION_PLATFORM_CHANNELS_H

#include <cstddef>
#include <cstdio>

#include "orvet/foundation/base/ustring.h"
#include "orvet/foundation/platform/seam.h"

// Files that several processes add lines to at the same time.
namespace orvet::platform {

namespace native {

/// Opens a file as `fopen` does with "a+", to be written by `append_line` alone. No command inherits it.
std::FILE * open_channel(const ustring & path);
/// Adds a line, in the system's own form of text, at the end that the file has at that moment, unmixed with
/// those of other processes. How many of its bytes reached the file; if not all, with `errno`.
std::size_t append_line(std::FILE * stream, const char * line, std::size_t size);

} // namespace native

ORVET_PLATFORM_CALL(open_channel);
ORVET_PLATFORM_CALL(append_line);

} // namespace orvet::platform

#endif
