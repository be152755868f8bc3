#include "orvet/foundation/platform/entries.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <iterator>
#include <string_view>

#include <strings.h>
#include <sys/stat.h>
#include <unistd.h>

#include "orvet/foundation/platform/native_text.h"

namespace orvet::platform {

namespace {

constexpr std::size_t longest_path = 4096;
constexpr int most_links = 40; // in a row; systems follow no more

bool is_same(const struct stat & a, const struct stat & b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

/// The length of the directory part of a path, its separator included.
std::size_t directory_length(std::string_view path)
{
    return path.find_last_of('/') + 1; // 0 without a separator
}

/// The last element of a path, without separators after it.
std::string_view last_element(std::string_view path)
{
    while (path.size() > 1 && path.back() == '/')
        path.remove_suffix(1);
    return path.substr(directory_length(path));
}

bool in_one_directory(const char * a, const char * b)
{
    const auto examine = [](const char * path, struct stat & status) {
        char directory[longest_path];
        const int length = static_cast<int>(directory_length(path));
        const int printed = length == 0 ? std::snprintf(directory, sizeof directory, ".")
                                        : std::snprintf(directory, sizeof directory, "%.*s", length, path);
        return printed < static_cast<int>(sizeof directory) && stat(directory, &status) == 0;
    };
    struct stat first;
    struct stat second;
    return examine(a, first) && examine(b, second) && is_same(first, second);
}

bool differ_in_case_alone(std::string_view a, std::string_view b)
{
    return a != b && a.size() == b.size() && strncasecmp(a.data(), b.data(), a.size()) == 0;
}

entry_relation compare(const char * a, const char * b)
{
    struct stat first;
    struct stat second;
    if (lstat(a, &first) != 0 || lstat(b, &second) != 0 || !is_same(first, second))
        return entry_relation::different;
    // With one link, two names are spellings of one entry. Of several links only the name itself is.
    const std::string_view name = last_element(a);
    const std::string_view other = last_element(b);
    const bool has_one_entry = S_ISDIR(first.st_mode) || first.st_nlink == 1;
    if (!has_one_entry && !(name == other && in_one_directory(a, b)))
        return entry_relation::different;
    return differ_in_case_alone(name, other) ? entry_relation::same_but_case : entry_relation::same;
}

/// Replaces the path of a link by the path that it holds. False for anything but a link.
bool follow(char (&path)[longest_path])
{
    char text[longest_path];
    const ssize_t length = readlink(path, text, sizeof text - 1);
    if (length <= 0)
        return false;
    text[length] = 0;
    const std::size_t directory = text[0] == '/' ? 0 : directory_length(path);
    return std::snprintf(path + directory, sizeof path - directory, "%s", text) <
           static_cast<int>(sizeof path - directory);
}

} // namespace

entry_kind native::kind_of(const ustring & path)
{
    const char * const name = native_text(path);
    struct stat status;
    if (!name || lstat(name, &status) != 0)
        return name && errno == ENOENT ? entry_kind::none : entry_kind::other;
    const bool is_link = S_ISLNK(status.st_mode);
    if (is_link && stat(name, &status) != 0) {
        constexpr int nothing_there[] = {ENOENT, ENOTDIR, ELOOP, ENAMETOOLONG};
        return std::count(std::begin(nothing_there), std::end(nothing_there), errno) != 0
                   ? entry_kind::link_to_file
                   : entry_kind::other;
    }
    if (S_ISREG(status.st_mode))
        return is_link ? entry_kind::link_to_file : entry_kind::file;
    return S_ISDIR(status.st_mode) || S_ISSOCK(status.st_mode) ? entry_kind::other : entry_kind::device;
}

entry_relation native::compare_entries(const ustring & a, const ustring & b)
{
    const char * const one = native_text(a);
    const char * const other = native_text(b);
    return one && other ? compare(one, other) : entry_relation::different;
}

bool native::is_link_to(const ustring & path, const ustring & target)
{
    const char * const name = native_text(path);
    const char * const wanted = native_text(target);
    char at[longest_path];
    if (!name || !wanted || std::snprintf(at, sizeof at, "%s", name) >= static_cast<int>(sizeof at))
        return false;
    for (int links = 0; links < most_links && follow(at); ++links)
        if (compare(at, wanted) != entry_relation::different)
            return true;
    return false;
}

int native::change_case(const ustring & path, const ustring & to)
{
    const char * const name = native_text(path);
    const char * const target = native_text(to);
    return name && target ? std::rename(name, target) : -1;
}

} // namespace orvet::platform
