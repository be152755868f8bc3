#include "orvet/files/line_reader_internal.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <utility>

#include "orvet/foundation/base/memory.h"
#include "orvet/foundation/base/utf8.h"
#include "orvet/foundation/platform/files.h"

namespace orvet {

namespace {

constexpr std::size_t block_size = 65536;
constexpr std::size_t near = 64;
// Reads come in whole pages, which runtimes pass on to the system without a copy. A page more than a block
// has room for the line that the end of a block cuts.
constexpr std::size_t page_size = 4096;
constexpr std::size_t usual_capacity = block_size + page_size;

const char * find_feed(const char * at, const char * end)
{
    return static_cast<const char *>(std::memchr(at, '\n', static_cast<std::size_t>(end - at)));
}

/// The first line feed among the `near` bytes from `at` on, a word at a time: most lines are short, and a
/// call takes longer. Null if there is none there.
const char * find_near_feed(const char * at)
{
    if constexpr (std::endian::native == std::endian::little) {
        constexpr std::uint64_t ones = 0x0101010101010101U;
        for (std::size_t i = 0; i < near; i += sizeof(std::uint64_t)) {
            std::uint64_t word;
            std::memcpy(&word, at + i, sizeof word);
            const std::uint64_t other = word ^ ones * '\n'; // zero where there is a line feed
            if (const std::uint64_t found = (other - ones) & ~other & ones * 0x80)
                return at + i + std::countr_zero(found) / 8;
        }
    }
    return nullptr;
}

/// The end of the last whole line; `begin` if there is none.
const char * end_of_lines(const char * begin, const char * end)
{
    while (end != begin && end[-1] != '\n')
        --end;
    return end;
}

/// The next line feed before `end` with the byte `other` at that distance from it; null if there is none.
/// Most chunks hold none, which compilers find out for all bytes of a chunk side by side.
const char * find_feed_with(char other, std::size_t distance, const char * at, const char * end)
{
    constexpr std::ptrdiff_t chunk = 64;
    for (; end - at >= chunk; at += chunk) {
        const char * const ahead = at + distance;
        unsigned char hits = 0;
        for (std::ptrdiff_t i = 0; i < chunk; ++i)
            hits |= static_cast<unsigned char>((at[i] == '\n') & (ahead[i] == other));
        if (hits)
            break;
    }
    while (at < end) {
        const char * const feed = find_feed(at, end);
        if (!feed || feed[distance] == other)
            return feed;
        at = feed + 1;
    }
    return nullptr;
}

/// If the line at `line`, which is whole, equals `head`: the line after it, else null.
const char * pass_line(const char * line, const char * lines_end, const char * head, std::size_t length)
{
    if (static_cast<std::size_t>(lines_end - line) <= length || std::memcmp(line, head, length) != 0)
        return nullptr;
    const char * const end = line + length;
    if (*end == '\r' && end[1] == '\n')
        return end + 2;
    const bool cut_return = length != 0 && head[length - 1] == '\r'; // which belongs to the line end
    return *end == '\n' && !cut_return ? end + 1 : nullptr;
}

/// A text as the bytes of a line.
class line_bytes {
public:
    explicit line_bytes(const ustring & text)
    {
        const bool is_short = text.length() <= std::size(room_) / 3;
        bytes_ = is_short ? room_ : text.mbcs_str();
        length_ = is_short ? utf8::encode(text.data(), text.length(), room_) : text.mbcs_length();
        // Halves and escapes may join to other characters than those of the text.
        const bool is_ascii = std::none_of(text.data(), text.data() + text.length(),
                                           [](char16_t unit) { return unit >= 0x80; });
        possible_ =
            !std::memchr(bytes_, '\n', length_) && (is_ascii || ustring().assign(bytes_, length_) == text);
    }

    const char * begin() const { return bytes_; }
    std::size_t length() const { return length_; }
    /// Whether a line can have these bytes and be that text.
    bool possible() const { return possible_; }

private:
    const char * bytes_;
    std::size_t length_;
    bool possible_;
    char room_[384];
};

} // namespace

void line_reader::attach(std::FILE * stream, bool is_text)
{
    drop();
    stream_ = stream;
    source_ = is_text ? source::lines : source::unknown;
    at_end_ = false;
    failed_ = false;
}

void line_reader::release_block()
{
    release(std::exchange(block_, nullptr));
    capacity_ = 0;
    at_ = end_ = "";
}

void line_reader::drop()
{
    if (capacity_ > usual_capacity) // a long line had it grow
        release_block();
    at_ = end_ = block_ ? block_ : "";
    end_position_ = unknown;
    next_ = after_block::more;
    at_end_ = false;
}

/// Decides at the first read how the stream is read.
bool line_reader::reads_blocks()
{
    if (source_ == source::unknown)
        source_ = platform::is_seekable(stream_) ? source::blocks : source::lines;
    return source_ == source::blocks;
}

/// Makes room after what was read ahead. False if allocation fails.
bool line_reader::make_room()
{
    const std::size_t kept = unread();
    if (capacity_ - kept < page_size) {
        const std::size_t capacity = std::max(usual_capacity, 2 * capacity_);
        char * const grown = allocate<char>(capacity);
        if (!grown)
            return false;
        std::memcpy(grown, at_, kept);
        release(std::exchange(block_, grown));
        capacity_ = capacity;
    } else {
        std::memmove(block_, at_, kept);
    }
    at_ = block_;
    end_ = block_ + kept;
    return true;
}

/// Reads on, after what is left of the block. False if allocation fails.
bool line_reader::fill()
{
    if (!make_room())
        return false;
    if (end_position_ == unknown)
        end_position_ = platform::tell(stream_);
    const std::size_t room = (capacity_ - unread()) / page_size * page_size;
    const std::size_t got = platform::read(stream_, block_ + unread(), room);
    end_ += got;
    if (end_position_ != unknown)
        end_position_ += static_cast<long long>(got);
    if (got < room)
        next_ = std::feof(stream_) ? after_block::end : after_block::error;
    at_end_ = false;
    return true;
}

/// Notes what a call has come to; the next one tries again.
void line_reader::report(after_block reason)
{
    at_end_ = reason == after_block::end;
    failed_ = failed_ || reason == after_block::error;
    next_ = after_block::more;
}

/// Hands out what was read ahead up to `length` bytes, and goes on at `next`.
inline int line_reader::hand_out(ustring & line, std::size_t length, const char * next)
{
    if (length <= line.capacity_ && utf8::widen_ascii(at_, length, line.units_))
        line.set_length(static_cast<unsigned>(length));
    else if (!line.decode(at_, length))
        return 0;
    at_ = next;
    return 1;
}

/// Hands out the line that ends at `feed`.
inline int line_reader::hand_out(ustring & line, const char * feed)
{
    const bool has_return = feed != at_ && feed[-1] == '\r';
    return hand_out(line, static_cast<std::size_t>(feed - at_) - has_return, feed + 1);
}

int line_reader::get_line(ustring & line)
{
    const char * feed = unread() >= near ? find_near_feed(at_) : nullptr;
    if (!feed)
        feed = find_feed(at_, end_);
    return feed ? hand_out(line, feed) : read_line(line);
}

/// Reads the next line, of which the block holds a part at most.
int line_reader::read_line(ustring & line)
{
    std::size_t searched = unread();
    while (next_ == after_block::more) {
        if (!reads_blocks()) {
            const int read = line.getline(stream_);
            if (!read)
                report(std::feof(stream_)     ? after_block::end
                       : std::ferror(stream_) ? after_block::error
                                              : after_block::more); // allocation failed
            return read;
        }
        if (!fill())
            return 0;
        if (const char * const feed = find_feed(at_ + searched, end_))
            return hand_out(line, feed);
        searched = unread();
    }
    if (next_ == after_block::end && at_ != end_)
        return hand_out(line, unread(), end_);
    report(next_);
    return 0;
}

bool line_reader::find_line(const ustring & head)
{
    if (!reads_blocks())
        return find_by_line(head);
    memory_watch watch;
    const line_bytes text(head);
    const char * const bytes = text.begin();
    const std::size_t length = text.length();
    if (watch.failed())
        return false;
    for (;;) {
        const char * const lines_end = end_of_lines(at_, end_);
        if (text.possible() && find_in_block(bytes, length, lines_end))
            return true;
        at_ = lines_end;
        if (next_ != after_block::more)
            break;
        if (!fill())
            return false;
    }
    if (next_ == after_block::end && at_ != end_) {
        const bool found = text.possible() && unread() == length && std::memcmp(at_, bytes, length) == 0;
        at_ = end_;
        if (found)
            return true;
    }
    report(next_);
    return false;
}

/// The same among the whole lines of the block.
bool line_reader::find_in_block(const char * head, std::size_t length, const char * lines_end)
{
    const char last = length != 0 ? head[length - 1] : '\n';
    for (const char * line = at_; line < lines_end;) {
        if (const char * const next = pass_line(line, lines_end, head, length)) {
            at_ = next;
            return true;
        }
        if (static_cast<std::size_t>(lines_end - line) <= length)
            return false;
        const char * const feed = find_feed_with(last, length, line, lines_end - length);
        if (!feed)
            return false;
        line = feed + 1;
    }
    return false;
}

bool line_reader::find_by_line(const ustring & head)
{
    ustring line;
    while (get_line(line))
        if (line == head)
            return true;
    return false;
}

std::size_t line_reader::read(void * bytes, std::size_t size)
{
    const std::size_t ready = std::min(unread(), size);
    if (ready != 0)
        std::memcpy(bytes, at_, ready);
    at_ += ready;
    if (ready == size)
        return size;
    if (next_ != after_block::more) {
        report(next_);
        return ready;
    }
    const std::size_t rest = size - ready;
    const std::size_t got = platform::read(stream_, static_cast<char *>(bytes) + ready, rest);
    if (end_position_ != unknown)
        end_position_ += static_cast<long long>(got);
    if (got < rest)
        report(std::feof(stream_) ? after_block::end : after_block::error);
    return ready + got;
}

long long line_reader::position()
{
    const long long end = end_position_ != unknown ? end_position_ : platform::tell(stream_);
    return end < 0 ? unknown : end - static_cast<long long>(unread());
}

} // namespace orvet
