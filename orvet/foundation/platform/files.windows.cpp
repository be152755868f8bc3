#include "orvet/foundation/platform/files.h"

#include <cerrno>
#include <cstring>
#include <cwchar>
#include <iterator>

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include "orvet/foundation/platform/native_text.h"

namespace orvet::platform {

std::FILE * native::open_stream(const ustring & path, const char * mode)
{
    if (!mode || !*mode || !std::strchr("rwa", *mode) || std::strchr(mode, ',')) {
        errno = EINVAL;
        return nullptr;
    }
    const native_text name(path);
    const bool is_new = *mode != 'r' && std::strchr(mode, 'x'); // which the older runtime ignores
    if (is_new && name.wide && _waccess(name.wide, 0) == 0) {
        errno = EEXIST;
        return nullptr;
    }
    // "N" keeps the handle from commands. In text mode this runtime reports wrong positions in a file with
    // bare line feeds, so bytes are read.
    const bool as_bytes = std::strpbrk(mode, "r+") && !std::strpbrk(mode, "bt");
    wchar_t native_mode[64];
    _snwprintf(native_mode, std::size(native_mode), L"%cN%hs%hs", *mode, as_bytes ? "b" : "", mode + 1);
    native_mode[std::size(native_mode) - 1] = 0;
    return name.wide ? _wfopen(name.wide, native_mode) : nullptr;
}

int native::seek(std::FILE * stream, long offset, int origin)
{
    // This runtime drops what it has read ahead before it finds that there is no such place.
    const long long here = _ftelli64(stream);
    const long long from = origin == SEEK_SET   ? 0
                           : origin == SEEK_CUR ? here
                                                : _filelengthi64(_fileno(stream));
    if (here < 0 || origin < SEEK_SET || origin > SEEK_END || (offset < 0 && from + offset < 0)) {
        errno = EINVAL;
        return -1;
    }
    return std::fseek(stream, offset, origin);
}

long long native::tell(std::FILE * stream)
{
    return _ftelli64(stream);
}

bool native::is_seekable(std::FILE * stream)
{
    const auto file = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
    return GetFileType(file) == FILE_TYPE_DISK;
}

void native::set_text_mode(std::FILE * stream, bool on)
{
    _setmode(_fileno(stream), on ? _O_TEXT : _O_BINARY);
}

int native::remove_file(const ustring & path)
{
    const native_text name(path);
    return name.wide ? _wremove(name.wide) : -1;
}

int native::rename_file(const ustring & from, const ustring & to)
{
    const native_text source(from);
    const native_text target(to);
    return source.wide && target.wide ? _wrename(source.wide, target.wide) : -1;
}

int native::sync_stream(std::FILE * stream)
{
    if (_commit(_fileno(stream)) == 0)
        return 0;
    const DWORD error = GetLastError();
    return error == ERROR_INVALID_FUNCTION || error == ERROR_NOT_SUPPORTED ? 0 : -1;
}

bool native::exists(const ustring & path)
{
    const native_text name(path);
    return name.wide && _waccess(name.wide, 0) == 0;
}

bool native::is_file(const ustring & path)
{
    const native_text name(path);
    const DWORD attributes = name.wide ? GetFileAttributesW(name.wide) : INVALID_FILE_ATTRIBUTES;
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool native::is_read_only(const ustring & path)
{
    const native_text name(path);
    const DWORD attributes = name.wide ? GetFileAttributesW(name.wide) : INVALID_FILE_ATTRIBUTES;
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

bool native::same_file(const ustring & a, const ustring & b)
{
    const auto identify = [](const ustring & path, BY_HANDLE_FILE_INFORMATION & information) {
        const native_text name(path);
        const HANDLE file =
            name.wide ? CreateFileW(name.wide, 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                    nullptr, OPEN_EXISTING, 0, nullptr)
                      : INVALID_HANDLE_VALUE;
        if (file == INVALID_HANDLE_VALUE)
            return false;
        const bool known = GetFileInformationByHandle(file, &information) != 0;
        CloseHandle(file);
        return known;
    };
    BY_HANDLE_FILE_INFORMATION first;
    BY_HANDLE_FILE_INFORMATION second;
    return identify(a, first) && identify(b, second) &&
           first.dwVolumeSerialNumber == second.dwVolumeSerialNumber &&
           first.nFileIndexHigh == second.nFileIndexHigh && first.nFileIndexLow == second.nFileIndexLow;
}

} // namespace orvet::platform
