#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "support.h"

namespace orvet_test {

void keep_crashes_quiet()
{
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
}

unsigned long process_number()
{
    return static_cast<unsigned long>(getpid());
}

void print_open_files()
{
    for (const auto & entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code gone; // the iterator's own
        const std::filesystem::path file = std::filesystem::read_symlink(entry, gone);
        if (!gone && std::stoi(entry.path().filename()) > 2)
            std::printf("%s\n", file.filename().c_str());
    }
}
std::string access_list(const char * file, bool give)
{
    constexpr char name[] = "system.posix_acl_access";
    // Its version, then kind and rights, and whose: the owner, user 1, the group, the most that those get,
    // others.
    constexpr unsigned list[] = {2, 0x60001, ~0U, 0x40002, 1, 0x4, ~0U, 0x40010, ~0U, 0x20, ~0U};
    if (give)
        setxattr(file, name, list, sizeof list, 0);
    char room[200];
    return {room, static_cast<std::size_t>(std::max<ssize_t>(getxattr(file, name, room, sizeof room), 0))};
}
bool ignore_children(bool wish)
{
    return std::signal(SIGCHLD, wish ? SIG_IGN : SIG_DFL) == SIG_IGN;
}
const char * const killed_command = "kill -9 $$";
std::shared_ptr<void> hold_file(const char *)
{
    return nullptr;
}
bool limit_files(long bytes)
{
    rlimit limit;
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = bytes < 0 ? limit.rlim_max : static_cast<rlim_t>(bytes);
    return std::signal(SIGXFSZ, SIG_IGN) != SIG_ERR && setrlimit(RLIMIT_FSIZE, &limit) == 0;
}
bool make_pipe(const char * name)
{
    return mkfifo(name, 0600) == 0;
}
bool give_to_another_group(const char * file)
{
    constexpr gid_t another = 54321;
    return chown(file, static_cast<uid_t>(-1), another) == 0;
}
void set_time_zone(const char * name)
{
    set_variable("TZ", name);
    tzset();
}
void die()
{
    _exit(9);
}

void set_variable(const char * name, const char * value)
{
    if (value)
        setenv(name, value, 1);
    else
        unsetenv(name);
}

} // namespace orvet_test
