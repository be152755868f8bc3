#include "orvet/utilities/usprintf.h"

#include <algorithm>
#include <cstdio>
#include <limits>
#include <utility>

#include "orvet/foundation/base/memory.h"

namespace orvet {

namespace {

ustring text_of(const argument & value, char16_t letter)
{
    if (letter == u's')
        return ustring(value.text());
    char digits[12];
    std::snprintf(digits, sizeof digits, "%d",
                  static_cast<int>(std::clamp<long long>(value.number(), std::numeric_limits<int>::min(),
                                                         std::numeric_limits<int>::max())));
    return ustring(digits);
}

bool fits(char16_t letter, const argument & value)
{
    return (letter == u's' && value.is_text()) ||
           (letter == u'd' && (!value.is_text() || value.is_zero_or_null()));
}

/// Where the first conversion is that takes `value`.
unsigned find_conversion(const ustring & text, const argument & value)
{
    unsigned at = text.find(u'%', 0, 0);
    while (at != ustring::npos && !fits(text.data()[at + 1], value))
        at = text.find(u'%', at + 1, 0);
    return at;
}

} // namespace

int detail::format_in_place(ustring & out, const char * format, const argument * values, std::size_t count)
{
    memory_watch watch;
    ustring text(format);
    for (std::size_t i = 0; i < count; ++i) {
        const unsigned at = find_conversion(text, values[i]);
        if (at == ustring::npos)
            break;
        const ustring replacement = text_of(values[i], text.data()[at + 1]);
        text.remove(at, 2).insert(at, replacement);
    }
    if (!watch.failed())
        out = std::move(text);
    return static_cast<int>(out.length());
}

} // namespace orvet
