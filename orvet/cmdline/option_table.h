#ifndef ORVET_CMDLINE_OPTION_TABLE_H
#define ORVET_CMDLINE_OPTION_TABLE_H

namespace orvet {

// clang-format off

/// The names of the 30 options, closed by a null entry. The position of a name is the index of its mark in an
/// `input_parms`, and the order in which `validate` walks the options.
inline constexpr const char * ip_names[31] = {
    "-log",  "-trc",  "-osys", "-ini", "-rcmd",  "-tobj", "-uvxp", "-trg",  "-top",  "-force",
    "-cmd",  "-key",  "-gh",   "-gt",  "-usr",   "-prf",  "-gp",   "-tool", "-obj",  "-file",
    "-srv",  "-dir",  "-pro",  "-gfn", "-resgf", "-ret",  "-type", "-ftok", "-odir", "-vxai",
    nullptr,
};

/// Two lists of option names, each closed by a null entry, as `input_parms::validate` takes them.
struct option_profile {
    const char * const * mandatory; ///< what the tool cannot run without
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

/// The 19 option profiles of the Ketrix tools, profile 1 first. Nothing in the library reads them; `validate`
/// works on whatever lists a tool passes.
inline constexpr option_profile ip_profiles[19] = {
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

} // namespace orvet

#endif
