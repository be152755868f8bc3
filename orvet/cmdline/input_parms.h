#ifndef ORVET_CMDLINE_INPUT_PARMS_H
#define ORVET_CMDLINE_INPUT_PARMS_H

#include "orvet/cmdline/option_table.h"
#include "orvet/foundation/base/pathname.h"
#include "orvet/foundation/base/vector.h"

namespace orvet {

/// All that a tool can be told on its command line.
///
/// `get_ips` fills the record from the command line and `validate` holds it against the tool's lists; then
/// `setloglevel` applies the levels. What goes wrong is told on standard output and by the result: the tool
/// decides. An accessor bears its field's name, and its setter stores a copy of the value, replacing an
/// earlier one, and marks the option as specified, also when the value is rejected. A null value is the empty
/// text.
class ORVET_API input_parms {
public:
    /// Levels from the environment, all else empty or 0, no option marked. The five class-level values stay.
    input_parms();

    /// Reads the command line from `argv[1]` on, and lower-cases the option words in place. A word counts as
    /// the option whose name it begins with. Stops at the first error; what was set until then stays set.
    /// Gives 0, 1 for a word that is no option, 15 for an option without its value or without memory
    /// for it, 16 and 17 for a rejected value of "-osys" and "-tobj".
    short get_ips(int argc, char ** argv);

    /// Holds the marks against two lists of option names, each closed by a null entry; neither is null. Gives
    /// 0 and names the first mandatory option that is missing, or 1; options outside both lists are only
    /// warned of, and names outside the option table are passed over.
    int validate(const char * const * mandatory, const char * const * allowed) const;

    /// The names of all mandatory options that were not specified, as `ustring`s in the order of the list;
    /// names outside the option table are passed over. Prints nothing. Some are left out when memory is
    /// short.
    vector missing(const char * const * mandatory) const;

    /// How to call a tool of that profile: the mandatory options with the kind of their value or the words
    /// that they accept, and the allowed ones, one a line. Ends in a line feed; empty when memory is short.
    static ustring usage(const option_profile & profile, const char * tool_name);

    /// Marks the option of that name; a name outside the table marks nothing.
    void set_ip(const char * name);
    /// 1 when the option of that name was specified, else 0.
    int ip(const char * name) const;

    // Levels: any whole number; text that is no number counts as 0.
    int ip_log_level() const { return ip_log_level_; }     ///< "-log"
    int ip_trace_level() const { return ip_trace_level_; } ///< "-trc"
    ///@{
    /// Stores the number at the front of the text; takes effect with the next `setloglevel`.
    void set_ip_log_level(const char * value);
    void set_ip_trace_level(const char * value);
    ///@}

    // Class-level values: one for the process, seen by every object, never reset by one.
    static ustring & ip_op_sys();     ///< "-osys", "UVX" at first
    static pathname & ip_file_name(); ///< "-ini", the name of the listing commands' final file
    static ustring & ip_base_cmd();   ///< "-rcmd", what stands ahead of each Brodan command
    static int & ip_h_global();       ///< "-gh", 1 from the start
    static int & ip_t_global();       ///< "-gt", 0 at first
    /// Accepts "UVX" and "WINDOWS_NT"; any other word: MSGI0006, and the value is empty.
    void set_ip_op_sys(const char * value);
    ///@{
    /// Stores the text as it is, for the whole process.
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

    // Texts, stored as they are.
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
    /// Stores the text as it is.
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
    /// Stores the path as it is.
    void set_ip_top_root(const char * value);
    void set_ip_obj_file_name(const char * value);
    void set_ip_input_file(const char * value);
    void set_ip_input_dir(const char * value);
    void set_ip_out_dir(const char * value);
    void set_ip_vxa_images(const char * value);
    ///@}

private:
    int ip_log_level_;
    int ip_trace_level_;
    ustring ip_obj_type_;
    int ip_uvxinstp_ = 0;
    ustring ip_trg_name_;
    pathname ip_top_root_;
    int ip_force_ = 0;
    ustring ip_cmd_;
    ustring ip_key_;
    ustring ip_usr_name_;
    ustring ip_prf_name_;
    ustring ip_grp_name_;
    ustring ip_tool_name_;
    pathname ip_obj_file_name_;
    pathname ip_input_file_;
    ustring ip_srv_name_;
    pathname ip_input_dir_;
    ustring ip_pro_name_;
    ustring ip_gfn_name_;
    ustring ip_resgf_name_;
    ustring ip_ret_val_;
    ustring ip_type_;
    ustring ip_tokens_file_;
    pathname ip_out_dir_;
    pathname ip_vxa_images_;
    int ip_flags_[31] = {};
};

} // namespace orvet

#endif
