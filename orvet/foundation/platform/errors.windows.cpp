#include "orvet/foundation/platform/errors.h"

#include <windows.h>

namespace orvet::platform {

unsigned long native::last_error()
{
    return GetLastError();
}

bool native::error_text(unsigned long code, char * text, std::size_t size)
{
    return FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, code, 0, text, static_cast<DWORD>(size),
                          nullptr) != 0;
}

} // namespace orvet::platform
