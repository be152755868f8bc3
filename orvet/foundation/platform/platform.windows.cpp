#include "orvet/foundation/platform/platform.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <cwchar>

#include <io.h>
#include <malloc.h>
#include <windows.h>

#include "orvet/foundation/base/memory.h"
#include "orvet/foundation/base/utf8.h"

namespace orvet::platform {

const char16_t separator = u'\\';

namespace {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

/// A text as this system takes it: in its 16-bit form, or as the bytes that it was read from when those were
/// no UTF-8. `bytes` and `wide` are both null, with `errno` set, for a text with a zero in it and when memory
/// is short.
struct native_text {
    explicit native_text(const ustring & text)
    {
        if (text.find(u'\0') != ustring::npos)
            errno = EINVAL;
        else if (is_whole(text))
            wide = reinterpret_cast<const wchar_t *>(text.data());
        else
            take_bytes(text);
    }

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

    void take_bytes(const ustring & text)
    {
        memory_watch watch;
        bytes = text.mbcs_str();
        if (watch.failed()) {
            bytes = nullptr;
            errno = ENOMEM;
        }
    }

    const wchar_t * wide = nullptr;
    const char * bytes = nullptr;
};

} // namespace

read_ahead look_ahead(std::FILE * stream)
{
    if (stream->_cnt <= 0) {
        // One character through the front door fills the buffer by the runtime's own rules.
        const int first = std::getc(stream);
        if (first == EOF || std::ungetc(first, stream) == EOF)
            return {nullptr, nullptr};
    }
    return {stream->_ptr, stream->_ptr + stream->_cnt};
}

void advance(std::FILE * stream, std::size_t bytes)
{
    stream->_ptr += bytes;
    stream->_cnt -= static_cast<int>(bytes);
}

std::FILE * open_stream(const ustring & path, const char * mode)
{
    const native_text name(path);
    if (!mode || !*mode || !std::strchr("rwa", *mode) || (!name.wide && !name.bytes)) {
        errno = EINVAL;
        return nullptr;
    }
    // "N" keeps the handle from commands. In text mode this runtime tells wrong positions in a file with bare
    // line feeds, so plain reading is reading of bytes.
    const bool as_bytes = *mode == 'r' && !std::strpbrk(mode, "bt+");
    char native_mode[64];
    std::snprintf(native_mode, sizeof native_mode, "%cN%s%s", *mode, as_bytes ? "b" : "", mode + 1);
    if (name.bytes)
        return std::fopen(name.bytes, native_mode);
    wchar_t wide_mode[sizeof native_mode];
    for (std::size_t i = 0; i < sizeof native_mode; ++i)
        wide_mode[i] = static_cast<unsigned char>(native_mode[i]);
    return _wfopen(name.wide, wide_mode);
}

int close_stream(std::FILE * stream)
{
    return std::fclose(stream);
}

int remove_file(const ustring & path)
{
    const native_text name(path);
    return name.wide ? _wremove(name.wide) : name.bytes ? std::remove(name.bytes) : -1;
}

int rename_file(const ustring & from, const ustring & to)
{
    const native_text source(from);
    const native_text target(to);
    if (source.wide && target.wide)
        return _wrename(source.wide, target.wide);
    if ((!source.wide && !source.bytes) || (!target.wide && !target.bytes))
        return -1;
    return std::rename(from.mbcs_str(), to.mbcs_str());
}

bool exists(const ustring & path)
{
    const native_text name(path);
    return name.wide ? _waccess(name.wide, 0) == 0 : name.bytes && _access(name.bytes, 0) == 0;
}

const char print_command[] = "type";

int run_command(const ustring & line)
{
    const native_text text(line);
    return text.wide ? _wsystem(text.wide) : text.bytes ? std::system(text.bytes) : -1;
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
