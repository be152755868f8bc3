#ifndef KTXTRACE_LINE_SOURCE_H
#define KTXTRACE_LINE_SOURCE_H

#include <string>
#include <string_view>

#include <orvet/orvet.h>

#include "progress.h"

/// The lines of a file of any size, with any bytes in them, in memory of a fixed size.
class line_source {
public:
    explicit line_source(orvet::kt_file & file) : file_(file), progress_(file.file_size()) {}

    /// Reads the next line, without its line end; valid until the next call. A line beyond a quarter of a
    /// megabyte comes in parts. False at the end of the file.
    bool next(std::string_view & line);

private:
    static constexpr unsigned block_size = 1U << 18;

    bool fill();

    orvet::kt_file & file_;
    progress progress_;
    std::string block_;
    std::size_t begin_ = 0; // of what is not yet handed out
    bool at_end_ = false;
};

#endif
