#include "orvet/commands/listings.h"

#include "orvet/cmdline/input_parms.h"
#include "orvet/commands/resolve_tokens.h"
#include "orvet/files/sections.h"
#include "orvet/foundation/base/memory.h"
#include "orvet/foundation/call_trace.h"

namespace orvet {

namespace {

const char * final_name()
{
    return input_parms::ip_file_name().mbcs_str();
}

} // namespace

brod_base_ls::brod_base_ls(const ustring & global_name)
    : brod_base(out_file_path("cattmp.out"), out_file_path(final_name())), global_name_(global_name)
{
    const call_trace trace("brod_base_ls::brod_base_ls");
    memory_watch watch;
    set_brod_cmd(ustring("brod ls ").append(global_name), 0);
    if (watch.failed() || output_file().text().length() == 0)
        give_up();
    trace.leave();
}

brod_base_ls::~brod_base_ls() = default;

/// Traced under the name of the base class, and without an exit line: traces have always shown it so.
void brod_base_ls::set_local_name()
{
    const call_trace trace("brod_base::set_local_name");
    if (out_file().open("r") != 0)
        return trace.quit();
    const ustring key("Local name:");
    for (keyval line; out_file().get_line(line);) {
        if (line.getval(key) != 0)
            continue;
        trace.info("read local name <%s>", line);
        if (line.length() == 0) {
            local_name_ = line;
            trace.error("Local name for object <%s> not found.", global_name_);
            return trace.quit();
        }
        memory_watch watch;
        resolve_tokens(line);
        if (!watch.failed())
            local_name_ = line;
    }
}

brod_base_lscm::brod_base_lscm(const ustring & target_name, const ustring & gname)
    : brod_base(out_file_path("hsttmp.out"), out_file_path(final_name()))
{
    const call_trace trace("brod_base_lscm::brod_base_lscm(target_name, gname)");
    memory_watch watch;
    set_brod_cmd(ustring("brod lscm ").append(gname).append(" -w ").append(target_name), 0);
    if (watch.failed() || output_file().text().length() == 0)
        give_up();
    trace.leave();
}

brod_base_lscm::~brod_base_lscm() = default;

} // namespace orvet
