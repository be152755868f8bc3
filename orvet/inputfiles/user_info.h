#ifndef ORVET_INPUTFILES_USER_INFO_H
#define ORVET_INPUTFILES_USER_INFO_H

#include "orvet/foundation/base/ustring.h"
#include "orvet/foundation/ktobject.h"
#include "orvet/inputfiles/keywords.h"

namespace orvet {

/// A user and the name of the authorization profile that is to hold for it: a section of a user file. The
/// profile is a name only; nothing looks it up.
///
/// An accessor bears its field's name; its setter stores a copy and marks the keyword as supplied, also for
/// an empty value. Where memory is short, a setter leaves both as they were.
class ORVET_API user_info : public ktobject {
public:
    /// As `clear` leaves a record.
    user_info() { clear(); }

    /// Empties both fields and takes all marks back.
    void clear();

    /// Takes one line of a file, "KEYWORD=value", the keyword in any case, without blanks around it. A user
    /// name that itself begins with the other keyword fills that one's field as well. 100 for a line without
    /// a keyword of this record and when memory is short, with the record as it was.
    short set(const ustring & line);

    /// 1 when both keywords were supplied, else 0; marks of other records' keywords are only warned of.
    int validate() const;

    /// A copy that the caller owns; null when memory is short.
    codable * clone() override;

    /// Marks a keyword, with its "=", as supplied; a text outside `fip_names` marks nothing.
    void set_fip(const char * keyword) { fip_flags_.set(keyword); }
    /// 1 when the keyword was supplied, else 0.
    int fip(const char * keyword) const { return fip_flags_[keyword]; }

    const ustring & usUserName() const { return text("USER="); }
    const ustring & usProfileName() const { return text("AUTHORIZATION PROFILE="); }

    void set_usUserName(const ustring & value) { set_text("USER=", value); }
    void set_usProfileName(const ustring & value) { set_text("AUTHORIZATION PROFILE=", value); }

private:
    static constexpr int first_row = fip_row("USER=");

    const ustring & text(fip_row row) const { return texts_[row - first_row]; }
    void set_text(fip_row row, const ustring & value);

    ustring texts_[2]; // one for each of the record's rows of `fip_names`
    fip_marks fip_flags_;
};

} // namespace orvet

#endif
