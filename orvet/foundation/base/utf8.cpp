#include "orvet/foundation/base/utf8.h"

namespace orvet::utf8 {

namespace {

constexpr bool is_continuation(unsigned char byte)
{
    return (byte & 0xC0) == 0x80;
}

/// Bytes of the character that `lead` opens; 0 for a byte that opens none.
constexpr std::size_t length_of(unsigned char lead)
{
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead <= 0xDF)
        return 2;
    if (lead >= 0xE0 && lead <= 0xEF)
        return 3;
    return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

struct character {
    char32_t code;
    std::size_t bytes; // 0: no valid character begins here
};

character read_character(const unsigned char * at, std::size_t left)
{
    const std::size_t length = length_of(*at);
    if (length == 0 || length > left)
        return {0, 0};
    if (length == 1)
        return {*at, 1};
    char32_t code = *at & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if (!is_continuation(at[i]))
            return {0, 0};
        code = code << 6 | (at[i] & 0x3FU);
    }
    constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    if (code < smallest[length] || code > 0x10FFFF || surrogate)
        return {0, 0};
    return {code, length};
}

char * put(char * out, char32_t code)
{
    const auto tail = [&](int shift) { *out++ = static_cast<char>(0x80 | (code >> shift & 0x3F)); };
    if (code < 0x80) {
        *out++ = static_cast<char>(code);
    } else if (code < 0x800) {
        *out++ = static_cast<char>(0xC0 | code >> 6);
        tail(0);
    } else if (code < 0x10000) {
        *out++ = static_cast<char>(0xE0 | code >> 12);
        tail(6);
        tail(0);
    } else {
        *out++ = static_cast<char>(0xF0 | code >> 18);
        tail(12);
        tail(6);
        tail(0);
    }
    return out;
}

/// Decodes what is not ASCII alone.
std::size_t decode_characters(const char * bytes, std::size_t count, char16_t * units)
{
    const auto * at = reinterpret_cast<const unsigned char *>(bytes);
    const auto * const end = at + count;
    char16_t * out = units;
    while (at != end) {
        if (*at < 0x80) {
            *out++ = *at++;
            continue;
        }
        const character found = read_character(at, static_cast<std::size_t>(end - at));
        if (found.bytes == 0) {
            *out++ = static_cast<char16_t>(escape_base + *at++);
            continue;
        }
        if (found.code < 0x10000) {
            *out++ = static_cast<char16_t>(found.code);
        } else {
            *out++ = static_cast<char16_t>(0xD800 + ((found.code - 0x10000) >> 10));
            *out++ = static_cast<char16_t>(0xDC00 + (found.code & 0x3FF));
        }
        at += found.bytes;
    }
    return static_cast<std::size_t>(out - units);
}

/// Narrows the units, right for ASCII alone: false when there is something else.
bool narrow_ascii(const char16_t * units, std::size_t count, char * bytes)
{
    char16_t seen = 0;
    for (std::size_t i = 0; i < count; ++i) {
        seen |= units[i];
        bytes[i] = static_cast<char>(units[i]);
    }
    return seen < 0x80;
}

} // namespace

std::size_t decode(const char * bytes, std::size_t count, char16_t * units) noexcept
{
    return widen_ascii(bytes, count, units) ? count : decode_characters(bytes, count, units);
}

std::size_t encode(const char16_t * units, std::size_t count, char * bytes) noexcept
{
    if (narrow_ascii(units, count, bytes))
        return count;
    char * out = bytes;
    for (std::size_t i = 0; i < count; ++i) {
        const char16_t unit = units[i];
        if (is_high(unit) && i + 1 < count && is_low(units[i + 1])) {
            out = put(out, 0x10000U + ((unit & 0x3FFU) << 10) + (units[i + 1] & 0x3FFU));
            ++i;
        } else if (is_escape(unit)) {
            *out++ = static_cast<char>(unit & 0xFF);
        } else {
            out = put(out, unit);
        }
    }
    return static_cast<std::size_t>(out - bytes);
}

std::size_t cut(const char * text, std::size_t limit) noexcept
{
    const auto * bytes = reinterpret_cast<const unsigned char *>(text);
    for (std::size_t back = 1; back <= 3 && back <= limit; ++back) {
        const unsigned char byte = bytes[limit - back];
        if (!is_continuation(byte))
            return length_of(byte) > back ? limit - back : limit;
    }
    return limit;
}

} // namespace orvet::utf8
