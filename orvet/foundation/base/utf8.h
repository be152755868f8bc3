#ifndef ORVET_FOUNDATION_BASE_UTF8_H
#define ORVET_FOUNDATION_BASE_UTF8_H

#include <cstddef>
#include <cstring>
#include <experimental/simd>

// The two forms of a text. A byte that is no part of valid UTF-8 becomes the unit U+DC00 + byte and turns
// back into that byte, so any sequence of bytes survives the way there and back.
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

/// Texts are looked through and widened in blocks of that many characters.
inline constexpr std::size_t block = 16;

/// The bytes of a block side by side; those of other characters than ASCII are below zero.
using block_bytes =
    std::experimental::simd<signed char, std::experimental::simd_abi::deduce_t<signed char, block>>;

inline block_bytes load_block(const char * bytes) noexcept
{
    return {reinterpret_cast<const signed char *>(bytes), std::experimental::element_aligned};
}

/// The first byte that `passed` does not hold for, or `end`. It is asked of whole blocks, and of single bytes
/// behind the last one.
template <class Passed>
inline const char * skip(const char * at, const char * end, Passed passed) noexcept
{
    const char * const blocks_end = at + (end - at) / block * block;
    for (; at != blocks_end; at += block)
        if (const auto passes = passed(load_block(at)); !all_of(passes))
            return at + find_first_set(!passes);
    while (at != end && passed(static_cast<signed char>(*at)))
        ++at;
    return at;
}

/// Widens `count` bytes of ASCII in whole blocks: what stands behind them is looked at, and written over.
inline void widen_blocks(const char * bytes, std::size_t count, char16_t * units) noexcept
{
    for (std::size_t done = 0; done < count; done += block) {
        // The compiler makes vector code of this.
        unsigned char taken[block];
        std::memcpy(taken, bytes + done, block);
        for (std::size_t i = 0; i < block; ++i)
            units[done + i] = taken[i];
    }
}

/// Turns bytes into units and gives the number of these. `readable`, at least `count`, may be looked at, and
/// `units` has room for as many.
std::size_t decode(const char * bytes, std::size_t count, std::size_t readable, char16_t * units) noexcept;

/// Turns units into bytes; `bytes` has room for three bytes a unit. Gives the number of bytes.
std::size_t encode(const char16_t * units, std::size_t count, char * bytes) noexcept;

/// The most bytes of `text`, at most `limit`, that do not end inside a character.
std::size_t cut(const char * text, std::size_t limit) noexcept;

} // namespace orvet::utf8

#endif
