#ifndef ORVET_FOUNDATION_FORMAT_H
#define ORVET_FOUNDATION_FORMAT_H

#include <concepts>
#include <cstdarg>
#include <cstddef>
#include <string_view>
#include <type_traits>

#include "orvet/foundation/base/pathname.h"
#include "orvet/foundation/format_detail.h"

/// The conversions of the library's formats: %s for texts; %d, %i, %u, %x, %X and %c for whole numbers, with
/// width, precision and the sizes hh, h, l and ll; and the bare %l, which is %ld. %% is a percent sign.
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
    /// A whole number, or the number of an enumerator.
    template <class Number>
    requires(std::integral<Number> || std::is_enum_v<Number>) argument(Number number)
        : number_(static_cast<long long>(number))
    {
    }

    /// True for a text, false for a number.
    bool is_text() const { return text_ || units_; }
    /// The text, null for a number. A `ustring` gives its multi-byte form, which may take memory.
    const char * text() const { return units_ ? units_->mbcs_str() : text_; }
    /// The number; 0 for a text.
    long long number() const { return text_ ? 0 : number_; }

    /// A 0 that may be meant as NULL: a number and, for `usprintf`, the empty text as well.
    static argument zero_or_null()
    {
        argument both("");
        both.number_ = may_be_number;
        return both;
    }
    /// Whether it is that.
    bool is_zero_or_null() const { return text_ && number_ == may_be_number; }

private:
    static constexpr long long may_be_number = 1;

    const char * text_ = nullptr;
    const ustring * units_ = nullptr;
    long long number_ = 0;
};

/// What fits `%s`: `const char *`, `ustring`, `pathname`, `std::string`, `std::string_view`.
template <class T>
concept text_argument = std::convertible_to<const T &, const char *> || std::derived_from<T, ustring> ||
    std::derived_from<T, pathname> || detail::byte_text<T>;

/// What fits any conversion.
template <class T>
concept format_argument = text_argument<T> || std::integral<T> || std::is_enum_v<T>;

namespace detail {

/// Fails to compile, with what to do, for a type that no conversion takes.
template <class... Args>
constexpr bool check_arguments()
{
    static_assert((format_argument<Args> && ...),
                  "a format takes texts (const char *, ustring, pathname, std::string, std::string_view) for "
                  "%s, and whole numbers and enums for %d: convert this argument to one of them");
    return true;
}

///@{
/// The value that an `argument` is made of; a text without a closing zero gets one.
template <class T>
const T & closed(const T & value)
{
    return value;
}
template <byte_text T>
ustring closed(const T & text)
{
    return ustring(text);
}
///@}

/// The arguments of one call, and one more since an array can't be empty. Texts live up to the end of the
/// expression in which it is made.
template <std::size_t Count>
struct argument_list {
    argument values[Count + 1];
};
template <class... Args>
auto list_arguments(const Args &... args)
{
    return argument_list<sizeof...(Args)>{{argument(args)..., argument(0)}};
}

} // namespace detail

/// A format that is compared with the types of its arguments when it is compiled.
template <class... Args>
class checked_format {
    static_assert(detail::check_arguments<Args...>());

public:
    /// Does not compile for a format that does not fit.
    consteval checked_format(const char * text) : text_(text)
    {
        constexpr bool is_text[] = {text_argument<Args>..., false};
        detail::check_format(text, is_text, sizeof...(Args));
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
