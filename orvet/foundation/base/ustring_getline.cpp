#include <cstring>

#include "orvet/foundation/base/ustring.h"

namespace orvet {

namespace {

/// What one `fgets` has read: the runtime does not say how much that is, and there may be zeros in it.
struct piece {
    std::size_t length;
    bool ends; // in a line feed, which is not counted
};

/// Reads up to a line feed, the end of the file or the end of the room. An empty piece without an end: there
/// was nothing to read, or reading failed.
template <std::size_t Room>
piece read_piece(char (&room)[Room], std::FILE * stream)
{
    // A line feed followed by a zero is one that was read, any other one of those put here.
    std::memset(room, '\n', Room);
    if (!std::fgets(room, Room, stream))
        return {0, false};
    const auto * const feed = static_cast<const char *>(std::memchr(room, '\n', Room));
    if (!feed)
        return {Room - 1, false};
    const auto length = static_cast<std::size_t>(feed - room);
    const bool ends = length + 1 < Room && feed[1] == 0;
    return {ends ? length : length - 1, ends};
}

/// Bytes of a line that a line feed ends, without a carriage return before that.
std::size_t line_length(const char * line, std::size_t count)
{
    return count != 0 && line[count - 1] == '\r' ? count - 1 : count;
}

} // namespace

int ustring::getline(std::FILE * stream)
{
    char room[256];
    piece next = read_piece(room, stream);
    if (next.ends)
        return decode(room, line_length(room, next.length)) ? 1 : 0;
    // A longer line, or the file's last one, is first put together in the buffer of the multi-byte form.
    std::size_t gathered = 0;
    while (next.length != 0 || next.ends) {
        bytes_length_ = no_cache;
        if (!reserve_bytes(gathered + next.length + 1, gathered))
            return 0;
        std::memcpy(bytes_ + gathered, room, next.length);
        gathered += next.length;
        if (next.ends)
            return decode(bytes_, line_length(bytes_, gathered)) ? 1 : 0;
        next = read_piece(room, stream);
    }
    return gathered != 0 && std::feof(stream) && decode(bytes_, gathered) ? 1 : 0;
}

} // namespace orvet
