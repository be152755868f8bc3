#ifndef ORVET_INPUTFILES_FILE_INPUT_PARMS_H
#define ORVET_INPUTFILES_FILE_INPUT_PARMS_H

#include "orvet/foundation/base/pathname.h"
#include "orvet/foundation/base/vector.h"
#include "orvet/inputfiles/VXA_inst_info.h"

namespace orvet {

class call_trace;
class kt_file;

/// Reads an input file into validated records.
///
/// An input file holds a "KEYWORD=value" on each line; lines that are empty or begin with "#" or "[" are
/// skipped, blanks around a line are dropped, and a keyword may stand in any case. A separator line, such as
/// "USER=name", opens a section, which ends at the next one or at the end of the file and makes one record.
/// A call of `get_fips` reads a file; only its 0 means that all of the file was read and found valid. The
/// object owns all records; none is taken back between two calls.
///
///     file_input_parms input;
///     if (input.get_fips(path, 1, "USER=", 3) != 0)
///         std::printf("line %d: %s\n", input.error_line(), input.error_text().mbcs_str());
///     for (unsigned i = 0; i < input.arSections().size(); ++i)
///         greet(static_cast<user_info &>(*input.arSections()[i]).usUserName());
class ORVET_API file_input_parms {
public:
    /// Reads a file of the kind `file_type`: 1 for agents, 2 for authorization profiles, 3 for users.
    /// `sections_separator` is what separator lines begin with, up to its "=" in upper case; it has to begin
    /// with a keyword of the record, since the line is the section's first. `sections` is not 0. Stops at the
    /// first error: a code of `kt_file::open`; 100 and 101, a line that the record refuses; 102, a section
    /// that does not pass the record's `validate`, an unknown `file_type`, a read error or no memory; 18 for
    /// 0 `sections` and for a fifth section of agents. What was read before an error stays.
    short get_fips(const pathname & file, int sections, const char * sections_separator, int file_type);

    /// The number of agent records and one, as `get_fips` has counted them: 0 before a file was opened, 1 for
    /// a file without sections, 6 after a fifth section.
    int index() const { return index_; }
    /// Agent record `i`, from 0 to 4, which is not tested: those of a file with sections are 1 to `index()`
    /// - 1; 0 takes the lines in front of the first section, and is validated only in a file without any.
    VXA_inst_info & input_info(int i) { return input_info_[i]; }
    /// The `auth_profile_info` or `user_info` records, in file order.
    vector & arSections() { return sections_; }

    // Where the last `get_fips` failed.

    /// The number, from 1, of the line at which reading stopped: the one that was refused, or the separator
    /// line behind a section that is not valid. 0 at the end of the file, when no line was read, and after a
    /// success.
    int error_line() const { return line_number_; }
    /// That line as it was read; empty when there is none.
    const ustring & error_text() const { return line_; }
    /// The number, from 1, of the section that was in hand: the one that is not valid, or that of the refused
    /// line. 0 in front of the first separator line and after a success.
    int error_section() const { return section_; }

private:
    short read_file(const call_trace & trace, kt_file & input, const ustring & separator, int file_type);
    short read_sections(const call_trace & trace, kt_file & input, const ustring & separator,
                        class section_builder & builder);
    void forget_place();

    VXA_inst_info input_info_[5];
    int index_ = 0;
    vector sections_;

    // The place of the reading; what a failure leaves is where it happened.
    int line_number_ = 0;
    int section_ = 0;
    ustring line_;
};

} // namespace orvet

#endif
