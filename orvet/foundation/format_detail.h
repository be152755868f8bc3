#ifndef ORVET_FOUNDATION_FORMAT_DETAIL_H
#define ORVET_FOUNDATION_FORMAT_DETAIL_H

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <type_traits>

/// How format.h takes a format apart. Tools need not read on.
namespace orvet {

/// One conversion of a format; format.h lists those that there are.
struct conversion {
    bool found;         ///< false when there is no further one
    const char * begin; ///< its "%"; the end of the format when there is none
    const char * flags; ///< the end of its flags, width and precision
    const char * end;   ///< the end of the conversion
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
    const char * begin = format.data();
    if (std::is_constant_evaluated()) { // where a sanitizer does not let `string_view::find` run
        while (begin != end && *begin != '%')
            ++begin;
    } else {
        begin += std::min(format.find('%'), format.size());
    }
    if (begin == end)
        return {false, begin, begin, begin, 0, 0};
    const char * at = begin + 1;
    if (*at == 's' || *at == 'd') // as most are
        return {true, begin, at, at + 1, 0, *at};
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

/// What is wrong with a format that does not compile: the compiler names the function that it can't call.
/// None is defined.
namespace format_error {
void conversion_is_not_supported();
void a_conversion_has_no_argument();
void a_text_needs_percent_s_and_a_number_percent_d();
void an_argument_has_no_conversion();
} // namespace format_error

namespace detail {

/// Compiles if `text` has a conversion for each of `count` arguments, %s where `is_text` says so.
consteval void check_format(const char * text, const bool * is_text, std::size_t count)
{
    std::size_t taken = 0;
    for (conversion next = next_conversion(text); next.found; next = next_conversion(next.end)) {
        if (next.kind == 0)
            format_error::conversion_is_not_supported();
        if (next.kind == '%')
            continue;
        if (taken == count)
            format_error::a_conversion_has_no_argument();
        else if (is_text[taken] != (next.kind == 's')) // NOLINT(clang-analyzer-core.*): never runs
            format_error::a_text_needs_percent_s_and_a_number_percent_d();
        ++taken;
    }
    if (taken != count)
        format_error::an_argument_has_no_conversion();
}

} // namespace detail

} // namespace orvet

#endif
