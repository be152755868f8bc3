#ifndef ORVET_LEGACYCFG_TEMPORARY_FILE_INTERNAL_H
#define ORVET_LEGACYCFG_TEMPORARY_FILE_INTERNAL_H

#include "orvet/foundation/platform/rewrite.h"

namespace orvet {

/// "brod.tmp", the new text of a rewrite, and by that the lock of the directory: while a process holds it, no
/// other one rewrites or recovers. The hold outlives the closed stream and the rename, and ends with the
/// object or the process.
class temporary_file {
public:
    /// Holds nothing yet. `path` has to outlive the object.
    explicit temporary_file(const ustring & path) : path_(path) {}
    temporary_file(const temporary_file &) = delete;
    temporary_file & operator=(const temporary_file &) = delete;
    ~temporary_file();

    /// Makes the file, empty, with access for its owner alone. A leftover of a dead process is removed, and a
    /// link to a file, or to nothing. 250 and 251 are those of `set_server`, with nothing touched.
    short make();
    /// Holds a leftover, or makes the file for as long as the object lives. False if another process is at
    /// work; true without a hold if the name is neither a file nor free.
    bool lock();

    /// The stream to fill the made file; null, with the file removed, if there is none.
    std::FILE * open();
    /// Whether the name still leads to the made file.
    bool is_in_place() const { return platform::is_held_at(held_, path_); }
    /// Renames the made file. 0 for success.
    int rename_to(const ustring & path) { return platform::rename_held(held_, path_, path); }

private:
    short remove_leftover();
    void release();

    const ustring & path_;
    platform::held_entry held_ = platform::not_held;
    bool for_lock_only_ = false;
};

} // namespace orvet

#endif
