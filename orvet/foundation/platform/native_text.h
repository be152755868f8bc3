#ifndef ORVET_FOUNDATION_PLATFORM_NATIVE_TEXT_H
#define ORVET_FOUNDATION_PLATFORM_NATIVE_TEXT_H

#include "orvet/foundation/base/ustring.h"

namespace orvet::platform {

#ifdef _WIN32

/// A path or command in the form that this system expects: its 16-bit units, or, if it holds bytes that are
/// not UTF-8, what the code page of the process makes of its bytes.
class native_text {
public:
    /// `text` has to outlive the object.
    explicit native_text(const ustring & text);
    native_text(const native_text &) = delete;
    native_text & operator=(const native_text &) = delete;
    ~native_text();

    /// Null, with `errno` set, for a text with a zero in it and if allocation fails.
    const wchar_t * wide = nullptr;

private:
    wchar_t * own_ = nullptr;
};

#else

/// The bytes of a path or command; null, with `errno` set, for a text with a zero in it and if allocation
/// fails. Valid as long as `text` is unchanged.
const char * native_text(const ustring & text);

#endif

} // namespace orvet::platform

#endif
