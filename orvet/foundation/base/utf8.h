#ifndef ORVET_FOUNDATION_BASE_UTF8_H
#define ORVET_FOUNDATION_BASE_UTF8_H

#include <cstddef>

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

/// Turns `count` bytes into units and returns the number of these; `units` has room for `count`.
std::size_t decode(const char * bytes, std::size_t count, char16_t * units) noexcept;

/// Turns units into bytes and returns the number of these; `bytes` has room for three a unit.
std::size_t encode(const char16_t * units, std::size_t count, char * bytes) noexcept;

/// The most bytes of `text`, at most `limit`, that do not end inside a character.
std::size_t cut(const char * text, std::size_t limit) noexcept;

} // namespace orvet::utf8

#endif
