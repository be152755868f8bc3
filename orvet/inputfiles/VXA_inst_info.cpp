#include "orvet/inputfiles/VXA_inst_info.h"

#include <iterator>

#include "orvet/inputfiles/record.h"

namespace orvet {

namespace {

void announce_path(const call_trace & trace, const ustring & value)
{
    trace.call("in the switch");
    trace.call("in the switch");
    trace.call("in the switch.line is <%s>", value);
}

// clang-format off

constexpr record_field fields[] = {
    {.fallback = "", .beginnings = op_system_names},              // op_system
    {.fallback = ""},                                             // server_name
    {.fallback = ""},                                             // server_ren_rgn
    {.fallback = ""},                                             // gateway_ip_address
    {.fallback = "9494"},                                         // gateway_port_number
    {.fallback = "$(TARGET)", .emptied_by = "$(HOSTNAME)"},       // agent_name
    {.fallback = "9495"},                                         // agent_port_number
    {.fallback = "c:\\corvan\\vxa", .announce = announce_path,
     .confirm = [](const call_trace & trace) { trace.call("after set"); }}, // agent_inst_path
    {.fallback = ""},                                             // images_server_name
    {.fallback = ""},                                             // exported_dir
    {.fallback = ""},                                             // mount_point
    {.fallback = ""},                                             // mount_options
    {.fallback = ""},                                             // export_options
};

// clang-format on

constexpr record_kind kind{
    .first_row = fip_row("OPERATING_SYSTEM="),
    .count = static_cast<int>(std::size(fields)),
    .fields = fields,
    .shown_up_to = u'=',
    .strips_key = true,
    .unstored = "TARGET=",
};

} // namespace

VXA_inst_info::VXA_inst_info()
{
    clear_record({kind, texts_, fip_flags_});
}

void VXA_inst_info::set_text(fip_row row, const ustring & value)
{
    set_field({kind, texts_, fip_flags_}, row - first_row, value);
}

short VXA_inst_info::set(const ustring & line)
{
    const call_trace trace("VXA_inst_info::set");
    return set_line(trace, {kind, texts_, fip_flags_}, line);
}

int VXA_inst_info::validate() const
{
    const call_trace trace("VXA_inst_info::validate");
    // `set` takes names that are turned down here: their agents are not installed by this road.
    constexpr const char * installed[] = {"WINDOWS_NT", "WIN95", nullptr};
    if (!begins_with_one_of(op_system(), installed)) {
        trace.error("Invalid operating system <%s>", op_system());
        return 0;
    }
    return weigh_marks(fip_flags_, vxa_mandatory, vxa_allowed);
}

} // namespace orvet
