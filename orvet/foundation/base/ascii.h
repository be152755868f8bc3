#ifndef ORVET_FOUNDATION_BASE_ASCII_H
#define ORVET_FOUNDATION_BASE_ASCII_H

namespace orvet {

///@{
/// Upper and lower case as the library knows it: of the ASCII letters alone, whatever the locale.
template <class Unit>
constexpr Unit to_ascii_upper(Unit unit)
{
    return unit >= 'a' && unit <= 'z' ? static_cast<Unit>(unit - 'a' + 'A') : unit;
}

template <class Unit>
constexpr Unit to_ascii_lower(Unit unit)
{
    return unit >= 'A' && unit <= 'Z' ? static_cast<Unit>(unit - 'A' + 'a') : unit;
}
///@}

} // namespace orvet

#endif
