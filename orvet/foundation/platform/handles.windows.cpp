#include "orvet/foundation/platform/handles.h"

#include <cerrno>
#include <cstdint>

#include <fcntl.h>
#include <io.h>

#include "orvet/foundation/platform/native_text.h"

namespace orvet::platform {

int set_errno()
{
    constexpr struct {
        DWORD error;
        int number;
    } numbers[] = {{ERROR_FILE_EXISTS, EEXIST},
                   {ERROR_ALREADY_EXISTS, EEXIST},
                   {ERROR_FILE_NOT_FOUND, ENOENT},
                   {ERROR_PATH_NOT_FOUND, ENOENT},
                   {ERROR_SHARING_VIOLATION, EWOULDBLOCK},
                   {ERROR_DISK_FULL, ENOSPC}};
    const DWORD error = GetLastError();
    errno = EACCES;
    for (const auto & each : numbers)
        if (each.error == error)
            errno = each.number;
    return -1;
}

HANDLE open_handle(const ustring & path, DWORD access, DWORD shared, DWORD disposition, DWORD flags)
{
    const native_text name(path);
    if (!name.wide)
        return INVALID_HANDLE_VALUE;
    const HANDLE file = CreateFileW(name.wide, access, shared, nullptr, disposition, flags, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        set_errno();
    return file;
}

std::FILE * open_stream_on(HANDLE file, int flags, const char * mode)
{
    const int number = _open_osfhandle(reinterpret_cast<std::intptr_t>(file), flags | _O_NOINHERIT);
    if (number < 0) {
        CloseHandle(file);
        return nullptr;
    }
    std::FILE * const stream = _fdopen(number, mode);
    if (!stream)
        _close(number);
    return stream;
}

} // namespace orvet::platform
