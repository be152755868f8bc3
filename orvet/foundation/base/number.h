#ifndef ORVET_FOUNDATION_BASE_NUMBER_H
#define ORVET_FOUNDATION_BASE_NUMBER_H

#include <limits>

namespace orvet {

/// The number at the front of a text, closed by a zero, as `atoi` reads it: 0 for no number, clamped where
/// that leaves off.
template <class Unit>
constexpr int to_int(const Unit * text)
{
    while (*text == ' ' || (*text >= '\t' && *text <= '\r'))
        ++text;
    const bool negative = *text == '-';
    if (negative || *text == '+')
        ++text;
    constexpr int most = std::numeric_limits<int>::max();
    int number = 0; // below zero where the text is: there is one more of those
    for (; *text >= '0' && *text <= '9'; ++text) {
        const int digit = *text - '0';
        if (number < -(most / 10) || (number == -(most / 10) && digit > most % 10 + negative))
            return negative ? std::numeric_limits<int>::min() : most;
        number = number * 10 - digit;
    }
    return negative ? number : -number;
}

} // namespace orvet

#endif
