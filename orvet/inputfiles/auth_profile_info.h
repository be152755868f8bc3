#ifndef ORVET_INPUTFILES_AUTH_PROFILE_INFO_H
#define ORVET_INPUTFILES_AUTH_PROFILE_INFO_H

#include "orvet/foundation/base/ustring.h"
#include "orvet/foundation/ktobject.h"
#include "orvet/inputfiles/keywords.h"

namespace orvet {

/// What the users of one authorization profile may do: a section of an authorization profile file. A setting
/// is any text, in the case that it has in the file; "NO" is only its default. The detail settings, those
/// ending in Modi, Manage and View, are empty by default and depend on nothing.
///
/// An accessor bears its field's name; its setter stores a copy and marks the keyword as supplied, also for
/// an empty value. If allocation fails, a setter changes nothing.
class ORVET_API auth_profile_info : public tagged_ktobject<class_tag::auth_profile_info> {
public:
    /// Every field at its default, no keyword marked.
    auth_profile_info();

    /// Sets every field to its default and removes all marks.
    void clear();

    /// Reads one line of a file, "KEYWORD=value", the keyword in any case, without blanks around it. A value
    /// that itself begins with a later keyword is stored for that keyword too. Returns 0, or 100 for a line
    /// without a keyword of this record, also if allocation fails; the record is then unchanged.
    short set(const ustring & line);

    /// Always 1: no keyword is mandatory, and marks of other records' keywords only draw a warning.
    int validate() const;

    /// Replaces `text` by 14 lines, each closed by a line feed: the profile's name and the settings without
    /// the detail settings. If allocation fails, `text` is unchanged.
    void toString(ustring & text) const;

    /// A copy that the caller owns; null if allocation fails.
    codable * clone() override;

    /// The keywords of the fields, in their order: `for (const char * keyword :
    /// auth_profile_info::keywords())`.
    static constexpr const auto & keywords() { return detail::fields_of<detail::profile_keywords>.names; }
    /// The value of the field with that keyword; empty for any other text. Valid while the object is
    /// unchanged.
    const ustring & value(const char * keyword) const;
    /// Marks a keyword, with its "=", as supplied; a text that is not in `fip_names` marks nothing.
    void set_fip(const char * keyword) { fip_flags_.set(keyword); }
    /// The keyword's mark: 1 when it was supplied, else 0.
    int fip(const char * keyword) const { return fip_flags_[keyword]; }

    ///@{
    /// The stored value; valid while the object is unchanged.
    const ustring & usProfileName() const { return text("PROFILE NAME="); }
    const ustring & usManageAll() const { return text("MANAGE ALL TARGETS="); }
    const ustring & usCMInstall() const { return text("CHANGE MANAGEMENT INSTALL="); }
    const ustring & usCMActivate() const { return text("CHANGE MANAGEMENT ACTIVATE="); }
    const ustring & usCMExecute() const { return text("CHANGE MANAGEMENT EXECUTE="); }
    const ustring & usCMAuthorize() const { return text("CHANGE MANAGEMENT AUTHORIZE="); }
    const ustring & usPreparation() const { return text("PREPARATION="); }
    const ustring & usPreparationModi() const { return text("PREPARATION MODIFY="); }
    const ustring & usPreparationView() const { return text("PREPARATION VIEW="); }
    const ustring & usSend() const { return text("SEND="); }
    const ustring & usRDR() const { return text("RETRIEVE, DELETE AND REPLACE="); }
    const ustring & usQueues() const { return text("QUEUES="); }
    const ustring & usQueuesManage() const { return text("QUEUES MANAGE="); }
    const ustring & usQueuesView() const { return text("QUEUES VIEW="); }
    const ustring & usSysAdmin() const { return text("SYSTEM ADMINISTRATION="); }
    const ustring & usSysAdminModi() const { return text("SYSTEM ADMINISTRATION MODIFY="); }
    const ustring & usSysAdminView() const { return text("SYSTEM ADMINISTRATION VIEW="); }
    const ustring & usConfiguration() const { return text("CONFIGURATION="); }
    const ustring & usConfigurationModi() const { return text("CONFIGURATION MODIFY="); }
    const ustring & usConfigurationView() const { return text("CONFIGURATION VIEW="); }
    const ustring & usPurgeRequests() const { return text("PURGE REQUESTS="); }
    const ustring & usManageRequestes() const { return text("MANAGE ALL REQUESTS="); }
    ///@}

    ///@{
    /// Stores a copy and marks the keyword as supplied.
    void set_usProfileName(const ustring & value) { set_text("PROFILE NAME=", value); }
    void set_usManageAll(const ustring & value) { set_text("MANAGE ALL TARGETS=", value); }
    void set_usCMInstall(const ustring & value) { set_text("CHANGE MANAGEMENT INSTALL=", value); }
    void set_usCMActivate(const ustring & value) { set_text("CHANGE MANAGEMENT ACTIVATE=", value); }
    void set_usCMExecute(const ustring & value) { set_text("CHANGE MANAGEMENT EXECUTE=", value); }
    void set_usCMAuthorize(const ustring & value) { set_text("CHANGE MANAGEMENT AUTHORIZE=", value); }
    void set_usPreparation(const ustring & value) { set_text("PREPARATION=", value); }
    void set_usPreparationModi(const ustring & value) { set_text("PREPARATION MODIFY=", value); }
    void set_usPreparationView(const ustring & value) { set_text("PREPARATION VIEW=", value); }
    void set_usSend(const ustring & value) { set_text("SEND=", value); }
    void set_usRDR(const ustring & value) { set_text("RETRIEVE, DELETE AND REPLACE=", value); }
    void set_usQueues(const ustring & value) { set_text("QUEUES=", value); }
    void set_usQueuesManage(const ustring & value) { set_text("QUEUES MANAGE=", value); }
    void set_usQueuesView(const ustring & value) { set_text("QUEUES VIEW=", value); }
    void set_usSysAdmin(const ustring & value) { set_text("SYSTEM ADMINISTRATION=", value); }
    void set_usSysAdminModi(const ustring & value) { set_text("SYSTEM ADMINISTRATION MODIFY=", value); }
    void set_usSysAdminView(const ustring & value) { set_text("SYSTEM ADMINISTRATION VIEW=", value); }
    void set_usConfiguration(const ustring & value) { set_text("CONFIGURATION=", value); }
    void set_usConfigurationModi(const ustring & value) { set_text("CONFIGURATION MODIFY=", value); }
    void set_usConfigurationView(const ustring & value) { set_text("CONFIGURATION VIEW=", value); }
    void set_usPurgeRequests(const ustring & value) { set_text("PURGE REQUESTS=", value); }
    void set_usManageRequestes(const ustring & value) { set_text("MANAGE ALL REQUESTS=", value); }
    ///@}

private:
    static constexpr int first_row = fip_row("PROFILE NAME=");

    const ustring & text(fip_row row) const { return texts_[row - first_row]; }
    void set_text(fip_row row, const ustring & value);

    ustring texts_[detail::field_count(detail::profile_keywords)];
    fip_marks fip_flags_;
};

/// A new text: `left` followed by `right`.
ORVET_API ustring operator+(const ustring & left, const char * right);

} // namespace orvet

#endif
