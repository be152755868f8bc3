#include "orvet/foundation/platform/entries.h"

#include <cerrno>
#include <cwchar>
#include <string_view>

#include <windows.h>

#include "orvet/foundation/platform/native_text.h"

namespace orvet::platform {

namespace {

/// What the system knows of an entry, or of the file that it leads to.
class entry {
public:
    entry(const ustring & path, bool follow_links)
    {
        const native_text name(path);
        const DWORD flags = FILE_FLAG_BACKUP_SEMANTICS | (follow_links ? 0 : FILE_FLAG_OPEN_REPARSE_POINT);
        const HANDLE file =
            name.wide ? CreateFileW(name.wide, 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                    nullptr, OPEN_EXISTING, flags, nullptr)
                      : INVALID_HANDLE_VALUE;
        if (file == INVALID_HANDLE_VALUE)
            return;
        known_ = GetFileInformationByHandle(file, &information_) != 0;
        if (GetFinalPathNameByHandleW(file, path_, longest_path, FILE_NAME_NORMALIZED) >= longest_path)
            path_[0] = 0;
        CloseHandle(file);
    }

    bool is_same_file(const entry & other) const
    {
        return known_ && other.known_ &&
               information_.dwVolumeSerialNumber == other.information_.dwVolumeSerialNumber &&
               information_.nFileIndexHigh == other.information_.nFileIndexHigh &&
               information_.nFileIndexLow == other.information_.nFileIndexLow;
    }
    /// With one link, two names are spellings of one entry. Of several links the full names tell.
    bool is_same_entry(const entry & other) const
    {
        return is_same_file(other) && (has(FILE_ATTRIBUTE_DIRECTORY) || information_.nNumberOfLinks == 1 ||
                                       CompareStringOrdinal(path_, -1, other.path_, -1, TRUE) == CSTR_EQUAL);
    }
    bool has(DWORD attribute) const { return known_ && (information_.dwFileAttributes & attribute) != 0; }

private:
    static constexpr DWORD longest_path = 1024;

    bool known_ = false;
    BY_HANDLE_FILE_INFORMATION information_{};
    wchar_t path_[longest_path] = L"";
};

std::wstring_view last_element(std::wstring_view path)
{
    constexpr wchar_t separators[] = L"\\/:";
    while (path.size() > 1 && path.find_last_of(separators) == path.size() - 1)
        path.remove_suffix(1);
    return path.substr(path.find_last_of(separators) + 1);
}

bool differ_in_case_alone(const ustring & a, const ustring & b)
{
    const native_text one(a);
    const native_text other(b);
    const std::wstring_view first = last_element(one.wide ? one.wide : L"");
    const std::wstring_view second = last_element(other.wide ? other.wide : L"");
    return first != second &&
           CompareStringOrdinal(first.data(), static_cast<int>(first.size()), second.data(),
                                static_cast<int>(second.size()), TRUE) == CSTR_EQUAL;
}

} // namespace

entry_kind native::kind_of(const ustring & path)
{
    const native_text name(path);
    const DWORD attributes = name.wide ? GetFileAttributesW(name.wide) : INVALID_FILE_ATTRIBUTES;
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return name.wide && GetLastError() == ERROR_FILE_NOT_FOUND ? entry_kind::none : entry_kind::other;
    if (attributes & FILE_ATTRIBUTE_DIRECTORY)
        return entry_kind::other;
    return attributes & FILE_ATTRIBUTE_REPARSE_POINT ? entry_kind::link_to_file : entry_kind::file;
}

entry_relation native::compare_entries(const ustring & a, const ustring & b)
{
    if (!entry(a, false).is_same_entry(entry(b, false)))
        return entry_relation::different;
    return differ_in_case_alone(a, b) ? entry_relation::same_but_case : entry_relation::same;
}

bool native::is_link_to(const ustring & path, const ustring & target)
{
    return entry(path, false).has(FILE_ATTRIBUTE_REPARSE_POINT) &&
           entry(path, true).is_same_file(entry(target, false));
}

// Some systems that stand in for Windows take a rename that changes case alone for none. There the entry goes
// over a name in between.
int native::change_case(const ustring & path, const ustring & to)
{
    const native_text name(path);
    const native_text target(to);
    const ustring between_text = ustring(to).append(".case");
    const native_text between(between_text);
    if (!name.wide || !target.wide || !between.wide || _wrename(name.wide, target.wide) != 0)
        return -1;
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileW(target.wide, &found);
    if (search == INVALID_HANDLE_VALUE)
        return 0;
    FindClose(search);
    if (last_element(target.wide) == found.cFileName)
        return 0;
    if (_wrename(target.wide, between.wide) != 0)
        return -1;
    if (_wrename(between.wide, target.wide) == 0)
        return 0;
    const int error = errno;
    _wrename(between.wide, name.wide);
    errno = error;
    return -1;
}

} // namespace orvet::platform
