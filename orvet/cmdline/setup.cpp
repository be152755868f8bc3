#include "orvet/cmdline/setup.h"

#include "orvet/foundation/environment.h"
#include "orvet/foundation/trace.h"

namespace orvet {

void initializer()
{
    environment::kt_inst_path();
    environment::brod_inst_path();
    environment::cf_prefix();
    environment::remove_temp_files();
    environment::log_size();
    environment::trace_size();
    environment::log_level();
    environment::trace_level();
    environment::kt_work_path();
    system_trace::wa();
    log::wa();
    input_parms::ip_base_cmd();
    input_parms::ip_op_sys();
    input_parms::ip_file_name();
    input_parms::ip_h_global();
    input_parms::ip_t_global();
}

void setloglevel(input_parms & ip)
{
    initializer();
    trace::set_max_size(log::wa(), environment::log_size());
    trace::set_max_size(system_trace::wa(), environment::trace_size());
    trace::set_level(log::wa(), ip.ip_log_level());
    trace::set_level(system_trace::wa(), ip.ip_trace_level());
}

} // namespace orvet
