#ifndef ORVET_FOUNDATION_PLATFORM_HANDLES_H
#define ORVET_FOUNDATION_PLATFORM_HANDLES_H

#ifdef _WIN32

#include <cstdio>

#include <windows.h>

#include "orvet/foundation/base/ustring.h"

// What the sources for this system share: files by its own calls, where the runtime's don't suffice.
namespace orvet::platform {

/// Sets `errno` to that of the last system error. -1.
int set_errno();
/// As `CreateFileW`; INVALID_HANDLE_VALUE with `errno`.
HANDLE open_handle(const ustring & path, DWORD access, DWORD shared, DWORD disposition, DWORD flags);
/// A stream on a handle, which it owns; null with the handle closed. No command inherits it. `flags` are
/// those of `_open_osfhandle`.
std::FILE * open_stream_on(HANDLE file, int flags, const char * mode);

} // namespace orvet::platform

#endif

#endif
