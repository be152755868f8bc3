#include <cerrno>

#include <sys/stat.h>
#include <unistd.h>

#include "orvet/foundation/platform/native_text.h"
#include "orvet/foundation/platform/rewrite.h"

#ifdef __linux__
#include <sys/xattr.h>
#endif

// Owners, permissions and access lists.
namespace orvet::platform {

namespace {

/// Both files: the one to take from, and that of a stream. 0 for success, 1 if the first is missing.
int examine(const ustring & from, std::FILE * stream, struct stat & old_file, struct stat & new_file)
{
    const char * const name = native_text(from);
    if (!name)
        return -1;
    if (stat(name, &old_file) != 0)
        return errno == ENOENT ? 1 : -1;
    return fstat(fileno(stream), &new_file);
}

/// Permissions without the group's. Its members count among the others then, so these get no more than it
/// had.
mode_t without_group(mode_t permissions)
{
    return (permissions & 0700) | (permissions & 0007 & permissions >> 3);
}

#ifdef __linux__
constexpr char list_name[] = "system.posix_acl_access";

/// An access list as this system stores it: a version, then a tag and rights a entry, low byte first.
struct access_list {
    static constexpr std::size_t head_size = 4;
    static constexpr std::size_t entry_size = 8;
    static constexpr std::size_t rights_at = 2;
    enum tag : unsigned char { group = 0x04, mask = 0x10, others = 0x20 };

    unsigned char bytes[4096];
    std::size_t size = 0;

    unsigned char * rights_of(tag wanted)
    {
        for (std::size_t at = head_size; at + entry_size <= size; at += entry_size)
            if (bytes[at] == wanted)
                return bytes + at + rights_at;
        return nullptr;
    }
    /// As `without_group`.
    void drop_group()
    {
        unsigned char * const group_rights = rights_of(group);
        unsigned char * const other_rights = rights_of(others);
        const unsigned char * const most = rights_of(mask);
        if (group_rights && other_rights)
            *other_rights &= static_cast<unsigned char>(*group_rights & (most ? *most : 7));
        if (group_rights)
            *group_rights = 0;
    }
};

/// Reads the list of the file `name`; its size is 0 for a file without one. False if that can't be known.
bool read_list(const char * name, access_list & list)
{
    const ssize_t size = getxattr(name, list_name, list.bytes, sizeof list.bytes);
    if (size >= 0)
        list.size = static_cast<std::size_t>(size);
    return size >= 0 || errno == ENODATA || errno == ENOTSUP;
}

int set_access(const char * name, mode_t permissions, bool keeps_group, int file)
{
    access_list list;
    if (!read_list(name, list))
        return -1;
    if (list.size != 0) {
        if (!keeps_group)
            list.drop_group();
        return fsetxattr(file, list_name, list.bytes, list.size, 0);
    }
    // The file may have a list from its directory.
    if (fremovexattr(file, list_name) != 0 && errno != ENODATA && errno != ENOTSUP)
        return -1;
    return fchmod(file, keeps_group ? permissions : without_group(permissions));
}
#else
int set_access(const char *, mode_t permissions, bool keeps_group, int file)
{
    return fchmod(file, keeps_group ? permissions : without_group(permissions));
}
#endif

} // namespace

int native::copy_owner(const ustring & from, std::FILE * stream)
{
    struct stat old_file;
    struct stat new_file;
    if (const int result = examine(from, stream, old_file, new_file))
        return result > 0 ? 0 : -1;
    // Whoever may not give a file away may still give it to a group of his own.
    const uid_t same_owner = static_cast<uid_t>(-1);
    [[maybe_unused]] const bool given =
        (old_file.st_uid == new_file.st_uid && old_file.st_gid == new_file.st_gid) ||
        fchown(fileno(stream), old_file.st_uid, old_file.st_gid) == 0 ||
        fchown(fileno(stream), same_owner, old_file.st_gid) == 0;
    return 0;
}

int native::copy_permissions(const ustring & from, std::FILE * stream)
{
    struct stat old_file;
    struct stat new_file;
    if (const int result = examine(from, stream, old_file, new_file))
        return result > 0 ? 0 : -1;
    constexpr mode_t all_permissions = 0777;
    return set_access(native_text(from), old_file.st_mode & all_permissions,
                      old_file.st_gid == new_file.st_gid, fileno(stream));
}

} // namespace orvet::platform
