#ifndef ORVET_FOUNDATION_BASE_NAME_LIST_H
#define ORVET_FOUNDATION_BASE_NAME_LIST_H

#include <string_view>

namespace orvet {

// Lists of names, such as the options and the keywords, are arrays closed by a null entry.

/// The position of `name` in the list, case respected; that of the null entry when it is not there.
constexpr int index_in(const char * const * list, const char * name)
{
    int i = 0;
    while (list[i] && !(name && std::string_view(list[i]) == name))
        ++i;
    return i;
}

constexpr bool holds(const char * const * list, const char * name)
{
    return list[index_in(list, name)] != nullptr;
}

} // namespace orvet

#endif
