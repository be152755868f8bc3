#ifndef ORVET_FOUNDATION_BASE_NUMBER_H
#define ORVET_FOUNDATION_BASE_NUMBER_H

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace orvet {

/// The number at the front of a text as `atoi` reads it: 0 for no number, clamped where that leaves off.
inline int to_int(const char * text)
{
    return static_cast<int>(std::clamp<long>(std::strtol(text, nullptr, 10), std::numeric_limits<int>::min(),
                                             std::numeric_limits<int>::max()));
}

} // namespace orvet

#endif
