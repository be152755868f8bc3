#include "library_calls.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr std::string_view input_file_calls =
    "kt_file(pathname);kt_file::open;kt_file::get_line;kt_file::close;"
    "VXA_inst_info::set;VXA_inst_info::validate;auth_profile_info::set;auth_profile_info::validate;"
    "user_info::set;user_info::validate;";

// clang-format off
constexpr library_function functions[] = {
    {"VXA_inst_info::set",          true,  "", ""},
    {"VXA_inst_info::validate",     false, "", ""},
    {"auth_profile_info::set",      true,  "", ""},
    {"auth_profile_info::validate", false, "", ""},
    {"brod_base::build_final_out_file",   true,  "", ""},
    {"brod_base::exec_brod_cmd",    true,  "sset_out_file;", "sset_out_file;"},
    {"brod_base::os_brod_cmd",      false, "", ""},
    {"brod_base::set_brod_cmd",     true,  "brod_base::os_brod_cmd;", ""},
    {"brod_base::set_final_output_file",  true,  "", ""},
    {"brod_base::set_local_name",   false, "kt_file::open;kt_file::get_line;resolve_tokens;", "kt_file::open;"},
    {"brod_base::set_output_file",  true,  "", ""},
    {"brod_base::~brod_base",       true,  "kt_file::close;kt_file::removef;", ""},
    {"brod_base_ls::brod_base_ls",  true,  "brod_base::set_brod_cmd;", ""},
    {"brod_base_lscm::brod_base_lscm(target_name, gname)", true, "brod_base::set_brod_cmd;", ""},
    {"file_input_parms::get_fips",  true,  input_file_calls, ""},
    {"kt_chkfile",                  false, "", ""},
    {"kt_file(file_name)",          true,  "", ""},
    {"kt_file(pathname)",           true,  "", ""},
    {"kt_file::close",              true,  "", ""},
    {"kt_file::copy_to",            true,  "", ""},
    {"kt_file::find_section",       true,  "kt_file::get_line;", ""},
    {"kt_file::get_line",           true,  "", ""},
    {"kt_file::get_pos",            true,  "", ""},
    {"kt_file::load_offsets",       true,  "kt_file::seek_section;kt_file::get_pos;print_topv;", ""},
    {"kt_file::load_top",           true,  "kt_file::get_line;print_topv;", ""},
    {"kt_file::open",               true,  "kt_file::seek;kt_file::get_pos;", ""},
    {"kt_file::removef",            true,  "", ""},
    {"kt_file::seek",               true,  "", ""},
    {"kt_file::seek_section",       true,  "kt_file::get_line;", ""},
    {"kt_file::write",              true,  "", ""},
    {"kt_file::write(b,s)",         true,  "", ""},
    {"kt_file:read",                true,  "", ""},
    {"print_topv",                  true,  "", ""},
    {"resolve_tokens",              true,  "", ""},
    {"sset_out_file",               false, "", ""},
    {"user_info::set",              true,  "", ""},
    {"user_info::validate",         false, "", ""},
};
// clang-format on

/// Whether the list has the name, followed by ";".
bool has(std::string_view list, std::string_view name)
{
    for (std::size_t at = list.find(name); at != std::string_view::npos; at = list.find(name, at + 1)) {
        const bool begins = at == 0 || list[at - 1] == ';';
        if (begins && list.substr(at + name.size()).starts_with(';'))
            return true;
    }
    return false;
}

} // namespace

const library_function * find_library_function(std::string_view name)
{
    const auto found = std::find_if(std::begin(functions), std::end(functions),
                                    [&](const library_function & each) { return each.name == name; });
    return found != std::end(functions) ? found : nullptr;
}

bool may_call(const library_function & caller, std::string_view callee, std::size_t done)
{
    return has(caller.calls, callee) && (done == 0 || !has(caller.only_first, callee));
}
