#ifndef ORVET_FOUNDATION_CODES_H
#define ORVET_FOUNDATION_CODES_H

/// The result codes of the library. A function built on others passes theirs on unchanged.
namespace orvet::code {

inline constexpr short success = 0;

inline constexpr short section_absent = -1; ///< `find_section`: not in the rest of the file
inline constexpr short rename_failed = 6;   ///< `copy_to`

inline constexpr short not_provided = 18;       ///< `get_fips`: a call without sections, a fifth agent section
inline constexpr short invalid_keyword = 100;   ///< a line of an input file that the record does not know
inline constexpr short invalid_op_system = 101; ///< an agent's operating system that is none
inline constexpr short invalid_section = 102;   ///< `get_fips`: a section that is not valid

inline constexpr short open_failed = 250;
inline constexpr short write_failed = 251;
inline constexpr short close_failed = 252;
inline constexpr short seek_failed = 253;
inline constexpr short read_failed = 254;
inline constexpr short not_open = 255;
inline constexpr short position_failed = 256;
inline constexpr short remove_failed = 257;
inline constexpr short no_keyval = 258;       ///< a line without " = "
inline constexpr short no_count = 259;        ///< a line that is no count line
inline constexpr short section_missing = 260; ///< a section that had to be there
inline constexpr short replace_failed = 261;  ///< the configuration file kept its old place

} // namespace orvet::code

#endif
