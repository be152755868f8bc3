#ifndef ORVET_COMMANDS_LISTINGS_H
#define ORVET_COMMANDS_LISTINGS_H

#include "orvet/commands/brod_base.h"

namespace orvet {

/// "brod ls " on an object, by its global name: the way to its local name.
///
///     brod_base_ls object("APPS.EDITOR.2.1");
///     if (object.exec_brod_cmd(1, 1) == 0)
///         object.set_local_name();
///
/// The temporary file is "cattmp.out" for every object of the class, the final file that of "-ini", and both
/// lie in the `migr` directory. Without "-ini" the final path is empty.
class ORVET_API brod_base_ls : public brod_base {
public:
    /// Sets the command, with the base command in front. The name goes into it as it is.
    explicit brod_base_ls(const ustring & global_name);
    ~brod_base_ls() override;

    /// Reads the listing that the command has left in `out_file` and takes the local name from it, tokens
    /// resolved; of several the last. The name stays as it was when the file can't be opened or holds none,
    /// and is empty where its line has no value. The file stays open; a further call opens it anew.
    void set_local_name();

    pathname & get_local_name() { return local_name_; }
    ustring & get_global_name() { return global_name_; }

private:
    pathname local_name_;
    ustring global_name_;
};

/// "brod lscm " on an object, by its global name, and a target. The temporary file is "hsttmp.out"; for the
/// rest as `brod_base_ls`.
class ORVET_API brod_base_lscm : public brod_base {
public:
    /// Sets the command, with the base command in front. Both names go into it as they are.
    brod_base_lscm(const ustring & target_name, const ustring & gname);
    ~brod_base_lscm() override;
};

} // namespace orvet

#endif
