#ifndef ORVET_UTILITIES_USPRINTF_H
#define ORVET_UTILITIES_USPRINTF_H

#include "orvet/foundation/format.h"

namespace orvet {

namespace detail {
ORVET_API int format_in_place(ustring & out, const char * format, const argument * values, std::size_t count);
}

/// Formats into `out`, with %s and %d alone, and gives its length in characters.
///
/// After each replacement the search starts from the beginning again, so a replaced text is searched like the
/// rest. A "%" that no conversion fits, or whose conversion does not fit the next argument, stays as it is.
/// When memory is short `out` stays as it was.
template <format_argument... Args>
int usprintf(ustring & out, const char * format, const Args &... args)
{
    const argument values[] = {argument(args)..., argument(0)};
    return detail::format_in_place(out, format, values, sizeof...(Args));
}

} // namespace orvet

#endif
