#ifndef ORVET_INPUTFILES_VXA_INST_INFO_H
#define ORVET_INPUTFILES_VXA_INST_INFO_H

#include "orvet/foundation/base/ustring.h"
#include "orvet/inputfiles/keywords.h"

namespace orvet {

/// What a tool needs to install the agent on the targets of one operating system: a section of an agent
/// installation file. All values are texts, ports too, stored as they stand in the file.
///
/// An accessor bears its field's name; its setter stores a copy and marks the keyword as supplied, also for
/// an empty value. Where memory is short, a setter leaves both as they were.
class ORVET_API VXA_inst_info {
public:
    /// Gateway port "9494", agent port "9495", agent name "$(TARGET)", agent path "c:\corvan\vxa"; all else
    /// empty, no keyword marked.
    VXA_inst_info();

    /// Takes one line of a file, "KEYWORD=value", the keyword in any case and with any blanks around it. A
    /// value that itself begins with a later keyword fills that one's field as well. "TARGET=" is accepted
    /// and stored nowhere. 100 for a line without a keyword of this record and when memory is short, 101 for
    /// an operating system that begins with none of `op_system_names`; after both the record is as it was.
    short set(const ustring & line);

    /// 1 when the operating system begins with "WINDOWS_NT" or "WIN95" and no mandatory keyword is missing,
    /// else 0; marks outside the record's lists are only warned of.
    int validate() const;

    /// Marks a keyword, with its "=", as supplied; a text outside `fip_names` marks nothing.
    void set_fip(const char * keyword) { fip_flags_.set(keyword); }
    /// 1 when the keyword was supplied, else 0.
    int fip(const char * keyword) const { return fip_flags_[keyword]; }

    const ustring & op_system() const { return text("OPERATING_SYSTEM="); }
    const ustring & server_name() const { return text("SERVER_NAME="); }
    const ustring & server_ren_rgn() const { return text("SERVER_REN_RGN="); }
    const ustring & gateway_ip_address() const { return text("GATEWAY_IP_ADDRESS="); }
    const ustring & gateway_port_number() const { return text("GATEWAY_PORT_NUMBER="); }
    const ustring & agent_name() const { return text("AGENT_NAME="); } ///< "$(TARGET)" is left to the tool
    const ustring & agent_port_number() const { return text("AGENT_PORT_NUMBER="); }
    const ustring & agent_inst_path() const { return text("AGENT_INST_PATH="); }
    const ustring & images_server_name() const { return text("IMAGES_SERVER_NAME="); }
    const ustring & exported_dir() const { return text("EXPORTED_DIR="); }
    const ustring & mount_point() const { return text("MOUNT_POINT="); }
    const ustring & mount_options() const { return text("MOUNT_OPTIONS="); }
    const ustring & export_options() const { return text("EXPORT_OPTIONS="); }

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

private:
    static constexpr int first_row = fip_row("OPERATING_SYSTEM=");

    const ustring & text(fip_row row) const { return texts_[row - first_row]; }
    void set_text(fip_row row, const ustring & value);

    ustring texts_[13]; // one for each of the record's rows of `fip_names`
    fip_marks fip_flags_;
};

} // namespace orvet

#endif
