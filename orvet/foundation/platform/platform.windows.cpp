#include "orvet/foundation/platform/platform.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <iterator>
#include <limits>

#include <fcntl.h>
#include <io.h>
#include <malloc.h>
#include <windows.h>

#include "orvet/foundation/base/memory.h"
#include "orvet/foundation/base/utf8.h"

namespace orvet::platform {

const char16_t separator = u'\\';

namespace {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

/// A text as this system takes it: its 16-bit form, or, where it holds bytes that are no UTF-8, what the code
/// page of the process makes of its bytes. `wide` is null, with `errno` set, for a text with a zero in it and
/// when memory is short.
class native_text {
public:
    explicit native_text(const ustring & text)
    {
        if (text.find(u'\0') != ustring::npos)
            errno = EINVAL;
        else if (is_whole(text))
            wide = reinterpret_cast<const wchar_t *>(text.data());
        else
            wide = own_ = from_code_page(text);
    }
    native_text(const native_text &) = delete;
    native_text & operator=(const native_text &) = delete;
    ~native_text() { release(own_); }

    const wchar_t * wide = nullptr;

private:
    static bool is_whole(const ustring & text)
    {
        const char16_t * const units = text.data();
        for (unsigned i = 0; i < text.length(); ++i) {
            if (utf8::is_low(units[i]) || (utf8::is_high(units[i]) && !utf8::is_low(units[i + 1])))
                return false;
            i += utf8::is_high(units[i]);
        }
        return true;
    }

    static wchar_t * from_code_page(const ustring & text)
    {
        memory_watch watch;
        const char * const bytes = text.mbcs_str();
        const auto room = static_cast<int>(text.mbcs_length() + 1); // a byte gives one unit at the most
        auto * const units = watch.failed() ? nullptr : allocate<wchar_t>(static_cast<std::size_t>(room));
        if (units && MultiByteToWideChar(CP_ACP, 0, bytes, -1, units, room) != 0)
            return units;
        errno = units ? EINVAL : ENOMEM;
        release(units);
        return nullptr;
    }

    wchar_t * own_ = nullptr;
};

} // namespace

void fill(std::FILE * stream)
{
    if (stream->_flag & _IOWRT) // what stands in its buffer is yet to be written
        return;
    const int failed = stream->_flag & _IOERR;
    if (const int first = std::getc(stream); first != EOF)
        std::ungetc(first, stream);
    stream->_flag |= failed; // which `ungetc` may forget
}

std::FILE * open_stream(const ustring & path, const char * mode)
{
    if (!mode || !*mode || !std::strchr("rwa", *mode) || std::strchr(mode, ',')) {
        errno = EINVAL;
        return nullptr;
    }
    const native_text name(path);
    const bool is_new = *mode != 'r' && std::strchr(mode, 'x'); // which this runtime ignores
    if (is_new && name.wide && _waccess(name.wide, 0) == 0) {
        errno = EEXIST;
        return nullptr;
    }
    // "N" keeps the handle from commands. In text mode this runtime tells wrong positions in a file with bare
    // line feeds, so reading is reading of bytes.
    const bool as_bytes = std::strpbrk(mode, "r+") && !std::strpbrk(mode, "bt");
    wchar_t native_mode[64];
    _snwprintf(native_mode, std::size(native_mode), L"%cN%hs%hs", *mode, as_bytes ? "b" : "", mode + 1);
    native_mode[std::size(native_mode) - 1] = 0;
    return name.wide ? _wfopen(name.wide, native_mode) : nullptr;
}

int close_stream(std::FILE * stream)
{
    return std::fclose(stream);
}

int seek(std::FILE * stream, long offset, int origin)
{
    // This runtime gives up what it has read ahead before it finds that there is no such place.
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

long tell(std::FILE * stream)
{
    const long long position = _ftelli64(stream);
    if (position <= std::numeric_limits<long>::max())
        return static_cast<long>(position);
    errno = EOVERFLOW;
    return -1;
}

void end_lines_natively(std::FILE * stream, bool wish)
{
    _setmode(_fileno(stream), wish ? _O_TEXT : _O_BINARY);
}

std::size_t write_through(std::FILE * stream, const char * bytes, std::size_t size)
{
    const std::size_t done = std::fwrite(bytes, 1, size, stream);
    std::fflush(stream);
    return done;
}

int remove_file(const ustring & path)
{
    const native_text name(path);
    return name.wide ? _wremove(name.wide) : -1;
}

int rename_file(const ustring & from, const ustring & to)
{
    const native_text source(from);
    const native_text target(to);
    return source.wide && target.wide ? _wrename(source.wide, target.wide) : -1;
}

int sync_stream(std::FILE * stream)
{
    if (_commit(_fileno(stream)) == 0)
        return 0;
    const DWORD error = GetLastError();
    return error == ERROR_INVALID_FUNCTION || error == ERROR_NOT_SUPPORTED ? 0 : -1;
}

int copy_permissions(const ustring &, std::FILE *)
{
    return 0;
}

bool exists(const ustring & path)
{
    const native_text name(path);
    return name.wide && _waccess(name.wide, 0) == 0;
}

bool is_file(const ustring & path)
{
    const native_text name(path);
    const DWORD attributes = name.wide ? GetFileAttributesW(name.wide) : INVALID_FILE_ATTRIBUTES;
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool same_file(const ustring & a, const ustring & b)
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

const char print_command[] = "type";

int run_command(const ustring & line)
{
    const native_text text(line);
    const int result = text.wide ? _wsystem(text.wide) : -1;
    if (result != -1) // the number may tell of a search for the shell
        errno = 0;
    return result;
}

unsigned long last_error()
{
    return GetLastError();
}

bool error_text(unsigned long code, char * text, std::size_t size)
{
    return FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, code, 0, text, static_cast<DWORD>(size),
                          nullptr) != 0;
}

heap_status next_heap_block(heap_block & block)
{
    _HEAPINFO entry{};
    entry._pentry = static_cast<int *>(block.address);
    const int status = _heapwalk(&entry);
    if (status == _HEAPOK)
        block = {entry._pentry, entry._size, entry._useflag == _USEDENTRY};
    return static_cast<heap_status>(status);
}

} // namespace orvet::platform

extern "C" BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, LPVOID)
{
    if (reason == DLL_PROCESS_ATTACH)
        DisableThreadLibraryCalls(library);
    return TRUE;
}
