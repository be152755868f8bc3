#ifndef ORVET_CMDLINE_OPTION_TABLE_H
#define ORVET_CMDLINE_OPTION_TABLE_H

#include "orvet/foundation/base/name_list.h"

namespace orvet {

// clang-format off

/// The options, one row each. `ip_names`, the fields and setters of `input_parms`, `get_ips`, `usage` and all sizes
/// follow from the rows, which are in the order in which `validate` reports options. Every row has the option's name
/// and its accessor; the value is a field of each object (own) or one value of the process (shared).
///
///     VALUE(name, accessor, own|shared, type)   any value: an int, a ustring or a pathname
///     FLAG(name, accessor, own|shared)          no value; the flag becomes 1
///     WORD(name, accessor, own|shared, words, message, otherwise, code)
///                                               one of the words; any other value prints the message and leaves
///                                               `otherwise`, and `get_ips` returns the code unless it is 0
#define ORVET_OPTIONS(VALUE, FLAG, WORD)                     \
    VALUE("-log",   ip_log_level,     own,    int)           \
    VALUE("-trc",   ip_trace_level,   own,    int)           \
    WORD ("-osys",  ip_op_sys,        shared, "UVX|WINDOWS_NT", MSGI0006_osys, "", code::op_sys_rejected) \
    VALUE("-ini",   ip_file_name,     shared, pathname)      \
    VALUE("-rcmd",  ip_base_cmd,      shared, ustring)       \
    WORD ("-tobj",  ip_obj_type,      own,    "PROC|PLAN|SOFTW", MSGI0006_tobj, "", code::obj_type_rejected) \
    FLAG ("-uvxp",  ip_uvxinstp,      own)                   \
    VALUE("-trg",   ip_trg_name,      own,    ustring)       \
    VALUE("-top",   ip_top_root,      own,    pathname)      \
    FLAG ("-force", ip_force,         own)                   \
    VALUE("-cmd",   ip_cmd,           own,    ustring)       \
    VALUE("-key",   ip_key,           own,    ustring)       \
    FLAG ("-gh",    ip_h_global,      shared)                \
    FLAG ("-gt",    ip_t_global,      shared)                \
    VALUE("-usr",   ip_usr_name,      own,    ustring)       \
    VALUE("-prf",   ip_prf_name,      own,    ustring)       \
    VALUE("-gp",    ip_grp_name,      own,    ustring)       \
    VALUE("-tool",  ip_tool_name,     own,    ustring)       \
    VALUE("-obj",   ip_obj_file_name, own,    pathname)      \
    VALUE("-file",  ip_input_file,    own,    pathname)      \
    VALUE("-srv",   ip_srv_name,      own,    ustring)       \
    VALUE("-dir",   ip_input_dir,     own,    pathname)      \
    VALUE("-pro",   ip_pro_name,      own,    ustring)       \
    VALUE("-gfn",   ip_gfn_name,      own,    ustring)       \
    VALUE("-resgf", ip_resgf_name,    own,    ustring)       \
    WORD ("-ret",   ip_ret_val,       own,    "ok|err", MSGI0010, "err", code::success) \
    WORD ("-type",  ip_type,          own,    "GEN|ZR7CID|WINCID|BRD2|PROCEDURE|PLAN|UVXINSTP", MSGI0011, "err", code::success) \
    VALUE("-ftok",  ip_tokens_file,   own,    ustring)       \
    VALUE("-odir",  ip_out_dir,       own,    pathname)      \
    VALUE("-vxai",  ip_vxa_images,    own,    pathname)      \
    /* every row ends in a backslash */

#define ORVET_OPTION_NAME(name, ...) name,
/// The names of all options, closed by a null entry. The position of a name is the index of its mark.
inline constexpr const char * ip_names[] = {
    ORVET_OPTIONS(ORVET_OPTION_NAME, ORVET_OPTION_NAME, ORVET_OPTION_NAME) nullptr};
#undef ORVET_OPTION_NAME

/// Two lists of option names, each closed by a null entry, as `input_parms::validate` accepts them.
struct option_profile {
    const char * const * mandatory; ///< what the tool can't run without
    const char * const * allowed;   ///< what it accepts besides
};

namespace profile_lists {

inline constexpr const char * ini_tool[]          = {"-ini", "-tool", nullptr};
inline constexpr const char * ini_top_tool[]      = {"-ini", "-top", "-tool", nullptr};
inline constexpr const char * ini_tool_obj[]      = {"-ini", "-tool", "-obj", nullptr};
inline constexpr const char * file_dir_gfn[]      = {"-file", "-dir", "-gfn", nullptr};
inline constexpr const char * tool_dir_file_top[] = {"-tool", "-dir", "-file", "-top", nullptr};
inline constexpr const char * tool_dir_srv_top[]  = {"-tool", "-dir", "-srv", "-top", nullptr};
inline constexpr const char * gfn_to_type[]       = {"-gfn", "-dir", "-ftok", "-odir", "-type", nullptr};
inline constexpr const char * cmd_ini[]           = {"-cmd", "-ini", nullptr};

inline constexpr const char * levels[]      = {"-log", "-trc", nullptr};
inline constexpr const char * with_cmd[]    = {"-log", "-trc", "-osys", "-rcmd", nullptr};
inline constexpr const char * allowed_1[]   = {"-log", "-trc", "-osys", "-rcmd", "-tobj", "-uvxp", "-obj", nullptr};
inline constexpr const char * allowed_2[]   = {"-log", "-trc", "-osys", "-rcmd", "-trg", "-gh", "-obj", nullptr};
inline constexpr const char * allowed_5[]   = {"-log", "-trc", "-gt", "-osys", "-rcmd", "-obj", nullptr};
inline constexpr const char * allowed_6[]   = {"-log", "-trc", "-force", "-gt", nullptr};
inline constexpr const char * allowed_7[]   = {"-log", "-trc", "-vxai", "-osys", "-rcmd", nullptr};
inline constexpr const char * allowed_8[]   = {"-log", "-trc", "-osys", "-rcmd", "-usr", "-obj", nullptr};
inline constexpr const char * allowed_9[]   = {"-log", "-trc", "-osys", "-rcmd", "-prf", "-obj", nullptr};
inline constexpr const char * allowed_10[]  = {"-log", "-trc", "-osys", "-rcmd", "-gp", "-obj", nullptr};
inline constexpr const char * allowed_17[]  = {"-log", "-trc", "-file", "-ret", "-gfn", "-type", "-osys", "-rcmd", nullptr};
inline constexpr const char * allowed_18[]  = {"-log", "-trc", "-file", nullptr};
inline constexpr const char * allowed_19[]  = {"-obj", "-tool", "-file", "-dir", "-log", "-trc", "-osys", "-rcmd", "-srv", nullptr};

} // namespace profile_lists

/// The option profiles of the Ketrix tools, profile 1 first. Nothing in the library reads them; `validate` works with
/// any lists.
inline constexpr option_profile ip_profiles[] = {
    {profile_lists::ini_tool, profile_lists::allowed_1},
    {profile_lists::ini_tool, profile_lists::allowed_2},
    {profile_lists::ini_top_tool, profile_lists::levels},
    {profile_lists::ini_top_tool, profile_lists::levels},
    {profile_lists::ini_tool, profile_lists::allowed_5},
    {profile_lists::ini_top_tool, profile_lists::allowed_6},
    {profile_lists::file_dir_gfn, profile_lists::allowed_7},
    {profile_lists::ini_tool, profile_lists::allowed_8},
    {profile_lists::ini_tool, profile_lists::allowed_9},
    {profile_lists::ini_tool, profile_lists::allowed_10},
    {profile_lists::ini_tool_obj, profile_lists::with_cmd},
    {profile_lists::ini_top_tool, profile_lists::levels},
    {profile_lists::ini_top_tool, profile_lists::levels},
    {profile_lists::ini_top_tool, profile_lists::levels},
    {profile_lists::ini_top_tool, profile_lists::levels},
    {profile_lists::tool_dir_file_top, profile_lists::with_cmd},
    {profile_lists::tool_dir_srv_top, profile_lists::allowed_17},
    {profile_lists::gfn_to_type, profile_lists::allowed_18},
    {profile_lists::cmd_ini, profile_lists::allowed_19},
};

// clang-format on

namespace detail {

/// True when no name of the list begins another, so that a word fits one name at most.
consteval bool no_name_begins_another(const char * const * list)
{
    for (const char * const * a = list; *a; ++a)
        for (const char * const * b = list; *b; ++b)
            if (a != b && begins_with(*b, *a))
                return false;
    return true;
}

/// True when the profiles name options alone.
consteval bool profiles_hold_options()
{
    const auto all_are_options = [](const char * const * list) {
        while (*list && holds(ip_names, *list))
            ++list;
        return !*list;
    };
    for (const option_profile & profile : ip_profiles)
        if (!all_are_options(profile.mandatory) || !all_are_options(profile.allowed))
            return false;
    return true;
}

static_assert(no_name_begins_another(ip_names), "an option's name is the beginning of another's");
static_assert(profiles_hold_options(), "a profile names an option that is not in the table");

} // namespace detail

} // namespace orvet

#endif
