#ifndef ORVET_FOUNDATION_BASE_NAME_LIST_H
#define ORVET_FOUNDATION_BASE_NAME_LIST_H

namespace orvet {

// Lists of names, such as the options and the keywords, are arrays closed by a null entry.

/// Whether `text` begins with `name`. Most names differ early: a call would cost more than the comparison.
constexpr bool begins_with(const char * text, const char * name)
{
    while (*name && *text == *name)
        ++text, ++name;
    return !*name;
}

/// The position of `name` in the list, case respected; that of the null entry when it is not there.
constexpr int index_in(const char * const * list, const char * name)
{
    int i = 0;
    while (list[i] && !(name && begins_with(name, list[i]) && begins_with(list[i], name)))
        ++i;
    return i;
}

/// True when the list, closed by a null entry, holds the name.
constexpr bool holds(const char * const * list, const char * name)
{
    return list[index_in(list, name)] != nullptr;
}

} // namespace orvet

#endif
