#include "orvet/foundation/format.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <limits>
#include <memory>
#include <new>

#include "orvet/foundation/base/bounded_writer_internal.h"

namespace orvet {

namespace {

// One for the whole process: both channels and the console format here.
char buffer[1024];

template <class Number>
long long clamped(long long value)
{
    constexpr long long least = std::numeric_limits<Number>::min();
    constexpr long long most = std::numeric_limits<Number>::max();
    return std::clamp(value, least, most);
}

/// What a conversion makes of a number: its own type's range, or for h its low bits.
long long fitted(const conversion & as, long long value)
{
    const bool is_signed = as.kind == 'd' || as.kind == 'i';
    switch (as.size) {
    case 'H':
        return is_signed ? static_cast<signed char>(value) : static_cast<unsigned char>(value);
    case 'h':
        return is_signed ? static_cast<short>(value) : static_cast<unsigned short>(value);
    case 'l':
        return is_signed ? clamped<long>(value) : static_cast<long long>(static_cast<unsigned long>(value));
    case 'L':
        return value;
    default:
        return is_signed ? clamped<int>(value) : static_cast<unsigned>(value);
    }
}

/// Flags, width and precision are printf's business; only the size is brought to one form.
void put_printed(bounded_writer & out, const conversion & as, const argument & value)
{
    const int flags = static_cast<int>(std::min<std::ptrdiff_t>(as.flags - as.begin, 20));
    char text[sizeof buffer];
    char spec[32];
    std::snprintf(spec, sizeof spec, "%.*s%s%c", flags, as.begin,
                  value.is_text() || as.kind == 'c' ? "" : "ll", as.kind);
    const int length = value.is_text() ? std::snprintf(text, sizeof text, spec, value.text())
                       : as.kind == 'c'
                           ? std::snprintf(text, sizeof text, spec, static_cast<int>(value.number()))
                           : std::snprintf(text, sizeof text, spec, fitted(as, value.number()));
    if (length <= 0)
        return;
    const std::size_t kept = std::min(static_cast<std::size_t>(length), sizeof text - 1);
    // A precision counts bytes, and may end inside a character.
    const bool shortened = value.is_text() && !std::strstr(text, value.text());
    out.add({text, shortened ? utf8::cut(text, kept) : kept});
}

void put_value(bounded_writer & out, const conversion & as, const argument & value)
{
    const bool plain = as.flags - as.begin == 1;
    if (plain && value.is_text()) {
        out.add(value.text());
    } else if (plain && as.kind == 'd') {
        char digits[24];
        const char * const end = std::to_chars(digits, std::end(digits), fitted(as, value.number())).ptr;
        out.add({digits, end});
    } else {
        put_printed(out, as, value);
    }
}

/// Copies `format` with each bare "%l" made "%ld"; `to` has room for half as much again.
void copy_with_longs(const char * format, char * to)
{
    const char * from = format;
    for (const char * at = std::strstr(from, "%l"); at; at = std::strstr(at + 2, "%l")) {
        std::ptrdiff_t percents = 0; // in front of this one; an odd number makes it the second half of a "%%"
        while (at - percents > format && at[-percents - 1] == '%')
            ++percents;
        if (percents % 2 != 0 || (at[2] && std::strchr("diouxXeEfFgGaAcspnl", at[2])))
            continue;
        to = std::copy(from, at + 2, to);
        *to++ = 'd';
        from = at + 2;
    }
    std::strcpy(to, from);
}

} // namespace

char * format_message(std::string_view format, const argument * arguments, std::size_t count)
{
    bounded_writer out(buffer, buffer + sizeof buffer - 1);
    std::size_t taken = 0;
    for (;;) {
        const conversion next = next_conversion(format);
        out.add({format.data(), next.begin});
        if (!next.found)
            break;
        if (next.kind == '%')
            out.add("%");
        else if (taken < count)
            put_value(out, next, arguments[taken++]);
        format.remove_prefix(static_cast<std::size_t>(next.end - format.data()));
    }
    *out.position() = 0;
    return buffer;
}

char * format_message(const char * format, std::va_list arguments)
{
    char small[sizeof buffer];
    const std::size_t most = std::strlen(format) / 2 * 3 + 2;
    const std::unique_ptr<char[]> large(most > sizeof small ? new (std::nothrow) char[most] : nullptr);
    char * const room = most > sizeof small ? large.get() : small;
    if (room)
        copy_with_longs(format, room);
    int length = std::vsnprintf(buffer, sizeof buffer, room ? room : format, arguments);
    if (length < 0) // better the bare format than nothing
        length = std::snprintf(buffer, sizeof buffer, "%s", format);
    if (static_cast<std::size_t>(length) >= sizeof buffer)
        buffer[utf8::cut(buffer, sizeof buffer - 1)] = 0;
    return buffer;
}

} // namespace orvet
