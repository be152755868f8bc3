#ifndef ORVET_FOUNDATION_FORMAT_H
#define ORVET_FOUNDATION_FORMAT_H

#include <algorithm>
#include <concepts>
#include <cstdarg>
#include <cstddef>
#include <cstring>
#include <string_view>
#include <type_traits>

#include "orvet/foundation/base/pathname.h"

namespace orvet {

/// One value for a format: a text or a whole number. Made from what a caller passes and read at once; a text
/// must outlive it.
class argument {
public:
    ///@{
    /// A text; null is the empty one.
    argument(const char * text) : text_(text ? text : "") {}
    argument(const ustring & text) : units_(&text) {}
    argument(const pathname & path) : units_(&path.text()) {}
    ///@}
    /// A whole number.
    template <std::integral Number>
    argument(Number number) : number_(static_cast<long long>(number))
    {
    }

    /// True for a text, false for a number.
    bool is_text() const { return text_ || units_; }
    /// The text, null for a number. A `ustring` gives its multi-byte form, which may take memory.
    const char * text() const { return units_ ? units_->mbcs_str() : text_; }
    /// The number; 0 for a text.
    long long number() const { return number_; }

private:
    const char * text_ = nullptr;
    const ustring * units_ = nullptr;
    long long number_ = 0;
};

/// What fits `%s`.
template <class T>
concept text_argument = std::convertible_to<const T &, const char *> || std::derived_from<T, ustring> ||
    std::derived_from<T, pathname>;

/// What fits any conversion.
template <class T>
concept format_argument = text_argument<T> || std::integral<T>;

/// The conversions of the library's formats: %s for texts; %d, %i, %u, %x, %X and %c for whole numbers, with
/// width, precision and the sizes hh, h, l and ll; and the bare %l, which is %ld. %% is a percent sign.
struct conversion {
    bool found;         ///< false when there is no further one
    const char * begin; ///< its "%"; the end of the format when there is none
    const char * flags; ///< the end of its flags, width and precision
    const char * end;   ///< behind its last character
    char size;          ///< 'H' for hh, 'h', 'l', 'L' for ll, or 0
    char kind;          ///< the last letter; 0 for one that is unknown or ends too soon
};

/// The first conversion of `format`, which a zero closes.
constexpr conversion next_conversion(std::string_view format)
{
    const auto among = [](char ch, const char * set) {
        while (*set && *set != ch)
            ++set;
        return ch != 0 && *set != 0;
    };
    const char * const end = format.data() + format.size();
    const char * begin = end;
    if (std::is_constant_evaluated())
        begin = std::find(format.data(), end, '%');
    else if (const void * const found = std::memchr(format.data(), '%', format.size()))
        begin = static_cast<const char *>(found);
    if (!*begin)
        return {false, begin, begin, begin, 0, 0};
    const char * at = begin + 1;
    while (*at <= '9' && among(*at, "-+ #0123456789."))
        ++at;
    const char * const flags = at;
    char size = 0;
    if (*at == 'h' || *at == 'l') {
        size = *at++;
        if (*at == size) {
            size = size == 'h' ? 'H' : 'L';
            ++at;
        }
    }
    if (among(*at, size == 0 ? "sdiuxXc%" : "diuxX"))
        return {true, begin, flags, at + 1, size, *at};
    if (size == 'l')
        return {true, begin, flags, at, size, 'd'};
    return {true, begin, flags, at, size, 0};
}

/// A format that is held against the types of its arguments when it is compiled.
template <class... Args>
class checked_format {
public:
    /// Does not compile for a format that does not fit.
    consteval checked_format(const char * text) : text_(text)
    {
        constexpr bool is_text[] = {text_argument<Args>..., false};
        std::size_t taken = 0;
        for (conversion next = next_conversion(text); next.found; next = next_conversion(next.end)) {
            if (next.kind == 0)
                throw "the format holds a conversion that is not supported";
            if (next.kind == '%')
                continue;
            if (taken == sizeof...(Args))
                throw "the format asks for more arguments than there are";
            if (is_text[taken] != (next.kind == 's'))
                throw "a conversion does not fit its argument";
            ++taken;
        }
        if (taken != sizeof...(Args))
            throw "the format leaves arguments over";
    }

    /// The format; a static text, closed by a zero.
    std::string_view text() const { return text_; }

private:
    std::string_view text_;
};

/// The format of a function whose arguments are `Args`; spelled so that they are deduced from the values
/// alone.
template <class... Args>
using format_for = checked_format<std::type_identity_t<Args>...>;

/// Formats into the buffer of `trace::internal_write_text`. A zero closes `format`. A signed number outside
/// the range of its conversion is clamped to it, but for h and hh, which take its low bits; what does not fit
/// into the buffer is cut at a character's end.
ORVET_API char * format_message(std::string_view format, const argument * arguments, std::size_t count);

/// The same by the rules of `printf`, for arguments without types.
ORVET_API char * format_message(const char * format, std::va_list arguments);

} // namespace orvet

#endif
