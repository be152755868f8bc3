#ifndef KTXTRACE_PROGRESS_H
#define KTXTRACE_PROGRESS_H

#include <chrono>

/// A line on the terminal that says how far the reading of a file has come, from the second second on.
class progress {
public:
    explicit progress(long size);
    progress(const progress &) = delete;
    progress & operator=(const progress &) = delete;
    ~progress() { clear(); }

    /// So many more bytes were read.
    void add(unsigned bytes);
    /// Removes the line, before other output comes.
    static void clear();

private:
    using clock = std::chrono::steady_clock;

    const long long size_;
    const bool is_shown_; // to a terminal
    long long done_ = 0;
    clock::time_point next_;
};

#endif
