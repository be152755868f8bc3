#ifndef ORVET_FOUNDATION_BASE_UTF8_H
#define ORVET_FOUNDATION_BASE_UTF8_H

#include <cstddef>
#include <cstdint>
#include <cstring>

// The two forms of a text. A byte that is not part of valid UTF-8 becomes the unit U+DC00 + byte and turns
// back into that byte, so any sequence of bytes survives both conversions.
namespace orvet::utf8 {

inline constexpr char16_t escape_base = 0xDC00;

constexpr bool is_escape(char16_t unit) noexcept
{
    return unit >= escape_base + 0x80 && unit <= escape_base + 0xFF;
}

constexpr bool is_high(char16_t unit) noexcept
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

constexpr bool is_low(char16_t unit) noexcept
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// Widens a block of bytes. Compilers make a few vector instructions of it, since the copy can't overlap the
/// units. Returns all bits of the bytes.
template <std::size_t Block>
inline std::uint64_t widen_block(const char * bytes, char16_t * units)
{
    unsigned char copy[Block];
    std::memcpy(copy, bytes, Block);
    for (std::size_t i = 0; i < Block; ++i)
        units[i] = copy[i];
    std::uint64_t words[Block / 8];
    std::memcpy(words, bytes, Block);
    std::uint64_t bits = 0;
    for (const std::uint64_t word : words)
        bits |= word;
    return bits;
}

/// Widens the bytes in blocks, the last of which overlaps the one before; `count` is at least one block.
/// Right for ASCII alone: false if there is something else.
template <std::size_t Block>
inline bool widen_blocks(const char * bytes, std::size_t count, char16_t * units)
{
    std::uint64_t bits = 0;
    for (std::size_t done = 0; done + Block <= count; done += Block)
        bits |= widen_block<Block>(bytes + done, units + done);
    bits |= widen_block<Block>(bytes + count - Block, units + count - Block);
    return (bits & 0x8080808080808080U) == 0;
}

/// The same for any count.
inline bool widen_ascii(const char * bytes, std::size_t count, char16_t * units)
{
    if (count >= 16)
        return widen_blocks<16>(bytes, count, units);
    if (count >= 8)
        return widen_blocks<8>(bytes, count, units);
    unsigned char seen = 0;
    for (std::size_t i = 0; i < count; ++i) {
        units[i] = static_cast<unsigned char>(bytes[i]);
        seen |= static_cast<unsigned char>(bytes[i]);
    }
    return seen < 0x80;
}

/// Turns `count` bytes into units and returns the number of these; `units` has room for `count`.
std::size_t decode(const char * bytes, std::size_t count, char16_t * units) noexcept;

/// Turns units into bytes and returns the number of these; `bytes` has room for three a unit.
std::size_t encode(const char16_t * units, std::size_t count, char * bytes) noexcept;

/// The most bytes of `text`, at most `limit`, that do not end inside a character.
std::size_t cut(const char * text, std::size_t limit) noexcept;

} // namespace orvet::utf8

#endif
