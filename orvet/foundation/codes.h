#ifndef ORVET_FOUNDATION_CODES_H
#define ORVET_FOUNDATION_CODES_H

/// The result codes of the library, one row each. A function built on others returns their codes unchanged. A
/// number can have a name for each operation that returns it with a meaning of its own.
namespace orvet::code {

// clang-format off

inline constexpr short section_absent    = -1;  ///< `find_section`: not in the rest of the file
inline constexpr short success           = 0;   ///< everything was done
inline constexpr short no_server         = 1;   ///< `scan_cfg::set_server`: no server of that number
inline constexpr short unknown_option    = 1;   ///< `get_ips`: a word is not an option
inline constexpr short rename_failed     = 6;   ///< `copy_to`: the file can't be renamed
inline constexpr short value_missing     = 15;  ///< `get_ips`: an option without its value
inline constexpr short op_sys_rejected   = 16;  ///< `get_ips`: the value of "-osys"
inline constexpr short obj_type_rejected = 17;  ///< `get_ips`: the value of "-tobj"
inline constexpr short not_provided      = 18;  ///< `get_fips`: a call without sections, or a fifth agent section
inline constexpr short invalid_keyword   = 100; ///< a line of an input file without a keyword of the record
inline constexpr short invalid_op_system = 101; ///< an agent's operating system is not one of the known names
inline constexpr short invalid_section   = 102; ///< `get_fips`: a section is not valid
inline constexpr short open_failed       = 250; ///< the file can't be opened
inline constexpr short write_failed      = 251; ///< fewer bytes were written than asked
inline constexpr short close_failed      = 252; ///< the stream can't be closed
inline constexpr short seek_failed       = 253; ///< the position can't be set
inline constexpr short read_failed       = 254; ///< fewer items were read than asked
inline constexpr short not_open          = 255; ///< the file is not open
inline constexpr short position_failed   = 256; ///< the position can't be read
inline constexpr short remove_failed     = 257; ///< the file can't be removed
inline constexpr short no_keyval         = 258; ///< a line without " = "
inline constexpr short no_count          = 259; ///< a line that is not a count line
inline constexpr short section_missing   = 260; ///< a section that has to be there is missing
inline constexpr short replace_failed    = 261; ///< the configuration file could not be replaced

// clang-format on

} // namespace orvet::code

#endif
