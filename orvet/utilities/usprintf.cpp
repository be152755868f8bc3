#include "orvet/utilities/usprintf.h"

#include <algorithm>
#include <cstdio>
#include <limits>
#include <utility>

#include "orvet/foundation/base/memory.h"

namespace orvet {

namespace {

ustring text_of(const argument & value)
{
    if (value.is_text())
        return ustring(value.text());
    char digits[12];
    std::snprintf(digits, sizeof digits, "%d",
                  static_cast<int>(std::clamp<long long>(value.number(), std::numeric_limits<int>::min(),
                                                         std::numeric_limits<int>::max())));
    return ustring(digits);
}

/// Where the first conversion stands that takes `value`.
unsigned find_conversion(const ustring & text, const argument & value)
{
    const char16_t letter = value.is_text() ? u's' : u'd';
    unsigned at = text.find(u'%', 0, 0);
    while (at != ustring::npos && text.data()[at + 1] != letter)
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
        text.remove(at, 2).insert(at, text_of(values[i]));
    }
    if (!watch.failed())
        out = std::move(text);
    return static_cast<int>(out.length());
}

} // namespace orvet
