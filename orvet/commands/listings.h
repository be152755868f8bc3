#ifndef ORVET_COMMANDS_LISTINGS_H
#define ORVET_COMMANDS_LISTINGS_H

#include "orvet/commands/brod_base.h"

namespace orvet {

/// "brod ls " on an object, by its global name, to find its local name.
///
///     brod_base_ls object("APPS.EDITOR.2.1");
///     if (object.exec_brod_cmd(1, 1) == 0)
///         object.set_local_name();
///
/// The temporary file is "cattmp.out" for every object of the class, the final file is that of "-ini", and
/// both are in the `migr` directory. Without "-ini" the final path is empty.
class ORVET_API brod_base_ls : public brod_base {
public:
    /// Sets the command, after the base command. The name is not quoted.
    explicit brod_base_ls(const ustring & global_name);
    ~brod_base_ls() override;

    /// Reads the listing that the command wrote to `out_file`, and stores the local name in it, the last one
    /// if there are several, with its tokens resolved. The name is unchanged if the file can't be opened or
    /// has no such line, and empty if the line has no value. The file stays open; another call opens it anew.
    void set_local_name();

    /// The local name; empty until `set_local_name` finds one.
    pathname & get_local_name() { return local_name_; }
    /// The name passed to the constructor.
    ustring & get_global_name() { return global_name_; }

private:
    pathname local_name_;
    ustring global_name_;
};

/// "brod lscm " on an object, by its global name, and a target. The temporary file is "hsttmp.out"; the rest
/// is as in `brod_base_ls`.
class ORVET_API brod_base_lscm : public brod_base {
public:
    /// Sets the command, after the base command. The names are not quoted.
    brod_base_lscm(const ustring & target_name, const ustring & gname);
    ~brod_base_lscm() override;
};

} // namespace orvet

#endif
