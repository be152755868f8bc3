#ifndef ORVET_FOUNDATION_BASE_USTRING_FORMAT_H
#define ORVET_FOUNDATION_BASE_USTRING_FORMAT_H

/// `std::format` for texts and paths, where the standard library has it, with the format of a string:
/// `std::format("{:>8}", domain.domain_name)`. <orvet/orvet.h> does not bring this header.
#include <version>

#include "orvet/foundation/base/pathname.h"
#include "orvet/foundation/base/ustring.h"

#ifdef __cpp_lib_format

#include <format>

template <>
struct std::formatter<orvet::ustring> : std::formatter<std::string_view> {
    template <class Context>
    auto format(const orvet::ustring & text, Context & context) const
    {
        return std::formatter<std::string_view>::format(text.mbcs_view(), context);
    }
};

template <>
struct std::formatter<orvet::pathname> : std::formatter<orvet::ustring> {
};

#endif

#endif
