#include "progress.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include <unistd.h>

namespace {

bool has_line = false;

} // namespace

progress::progress(long size)
    : size_(std::max(size, 1L)), is_shown_(std::getenv("TERM") != nullptr && isatty(2) != 0),
      next_(clock::now() + std::chrono::seconds(1))
{
}

void progress::clear()
{
    if (has_line)
        std::fprintf(stderr, "\r%30s\r", "");
    has_line = false;
}

void progress::add(unsigned bytes)
{
    done_ += bytes;
    if (!is_shown_ || clock::now() < next_)
        return;
    next_ = clock::now() + std::chrono::milliseconds(200);
    std::fprintf(stderr, "\rread %3lld %% of %lld MB ", std::min(100 * done_ / size_, 100LL), size_ >> 20);
    has_line = true;
}
