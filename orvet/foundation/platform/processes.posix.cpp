#include "orvet/foundation/platform/processes.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>

#include <sys/wait.h>

#include "orvet/foundation/platform/native_text.h"

namespace orvet::platform {

const char print_command[] = "cat";
const bool shell_is_cmd_exe = false;

namespace {

/// Lets the process learn how its children end, which it does not while it ignores SIGCHLD.
class child_watch {
public:
    child_watch()
    {
        ignored_ = sigaction(SIGCHLD, nullptr, &before_) == 0 &&
                   (before_.sa_handler == SIG_IGN || before_.sa_flags & SA_NOCLDWAIT);
        if (!ignored_)
            return;
        struct sigaction meanwhile = before_;
        meanwhile.sa_flags &= ~SA_NOCLDWAIT;
        if (before_.sa_handler == SIG_IGN)
            meanwhile.sa_handler = SIG_DFL;
        sigaction(SIGCHLD, &meanwhile, nullptr);
    }
    child_watch(const child_watch &) = delete;
    child_watch & operator=(const child_watch &) = delete;
    ~child_watch()
    {
        const int error = errno;
        if (ignored_)
            sigaction(SIGCHLD, &before_, nullptr);
        errno = error;
    }

private:
    struct sigaction before_;
    bool ignored_;
};

} // namespace

int native::run_command(const ustring & line)
{
    const char * const text = native_text(line);
    const child_watch watch;
    const int status = text ? std::system(text) : -1;
    if (status == -1)
        return -1;
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

} // namespace orvet::platform
