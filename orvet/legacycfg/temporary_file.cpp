#include "orvet/legacycfg/temporary_file_internal.h"

#include <cerrno>
#include <utility>

#include "orvet/foundation/codes.h"
#include "orvet/foundation/platform/entries.h"

namespace orvet {

namespace {

/// How often the name may be taken again while it is freed. Other processes need a few; who needs more plants
/// what is in the way.
constexpr int most_attempts = 16;

} // namespace

temporary_file::~temporary_file()
{
    if (for_lock_only_)
        platform::remove_held(held_, path_);
    release();
}

void temporary_file::release()
{
    platform::release_held(std::exchange(held_, platform::not_held));
}

short temporary_file::make()
{
    for (int attempt = 0; attempt < most_attempts; ++attempt) {
        errno = 0;
        held_ = platform::create_held(path_);
        if (held_ != platform::not_held)
            return code::success;
        if (errno != EEXIST)
            return code::open_failed;
        if (const short rc = remove_leftover())
            return rc;
    }
    return code::open_failed;
}

/// Frees the name, if what is there may go.
short temporary_file::remove_leftover()
{
    switch (platform::kind_of(path_)) {
    case platform::entry_kind::none:
        return code::success;
    case platform::entry_kind::device:
        return code::write_failed;
    case platform::entry_kind::other:
        return code::open_failed;
    case platform::entry_kind::file:
    case platform::entry_kind::link_to_file:
        break;
    }
    errno = 0;
    held_ = platform::hold(path_);
    if (held_ == platform::not_held)
        return errno == ENOENT ? code::success : code::open_failed;
    const bool removed = platform::remove_held(held_, path_) == 0;
    release();
    return removed ? code::success : code::open_failed;
}

bool temporary_file::lock()
{
    for (int attempt = 0; attempt < most_attempts; ++attempt) {
        errno = 0;
        held_ = platform::hold(path_);
        const bool is_free = held_ == platform::not_held && errno == ENOENT;
        if (is_free)
            held_ = platform::create_held(path_);
        for_lock_only_ = is_free && held_ != platform::not_held;
        if (held_ == platform::not_held && errno != EEXIST)
            return errno != EWOULDBLOCK;
        if (for_lock_only_ || (held_ != platform::not_held && is_in_place()))
            return true;
        release(); // of what another process has renamed or removed
    }
    return false;
}

std::FILE * temporary_file::open()
{
    std::FILE * const stream = platform::open_held(held_);
    if (!stream) {
        platform::remove_held(held_, path_);
        release();
    }
    return stream;
}

} // namespace orvet
