#include "orvet/foundation/platform/rewrite.h"

#include <cerrno>
#include <cstddef>
#include <cstring>
#include <cwchar>

#include <fcntl.h>
#include <io.h>

#include "orvet/foundation/base/memory.h"
#include "orvet/foundation/platform/handles.h"
#include "orvet/foundation/platform/native_text.h"

namespace orvet::platform {

namespace {

HANDLE handle_of(held_entry held)
{
    return reinterpret_cast<HANDLE>(held);
}

} // namespace

// What other processes may do with a file is decided by the handles that are open. This one lets them read
// the file, which is in its place from the rename on, and neither remove, replace nor hold it.
held_entry native::create_held(const ustring & path)
{
    return reinterpret_cast<held_entry>(
        open_handle(path, GENERIC_WRITE | DELETE, FILE_SHARE_READ, CREATE_NEW, FILE_ATTRIBUTE_NORMAL));
}

held_entry native::hold(const ustring & path)
{
    return reinterpret_cast<held_entry>(
        open_handle(path, DELETE, 0, OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT));
}

bool native::is_held_at(held_entry, const ustring &)
{
    return true; // the name can't change while the handle is open
}

int native::remove_held(held_entry held, const ustring &)
{
    FILE_DISPOSITION_INFO wish{TRUE};
    return SetFileInformationByHandle(handle_of(held), FileDispositionInfo, &wish, sizeof wish) ? 0
                                                                                                : set_errno();
}

int native::rename_held(held_entry held, const ustring &, const ustring & to)
{
    const native_text name(to);
    if (!name.wide)
        return -1;
    const DWORD room = GetFullPathNameW(name.wide, 0, nullptr, nullptr); // with the zero
    const std::size_t size = offsetof(FILE_RENAME_INFO, FileName) + room * sizeof(wchar_t);
    auto * const bytes = room != 0 ? allocate<unsigned char>(size) : nullptr;
    if (!bytes) {
        errno = ENOMEM;
        return -1;
    }
    std::memset(bytes, 0, size);
    auto * const wish = reinterpret_cast<FILE_RENAME_INFO *>(bytes);
    const DWORD length = GetFullPathNameW(name.wide, room, wish->FileName, nullptr);
    wish->FileNameLength = static_cast<DWORD>(length * sizeof(wchar_t));
    const bool renamed = length < room && SetFileInformationByHandle(handle_of(held), FileRenameInfo, wish,
                                                                     static_cast<DWORD>(size));
    const int result = renamed ? 0 : set_errno();
    release(bytes);
    return result;
}

void native::release_held(held_entry held)
{
    if (held != not_held)
        CloseHandle(handle_of(held));
}

std::FILE * native::open_held(held_entry held)
{
    HANDLE file;
    const HANDLE process = GetCurrentProcess();
    if (!DuplicateHandle(process, handle_of(held), process, &file, 0, FALSE, DUPLICATE_SAME_ACCESS)) {
        set_errno();
        return nullptr;
    }
    return open_stream_on(file, _O_WRONLY | _O_TEXT, "w");
}

std::FILE * native::open_shared(const ustring & path)
{
    const HANDLE file =
        open_handle(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_EXISTING,
                    FILE_ATTRIBUTE_NORMAL);
    return file == INVALID_HANDLE_VALUE ? nullptr : open_stream_on(file, _O_RDONLY | _O_BINARY, "rb");
}

int native::copy_owner(const ustring &, std::FILE *)
{
    return 0;
}

int native::copy_permissions(const ustring &, std::FILE *)
{
    return 0;
}

int native::sync_directory(const ustring &)
{
    return 0;
}

} // namespace orvet::platform
