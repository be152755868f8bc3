#ifndef ORVET_FOUNDATION_PLATFORM_ENTRIES_H
#define ORVET_FOUNDATION_PLATFORM_ENTRIES_H

#include "orvet/foundation/base/ustring.h"
#include "orvet/foundation/platform/seam.h"

// What the names in a directory are, found without opening what they lead to.
namespace orvet::platform {

/// What a name is. A link counts by what it leads to; `other` is also what can't be examined.
enum class entry_kind { none, file, link_to_file, device, other };

/// How two names relate: one directory entry, however they spell it, or different entries. Hard links are
/// different entries. `same_but_case` is one entry whose last elements differ in case alone.
enum class entry_relation { different, same, same_but_case };

namespace native {

/// `none` for a missing name, `link_to_file` also for a link to nothing, `device` also for a pipe, `other`
/// for directories and sockets.
entry_kind kind_of(const ustring & path);
/// `different` if one of them is missing.
entry_relation compare_entries(const ustring & a, const ustring & b);
/// Whether `path` is a symbolic link that leads to the entry `target`, directly or over other links.
bool is_link_to(const ustring & path, const ustring & target);
/// Renames an entry to a name that differs from its own in case alone. 0 for success, else `errno` is set.
int change_case(const ustring & path, const ustring & to);

} // namespace native

ORVET_PLATFORM_CALL(kind_of);
ORVET_PLATFORM_CALL(compare_entries);
ORVET_PLATFORM_CALL(is_link_to);
ORVET_PLATFORM_CALL(change_case);

} // namespace orvet::platform

#endif
