#ifndef ORVET_UTILITIES_USPRINTF_H
#define ORVET_UTILITIES_USPRINTF_H

#include <concepts>
#include <cstddef>

#include "orvet/foundation/format.h"

namespace orvet {

namespace detail {

ORVET_API int format_in_place(ustring & out, const char * format, const argument * values, std::size_t count);

/// The argument of `usprintf`: a 0 of the type of NULL can be either.
template <class T>
argument untyped(const T & value)
{
    if constexpr (std::integral<T> && std::same_as<T, decltype(NULL)>)
        return value == 0 ? argument::zero_or_null() : argument(value);
    else
        return argument(value);
}

} // namespace detail

/// Formats into `out`, with %s and %d alone, and returns its length in characters. %s takes what
/// `text_argument` names, null and NULL being the empty text; %d takes whole numbers and enums.
///
/// After each replacement the search starts from the beginning again, so a replaced text is searched like the
/// rest. A "%" that no conversion fits, or whose conversion does not fit the next argument, stays as it is.
/// If allocation fails, `out` is unchanged.
template <class... Args>
int usprintf(ustring & out, const char * format, const Args &... args)
{
    static_assert(detail::check_arguments<Args...>());
    return detail::format_in_place(out, format,
                                   detail::list_arguments(detail::untyped(detail::closed(args))...).values,
                                   sizeof...(Args));
}

} // namespace orvet

#endif
