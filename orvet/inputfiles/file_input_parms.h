#ifndef ORVET_INPUTFILES_FILE_INPUT_PARMS_H
#define ORVET_INPUTFILES_FILE_INPUT_PARMS_H

#include <concepts>

#include "orvet/foundation/base/pathname.h"
#include "orvet/foundation/base/vector.h"
#include "orvet/inputfiles/VXA_inst_info.h"

namespace orvet {

namespace detail {

/// Where the reading of an input file is and, after a failure, where and why it failed.
struct reading_place {
    int line = 0;
    int section = 0;
    ustring text;
    const char * keyword = "";
    ustring value;
};

} // namespace detail

/// Reads an input file into validated records.
///
/// An input file has a "KEYWORD=value" on each line; lines that are empty or begin with "#" or "[" are
/// skipped, blanks around a line are removed, and a keyword may be in any case. A separator line, such as
/// "USER=name", opens a section, which ends at the next one or at the end of the file and makes one record.
/// Only a result of 0 means that the whole file was read and is valid. The object owns all records; none is
/// removed between two calls.
///
///     file_input_parms input;
///     if (input.get_fips(path, 1, "USER=", input.user_file) != 0)
///         std::printf("line %d: %s %s\n", input.error_line(), input.error_text().mbcs_str(),
///         input.error_keyword());
///     for (const user_info & user : items<user_info>(input.arSections()))
///         greet(user.usUserName());
class ORVET_API file_input_parms {
public:
    /// The kinds of input files, for `file_type`.
    enum file_kind { agent_file = 1, profile_file = 2, user_file = 3 };

    /// Reads a file of the kind `file_type`. Separator lines begin with `sections_separator`, whose part up
    /// to the "=" is in upper case and which begins with a keyword of the record, since the line is the
    /// section's first. `sections` is not 0. Stops at the first error; records read before it stay. Returns
    /// 0, a code of `kt_file::open`, or
    /// - 18 for 0 `sections` and for a fifth section of agents,
    /// - 100 and 101 for a line that the record refuses,
    /// - 102 for a section that is not valid, an unknown `file_type`, a read error, and if allocation fails.
    short get_fips(const pathname & file, int sections, const char * sections_separator, int file_type);
    /// The same for a file name that is a `ustring`.
    template <std::derived_from<ustring> Text>
    short get_fips(const Text & file, int sections, const char * sections_separator, int file_type)
    {
        pathname path;
        path = file;
        return get_fips(path, sections, sections_separator, file_type);
    }

    /// One more than the number of agent sections: 0 before a file was opened, 1 for a file without sections,
    /// 6 after a fifth section.
    int index() const { return index_; }
    ///@{
    /// Agent record `i`, from 0 to 4, which is not checked. The sections of a file are 1 to `index()` - 1.
    /// Record 0 has the lines before the first section, and is validated only in a file without any.
    VXA_inst_info & input_info(int i) { return input_info_[i]; }
    const VXA_inst_info & input_info(int i) const { return input_info_[i]; }
    ///@}
    ///@{
    /// The `auth_profile_info` or `user_info` records, in file order.
    vector & arSections() { return sections_; }
    const vector & arSections() const { return sections_; }
    ///@}

    // Where the last `get_fips` failed, and why. All are 0 or empty after a success.

    /// The number, from 1, of the refused line, of the first line of the section that is not valid, or of the
    /// line that could not be read. 0 when there is no such line: lines before the first section have no
    /// first line.
    int error_line() const { return place_.line; }
    /// That line as it was read; empty when there is none.
    const ustring & error_text() const { return place_.text; }
    /// The number, from 1, of the section that is not valid or has the refused line. 0 before the first
    /// section.
    int error_section() const { return place_.section; }
    /// The keyword, with its "=", that the section lacks or whose value was refused; empty for any other
    /// failure.
    const char * error_keyword() const { return place_.keyword; }
    /// The refused value: an operating system. Empty when the keyword is missing.
    const ustring & error_value() const { return place_.value; }

private:
    VXA_inst_info input_info_[5];
    int index_ = 0;
    vector sections_;
    detail::reading_place place_;
};

} // namespace orvet

#endif
