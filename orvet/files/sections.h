#ifndef ORVET_FILES_SECTIONS_H
#define ORVET_FILES_SECTIONS_H

#include "orvet/foundation/base/ustring.h"

namespace orvet {

/// A text that may begin with a key.
class ORVET_API keyval : public ustring {
public:
    /// Made as a `ustring` is.
    using ustring::ustring;
    keyval() = default;
    /// A copy of the text.
    explicit keyval(const ustring & text) : ustring(text) {}
    /// Replaces the text.
    template <std::same_as<ustring> Text> // not for what converts to it: a `keyval` can be made of that too
    keyval & operator=(const Text & text)
    {
        assign(text);
        return *this;
    }

    /// If the text begins with `key`, in any case: removes it, with the blanks after it, and returns 0. Else
    /// returns another value and leaves the text unchanged.
    int getval(const ustring & key);
};

/// Reads a line of the form "count = <value>", the key in any case, into `*count`. 259 for another line, with
/// `*count` unchanged; a value that is not a number counts as 0.
ORVET_API short get_count(const ustring & line, int * count);

/// Token `index`, from 0, of a comma-separated text, neither stripped nor tested; empty after the last one.
ORVET_API ustring get_token(const ustring & text, int index);

/// The server form of a name: the name, "_" and the name again; empty for an empty name.
ORVET_API ustring build_server_rr(const ustring & name);

} // namespace orvet

#endif
