#ifndef ORVET_COMMANDS_LENT_PATH_INTERNAL_H
#define ORVET_COMMANDS_LENT_PATH_INTERNAL_H

#include "orvet/foundation/base/pathname.h"

namespace orvet {

/// A path of `sset_out_file` for the constructor of a `brod_base`, which takes over all but the empty ones:
/// those go with this object.
class lent_path {
public:
    explicit lent_path(const char * name);
    lent_path(const lent_path &) = delete;
    lent_path & operator=(const lent_path &) = delete;
    ~lent_path();

    operator pathname &() { return path_; }

private:
    pathname & path_;
    const bool stays_;
};

} // namespace orvet

#endif
