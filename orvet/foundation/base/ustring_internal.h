#ifndef ORVET_FOUNDATION_BASE_USTRING_INTERNAL_H
#define ORVET_FOUNDATION_BASE_USTRING_INTERNAL_H

#include <algorithm>

namespace orvet {

/// How many of `n` units from `pos` on lie within `length`.
constexpr unsigned clip(unsigned length, unsigned pos, unsigned n)
{
    return pos < length ? std::min(n, length - pos) : 0;
}

} // namespace orvet

#endif
