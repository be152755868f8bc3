#include "orvet/inputfiles/VXA_inst_info.h"

#include "orvet/inputfiles/record_internal.h"

namespace orvet {

bool can_be_installed(const ustring & op_system)
{
    return op_system.begins_with("WINDOWS_NT") || op_system.begins_with("WIN95");
}

VXA_inst_info::VXA_inst_info()
{
    set_initial_values(agent_kind, texts_);
}

void VXA_inst_info::set_text(fip_row row, const ustring & value)
{
    set_field({agent_kind, texts_, fip_flags_}, row, value);
}

const ustring & VXA_inst_info::value(const char * keyword) const
{
    return field_of(agent_kind, texts_, keyword);
}

short VXA_inst_info::set(const ustring & line)
{
    const call_trace trace("VXA_inst_info::set");
    return set_line(trace, {agent_kind, texts_, fip_flags_}, line);
}

int VXA_inst_info::validate() const
{
    const call_trace trace("VXA_inst_info::validate");
    if (!can_be_installed(op_system())) {
        trace.error("Invalid operating system <%s>", op_system());
        return 0;
    }
    return check_keywords(agent_kind, fip_flags_);
}

} // namespace orvet
