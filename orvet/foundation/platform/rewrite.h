#ifndef ORVET_FOUNDATION_PLATFORM_REWRITE_H
#define ORVET_FOUNDATION_PLATFORM_REWRITE_H

#include <cstdint>
#include <cstdio>

#include "orvet/foundation/base/ustring.h"
#include "orvet/foundation/platform/seam.h"

// What it takes to replace a file by a new one among other processes and other users. A call that fails sets
// `errno`.
namespace orvet::platform {

/// An entry of a directory that this process holds against all others that hold it by these functions. The
/// system drops the hold when the process ends. A file system without locks holds nothing.
using held_entry = std::intptr_t;
inline constexpr held_entry not_held = -1;

namespace native {

/// Makes and holds a new file, with access for its owner alone, and never through a link. `not_held` with
/// EEXIST if the name is taken, also by a process that was quicker; with EWOULDBLOCK if another process holds
/// the new file already.
held_entry create_held(const ustring & path);
/// Holds the file or link `path`, which is never followed. `not_held` with ENOENT if it is missing, with
/// EWOULDBLOCK if another process holds it or that can't be known, and with another number for what is
/// neither a file nor a link.
held_entry hold(const ustring & path);
/// Whether `path` still is what `held` holds.
bool is_held_at(held_entry held, const ustring & path);
/// Removes what is held; nothing if `path` is not that any more. 0 for success.
int remove_held(held_entry held, const ustring & path);
/// Renames the held file `from` to a name that must be free on a system that does not replace. 0 for success.
int rename_held(held_entry held, const ustring & from, const ustring & to);
/// Ends the hold; the entry stays.
void release_held(held_entry held);
/// A stream that writes to the held new file. Closing it does not end the hold.
std::FILE * open_held(held_entry held);

/// Opens a file for reading, as bytes, as `open_stream` does, and lets other processes rename it meanwhile.
std::FILE * open_shared(const ustring & path);

///@{
/// Give the file of `stream` the owner and group of the file `from` as far as the system allows it, and its
/// permissions with its access list. A group that could not be given gets no access. 0 for success, also if
/// there is nothing to do: no file `from`, or a system whose directories decide.
int copy_owner(const ustring & from, std::FILE * stream);
int copy_permissions(const ustring & from, std::FILE * stream);
///@}
/// Writes the directory of `path` to the disk, on a system that can. 0 for success.
int sync_directory(const ustring & path);

} // namespace native

ORVET_PLATFORM_CALL(create_held);
ORVET_PLATFORM_CALL(hold);
ORVET_PLATFORM_CALL(is_held_at);
ORVET_PLATFORM_CALL(remove_held);
ORVET_PLATFORM_CALL(rename_held);
ORVET_PLATFORM_CALL(release_held);
ORVET_PLATFORM_CALL(open_held);
ORVET_PLATFORM_CALL(open_shared);
ORVET_PLATFORM_CALL(copy_owner);
ORVET_PLATFORM_CALL(copy_permissions);
ORVET_PLATFORM_CALL(sync_directory);

} // namespace orvet::platform

#endif
