#include "line_source.h"

bool line_source::next(std::string_view & line)
{
    std::size_t searched = begin_;
    std::size_t end = block_.find('\n', searched);
    while (end == std::string::npos && block_.size() - begin_ < block_size) {
        searched = block_.size() - begin_; // where what is left begins is the start of the block then
        if (!fill())
            break;
        end = block_.find('\n', searched);
    }
    if (begin_ == block_.size())
        return false;
    const bool is_whole = end != std::string::npos;
    line = std::string_view(block_).substr(begin_, is_whole ? end - begin_ : std::string_view::npos);
    begin_ = is_whole ? end + 1 : block_.size();
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return true;
}

/// Moves what is left to the front, and reads on after it. False at the end of the file.
bool line_source::fill()
{
    block_.erase(0, begin_);
    begin_ = 0;
    const std::size_t left = block_.size();
    block_.resize(left + block_size);
    const unsigned bytes = at_end_ ? 0 : file_.read(block_.data() + left, block_size);
    block_.resize(left + bytes);
    at_end_ = bytes == 0;
    progress_.add(bytes);
    return !at_end_;
}
