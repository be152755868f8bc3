#ifndef ORVET_FOUNDATION_CODES_H
#define ORVET_FOUNDATION_CODES_H

/// The result codes of the library. A function built on others passes theirs on unchanged.
namespace orvet::code {

inline constexpr short success = 0; ///< everything was done

inline constexpr short no_server = 1;       ///< `scan_cfg::set_server`: no server of that number
inline constexpr short section_absent = -1; ///< `find_section`: not in the rest of the file
inline constexpr short rename_failed = 6;   ///< `copy_to`

inline constexpr short not_provided = 18;     ///< `get_fips`: a call without sections, a fifth agent section
inline constexpr short invalid_keyword = 100; ///< a line of an input file that the record does not know
inline constexpr short invalid_op_system = 101; ///< an agent's operating system that is none
inline constexpr short invalid_section = 102;   ///< `get_fips`: a section that is not valid

inline constexpr short open_failed = 250;     ///< the file can't be opened
inline constexpr short write_failed = 251;    ///< fewer bytes written than asked
inline constexpr short close_failed = 252;    ///< the stream can't be closed
inline constexpr short seek_failed = 253;     ///< the position can't be set
inline constexpr short read_failed = 254;     ///< fewer items read than asked
inline constexpr short not_open = 255;        ///< the file is not open
inline constexpr short position_failed = 256; ///< the position can't be had
inline constexpr short remove_failed = 257;   ///< the file can't be removed
inline constexpr short no_keyval = 258;       ///< a line without " = "
inline constexpr short no_count = 259;        ///< a line that is no count line
inline constexpr short section_missing = 260; ///< a section that had to be there
inline constexpr short replace_failed = 261;  ///< the configuration file kept its old place

} // namespace orvet::code

#endif
