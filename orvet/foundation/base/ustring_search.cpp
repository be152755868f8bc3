#include <algorithm>
#include <string_view>

#include "orvet/foundation/base/ascii.h"
#include "orvet/foundation/base/ustring.h"
#include "orvet/foundation/base/ustring_internal.h"

namespace orvet {

namespace {

constexpr bool same(char16_t a, char16_t b, int flag)
{
    return a == b || (flag != 0 && to_ascii_lower(a) == to_ascii_lower(b));
}

/// How many units `chars` has, for a caller who counts up to its closing zero.
unsigned count_of(const char16_t * chars, unsigned n)
{
    return n == ustring::npos ? static_cast<unsigned>(std::char_traits<char16_t>::length(chars)) : n;
}

} // namespace

unsigned ustring::find(char16_t ch, unsigned pos, int flag) const
{
    if (flag != 0)
        return find(&ch, pos, 1, flag);
    const unsigned count = clip(length_, pos, npos);
    const char16_t * const found =
        std::char_traits<char16_t>::find(units_ + (count != 0 ? pos : 0), count, ch);
    return found ? static_cast<unsigned>(found - units_) : npos;
}

unsigned ustring::find(const char16_t * chars, unsigned pos, unsigned n, int flag) const
{
    if (pos > length_)
        return npos;
    n = count_of(chars, n);
    const char16_t * const begin = units_ + pos;
    const char16_t * const end = units_ + length_;
    const char16_t * const found = std::search(begin, end, chars, chars + n,
                                               [flag](char16_t a, char16_t b) { return same(a, b, flag); });
    return found != end || n == 0 ? static_cast<unsigned>(found - units_) : npos;
}

unsigned ustring::find_first_of(const char16_t * chars, unsigned pos, unsigned n, int flag) const
{
    n = count_of(chars, n);
    for (unsigned i = pos; i < length_; ++i)
        if (std::any_of(chars, chars + n, [&](char16_t ch) { return same(units_[i], ch, flag); }))
            return i;
    return npos;
}

unsigned ustring::find_first_not_of(const char16_t * chars, unsigned pos, unsigned n, int flag) const
{
    n = count_of(chars, n);
    for (unsigned i = pos; i < length_; ++i)
        if (std::none_of(chars, chars + n, [&](char16_t ch) { return same(units_[i], ch, flag); }))
            return i;
    return npos;
}

int ustring::compare(unsigned pos1, unsigned n1, const ustring & other, unsigned pos2, unsigned n2,
                     int flag) const
{
    const unsigned count1 = clip(length_, pos1, n1);
    const unsigned count2 = clip(other.length_, pos2, n2);
    for (unsigned i = 0; i < std::min(count1, count2); ++i) {
        const char16_t a = units_[pos1 + i];
        const char16_t b = other.units_[pos2 + i];
        if (!same(a, b, flag))
            return (flag != 0 ? to_ascii_lower(a) < to_ascii_lower(b) : a < b) ? -1 : 1;
    }
    return count1 == count2 ? 0 : count1 < count2 ? -1 : 1;
}

bool ustring::begins_with(const char * ascii) const noexcept
{
    // The closing zero of the units stops a text that is shorter than what is looked for.
    const char16_t * at = units_;
    ascii = ascii ? ascii : "";
    while (*ascii && *at == static_cast<unsigned char>(*ascii))
        ++at, ++ascii;
    return *ascii == 0;
}

} // namespace orvet
