#ifndef ORVET_INPUTFILES_VXA_INST_INFO_H
#define ORVET_INPUTFILES_VXA_INST_INFO_H

#include "orvet/foundation/base/ustring.h"
#include "orvet/inputfiles/keywords.h"

namespace orvet {

/// What a tool needs to install the agent on the targets of one operating system: a section of an agent
/// installation file. All values are texts, ports too, stored as the file has them.
///
/// An accessor bears its field's name; its setter stores a copy and marks the keyword as supplied, also for
/// an empty value. If allocation fails, a setter changes nothing.
class ORVET_API VXA_inst_info {
public:
    /// Gateway port "9494", agent port "9495", agent name "$(TARGET)", agent path "c:\corvan\vxa"; the other
    /// fields empty, no keyword marked.
    VXA_inst_info();

    /// Reads one line of a file, "KEYWORD=value", the keyword in any case and with any blanks around it. A
    /// value that itself begins with a later keyword is stored for that keyword too. "TARGET=" is accepted
    /// and not stored. Returns 0; 100 for a line without a keyword of this record, also if allocation fails;
    /// 101 for an operating system that begins with none of `op_system_names`. After 100 and 101 the record
    /// is unchanged.
    short set(const ustring & line);

    /// 1 when the operating system begins with "WINDOWS_NT" or "WIN95" and no mandatory keyword is missing,
    /// else 0. Marks of other records' keywords only draw a warning.
    int validate() const;

    /// The keywords of the fields, in their order: `for (const char * keyword : VXA_inst_info::keywords())`.
    static constexpr const auto & keywords() { return detail::fields_of<detail::agent_keywords>.names; }
    /// The value of the field with that keyword; empty for any other text. Valid while the object is
    /// unchanged.
    const ustring & value(const char * keyword) const;
    /// Marks a keyword, with its "=", as supplied; a text that is not in `fip_names` marks nothing.
    void set_fip(const char * keyword) { fip_flags_.set(keyword); }
    /// The keyword's mark: 1 when it was supplied, else 0.
    int fip(const char * keyword) const { return fip_flags_[keyword]; }

    ///@{
    /// The stored value; valid while the object is unchanged.
    const ustring & op_system() const { return text("OPERATING_SYSTEM="); }
    const ustring & server_name() const { return text("SERVER_NAME="); }
    const ustring & server_ren_rgn() const { return text("SERVER_REN_RGN="); }
    const ustring & gateway_ip_address() const { return text("GATEWAY_IP_ADDRESS="); }
    const ustring & gateway_port_number() const { return text("GATEWAY_PORT_NUMBER="); }
    const ustring & agent_name() const { return text("AGENT_NAME="); } ///< the tool replaces "$(TARGET)"
    const ustring & agent_port_number() const { return text("AGENT_PORT_NUMBER="); }
    const ustring & agent_inst_path() const { return text("AGENT_INST_PATH="); }
    const ustring & images_server_name() const { return text("IMAGES_SERVER_NAME="); }
    const ustring & exported_dir() const { return text("EXPORTED_DIR="); }
    const ustring & mount_point() const { return text("MOUNT_POINT="); }
    const ustring & mount_options() const { return text("MOUNT_OPTIONS="); }
    const ustring & export_options() const { return text("EXPORT_OPTIONS="); }
    ///@}

    ///@{
    /// Stores a copy and marks the keyword as supplied.
    void set_op_system(const ustring & value) { set_text("OPERATING_SYSTEM=", value); }
    void set_server_name(const ustring & value) { set_text("SERVER_NAME=", value); }
    void set_server_ren_rgn(const ustring & value) { set_text("SERVER_REN_RGN=", value); }
    void set_gateway_ip_address(const ustring & value) { set_text("GATEWAY_IP_ADDRESS=", value); }
    void set_gateway_port_number(const ustring & value) { set_text("GATEWAY_PORT_NUMBER=", value); }
    /// The value "$(HOSTNAME)" leaves the name empty.
    void set_agent_name(const ustring & value) { set_text("AGENT_NAME=", value); }
    void set_agent_port_number(const ustring & value) { set_text("AGENT_PORT_NUMBER=", value); }
    void set_agent_inst_path(const ustring & value) { set_text("AGENT_INST_PATH=", value); }
    void set_images_server_name(const ustring & value) { set_text("IMAGES_SERVER_NAME=", value); }
    void set_exported_dir(const ustring & value) { set_text("EXPORTED_DIR=", value); }
    void set_mount_point(const ustring & value) { set_text("MOUNT_POINT=", value); }
    void set_mount_options(const ustring & value) { set_text("MOUNT_OPTIONS=", value); }
    void set_export_options(const ustring & value) { set_text("EXPORT_OPTIONS=", value); }
    ///@}

private:
    static constexpr int first_row = fip_row("OPERATING_SYSTEM=");

    const ustring & text(fip_row row) const { return texts_[row - first_row]; }
    void set_text(fip_row row, const ustring & value);

    ustring texts_[detail::field_count(detail::agent_keywords)];
    fip_marks fip_flags_;
};

} // namespace orvet

#endif
