#ifndef ORVET_FILES_LINE_READER_H
#define ORVET_FILES_LINE_READER_H

#include <cstddef>
#include <cstdio>

#include "orvet/foundation/base/ustring.h"

namespace orvet {

/// Reads lines from a stream. A block of a regular file is read at once and taken apart; a pipe, a device or
/// a stream in text mode is read up to a line end and no further.
///
/// A line ends at LF, CR LF or the end of the file. A line that a read error cuts, or for which allocation
/// fails, is not handed out; the next call tries it again. A failure differs from the end of
/// the file by `at_end`.
class line_reader {
public:
    line_reader() = default;
    line_reader(const line_reader &) = delete;
    line_reader & operator=(const line_reader &) = delete;
    ~line_reader() { release_block(); }

    /// Begins on a stream, which stays its owner's; null for none. `is_text`: the runtime translates line
    /// ends.
    void attach(std::FILE * stream, bool is_text = false);

    /// Reads the next line. Not 0 if there was one, else `line` is unchanged.
    int get_line(ustring & line);
    /// Moves to the line after the next one that equals `head`. False, at the end of the file, if there is
    /// none.
    bool find_line(const ustring & head);
    /// As `fread` with items of one byte.
    std::size_t read(void * bytes, std::size_t size);

    /// The position of the next byte that is handed out; negative if the stream can't tell.
    long long position();
    /// Bytes that were read ahead of that.
    std::size_t unread() const { return static_cast<std::size_t>(end_ - at_); }
    /// Forgets what was read ahead. The caller moves the stream to where reading goes on.
    void drop();

    /// Whether the last call came to the end of the file.
    bool at_end() const { return at_end_; }
    /// Whether a call has failed on a read error since `attach`.
    bool failed() const { return failed_; }

private:
    enum class source { unknown, blocks, lines };
    enum class after_block { more, end, error };

    bool reads_blocks();
    bool fill();
    bool make_room();
    void release_block();
    int read_line(ustring & line);
    int hand_out(ustring & line, const char * feed);
    int hand_out(ustring & line, std::size_t length, const char * next);
    bool find_in_block(const char * head, std::size_t length, const char * lines_end);
    bool find_by_line(const ustring & head);
    void report(after_block reason);

    std::FILE * stream_ = nullptr;
    char * block_ = nullptr;
    std::size_t capacity_ = 0;
    const char * at_ = ""; // what was read ahead, up to `end_`
    const char * end_ = at_;
    long long end_position_ = unknown; // of `end_` in the file
    source source_ = source::unknown;
    after_block next_ = after_block::more;
    bool at_end_ = false;
    bool failed_ = false;

    static constexpr long long unknown = -1;
};

} // namespace orvet

#endif
