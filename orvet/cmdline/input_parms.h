#ifndef ORVET_CMDLINE_INPUT_PARMS_H
#define ORVET_CMDLINE_INPUT_PARMS_H

#include "orvet/cmdline/option_table.h"
#include "orvet/foundation/base/pathname.h"
#include "orvet/foundation/base/vector.h"

namespace orvet {

/// What an option is for, as a tool's usage text shows it.
struct option_description {
    const char * name = nullptr; ///< as in `ip_names`
    const char * text = nullptr; ///< one line
};

/// Everything that a tool accepts on its command line.
///
/// `get_ips` fills the record from the command line and `validate` checks it against the tool's lists; then
/// `setloglevel` applies the levels. Errors are printed to standard output and reported by the result;
/// neither ends the process. An accessor bears its field's name. Its setter stores a copy of the value,
/// replaces an earlier one, and marks the option as specified, also when the value is rejected. A null value
/// is the empty text. If allocation fails, a setter changes nothing.
class ORVET_API input_parms {
public:
    /// Levels from the environment, everything else empty or 0, no option marked. The shared values stay.
    input_parms();

    /// Reads the command line from `argv[1]` on, and lower-cases the option words in place. A word counts as
    /// the option whose name it begins with. Stops at the first error; what was set until then stays set.
    /// Returns 0; 1 for a word that is not an option; 15 for an option without its value, also if allocation
    /// fails; 16 and 17 for a rejected value of "-osys" and "-tobj".
    short get_ips(int argc, char ** argv);

    /// Checks the marks against two lists of option names, each closed by a null entry; neither is null.
    /// Returns 0 and prints the first mandatory option that is missing, or 1. An option in neither list only
    /// draws a warning; names that are not options are ignored.
    int validate(const char * const * mandatory, const char * const * allowed) const;

    /// The names of all mandatory options that were not specified, as `ustring`s in the order of the list;
    /// names that are not options are ignored. Prints nothing. Incomplete if allocation fails.
    vector missing(const char * const * mandatory) const;

    /// How to call a tool of that profile: its mandatory options on the first line, then a line for each
    /// allowed one, with the kind of value or the accepted words. Ends in a line feed; empty if allocation
    /// fails.
    static ustring usage(const option_profile & profile, const char * tool_name);
    /// The same with a line for the mandatory options too and with what each option is for. The descriptions
    /// are in any order and are closed by an empty one; an option may have none.
    static ustring usage(const option_profile & profile, const char * tool_name,
                         const option_description * descriptions);

    /// Marks the option of that name; any other name marks nothing.
    void set_ip(const char * name);
    /// 1 when the option of that name was specified, else 0.
    int ip(const char * name) const;

    // Levels: any whole number; text that is not a number counts as 0.
    int ip_log_level() const { return ip_log_level_; }     ///< "-log"
    int ip_trace_level() const { return ip_trace_level_; } ///< "-trc"
    ///@{
    /// Stores the number at the front of the text; takes effect with the next `setloglevel`.
    void set_ip_log_level(const char * value);
    void set_ip_trace_level(const char * value);
    ///@}

    // Shared values: one for the process, seen by every object, reset by none.
    static ustring & ip_op_sys();     ///< "-osys", "UVX" at first
    static pathname & ip_file_name(); ///< "-ini", the name of the listing commands' final file
    static ustring & ip_base_cmd();   ///< "-rcmd", put before each Brodan command
    static int & ip_h_global();       ///< "-gh", 1 from the start
    static int & ip_t_global();       ///< "-gt", 0 at first
    /// Accepts "UVX" and "WINDOWS_NT"; any other word: MSGI0006, and the value is empty.
    void set_ip_op_sys(const char * value);
    ///@{
    /// Stores the text unchanged, for the whole process.
    void set_ip_file_name(const char * value);
    void set_ip_base_cmd(const char * value);
    ///@}
    ///@{
    /// Sets the flag to 1, for the whole process.
    void set_ip_h_global();
    void set_ip_t_global();
    ///@}

    // Words of a fixed set, case respected.
    const ustring & ip_obj_type() const { return ip_obj_type_; } ///< "-tobj"
    const ustring & ip_ret_val() const { return ip_ret_val_; }   ///< "-ret"
    const ustring & ip_type() const { return ip_type_; }         ///< "-type"
    /// Accepts "PROC", "PLAN" and "SOFTW"; any other word: MSGI0006, and the value is empty.
    void set_ip_obj_type(const char * value);
    /// Accepts "ok" and "err"; any other word: MSGI0010, and the value is "err".
    void set_ip_ret_val(const char * value);
    /// Accepts "GEN", "ZR7CID", "WINCID", "BRD2", "PROCEDURE", "PLAN" and "UVXINSTP"; any other word:
    /// MSGI0011, and the value is "err".
    void set_ip_type(const char * value);

    // Flags: 1 when given.
    int ip_uvxinstp() const { return ip_uvxinstp_; } ///< "-uvxp"
    int ip_force() const { return ip_force_; }       ///< "-force"
    ///@{
    /// Sets the flag to 1.
    void set_ip_uvxinstp();
    void set_ip_force();
    ///@}

    // Texts, stored unchanged.
    const ustring & ip_trg_name() const { return ip_trg_name_; }       ///< "-trg"
    const ustring & ip_cmd() const { return ip_cmd_; }                 ///< "-cmd"
    const ustring & ip_key() const { return ip_key_; }                 ///< "-key"
    const ustring & ip_usr_name() const { return ip_usr_name_; }       ///< "-usr"
    const ustring & ip_prf_name() const { return ip_prf_name_; }       ///< "-prf"
    const ustring & ip_grp_name() const { return ip_grp_name_; }       ///< "-gp"
    const ustring & ip_tool_name() const { return ip_tool_name_; }     ///< "-tool"
    const ustring & ip_srv_name() const { return ip_srv_name_; }       ///< "-srv"
    const ustring & ip_pro_name() const { return ip_pro_name_; }       ///< "-pro"
    const ustring & ip_gfn_name() const { return ip_gfn_name_; }       ///< "-gfn"
    const ustring & ip_resgf_name() const { return ip_resgf_name_; }   ///< "-resgf"
    const ustring & ip_tokens_file() const { return ip_tokens_file_; } ///< "-ftok", a file name
    ///@{
    /// Stores the text unchanged.
    void set_ip_trg_name(const char * value);
    void set_ip_cmd(const char * value);
    void set_ip_key(const char * value);
    void set_ip_usr_name(const char * value);
    void set_ip_prf_name(const char * value);
    void set_ip_grp_name(const char * value);
    void set_ip_tool_name(const char * value);
    void set_ip_srv_name(const char * value);
    void set_ip_pro_name(const char * value);
    void set_ip_gfn_name(const char * value);
    void set_ip_resgf_name(const char * value);
    void set_ip_tokens_file(const char * value);
    ///@}

    // Paths.
    const pathname & ip_top_root() const { return ip_top_root_; }           ///< "-top"
    const pathname & ip_obj_file_name() const { return ip_obj_file_name_; } ///< "-obj"
    const pathname & ip_input_file() const { return ip_input_file_; }       ///< "-file"
    const pathname & ip_input_dir() const { return ip_input_dir_; }         ///< "-dir"
    const pathname & ip_out_dir() const { return ip_out_dir_; }             ///< "-odir"
    const pathname & ip_vxa_images() const { return ip_vxa_images_; }       ///< "-vxai"
    ///@{
    /// Stores the path unchanged.
    void set_ip_top_root(const char * value);
    void set_ip_obj_file_name(const char * value);
    void set_ip_input_file(const char * value);
    void set_ip_input_dir(const char * value);
    void set_ip_out_dir(const char * value);
    void set_ip_vxa_images(const char * value);
    ///@}

private:
    struct option_row;

    // clang-format off
    // The options' own fields, in the order of the table.
#define ORVET_FIELD_own(type, name) type name##_{};
#define ORVET_FIELD_shared(type, name)
#define ORVET_VALUE_FIELD(option, name, scope, type) ORVET_FIELD_##scope(type, name)
#define ORVET_FLAG_FIELD(option, name, scope) ORVET_FIELD_##scope(int, name)
#define ORVET_WORD_FIELD(option, name, scope, ...) ORVET_FIELD_##scope(ustring, name)
    ORVET_OPTIONS(ORVET_VALUE_FIELD, ORVET_FLAG_FIELD, ORVET_WORD_FIELD)
#undef ORVET_FIELD_own
#undef ORVET_FIELD_shared
#undef ORVET_VALUE_FIELD
#undef ORVET_FLAG_FIELD
#undef ORVET_WORD_FIELD
    // clang-format on
    int ip_flags_[sizeof ip_names / sizeof *ip_names] = {};
};

} // namespace orvet

#endif
