#ifndef ORVET_INPUTFILES_USER_INFO_H
#define ORVET_INPUTFILES_USER_INFO_H

#include "orvet/foundation/base/ustring.h"
#include "orvet/foundation/ktobject.h"
#include "orvet/inputfiles/keywords.h"

namespace orvet {

/// A user and the name of its authorization profile: a section of a user file. Nothing looks the profile up.
///
/// An accessor bears its field's name; its setter stores a copy and marks the keyword as supplied, also for
/// an empty value. If allocation fails, a setter changes nothing.
class ORVET_API user_info : public tagged_ktobject<class_tag::user_info> {
public:
    /// Both fields empty, no keyword marked.
    user_info();

    /// Empties both fields and removes all marks.
    void clear();

    /// Reads one line of a file, "KEYWORD=value", the keyword in any case, without blanks around it. A user
    /// name that itself begins with the other keyword is stored for that keyword too. Returns 0, or 100 for a
    /// line without a keyword of this record, also if allocation fails; the record is then unchanged.
    short set(const ustring & line);

    /// 1 when both keywords were supplied, else 0. Marks of other records' keywords only draw a warning.
    int validate() const;

    /// A copy that the caller owns; null if allocation fails.
    codable * clone() override;

    /// The keywords of the fields, in their order: `for (const char * keyword : user_info::keywords())`.
    static constexpr const auto & keywords() { return detail::fields_of<detail::user_keywords>.names; }
    /// The value of the field with that keyword; empty for any other text. Valid while the object is
    /// unchanged.
    const ustring & value(const char * keyword) const;
    /// Marks a keyword, with its "=", as supplied; a text that is not in `fip_names` marks nothing.
    void set_fip(const char * keyword) { fip_flags_.set(keyword); }
    /// The keyword's mark: 1 when it was supplied, else 0.
    int fip(const char * keyword) const { return fip_flags_[keyword]; }

    ///@{
    /// The stored value; valid while the object is unchanged.
    const ustring & usUserName() const { return text("USER="); }
    const ustring & usProfileName() const { return text("AUTHORIZATION PROFILE="); }
    ///@}

    ///@{
    /// Stores a copy and marks the keyword as supplied.
    void set_usUserName(const ustring & value) { set_text("USER=", value); }
    void set_usProfileName(const ustring & value) { set_text("AUTHORIZATION PROFILE=", value); }
    ///@}

private:
    static constexpr int first_row = fip_row("USER=");

    const ustring & text(fip_row row) const { return texts_[row - first_row]; }
    void set_text(fip_row row, const ustring & value);

    ustring texts_[detail::field_count(detail::user_keywords)];
    fip_marks fip_flags_;
};

} // namespace orvet

#endif
