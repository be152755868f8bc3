// An input file in a tool: read it in one call, walk the records, and say where it went wrong.

#include "ktxsample.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <string>
#include <vector>

namespace {

using row = std::vector<orvet::ustring>;

/// Each kind puts its headings into the first row, and a row for each record behind it.
std::vector<row> agents(orvet::file_input_parms & input)
{
    std::vector<row> table{{"SYSTEM", "SERVER", "REGION", "GATEWAY", "AGENT", "PORT", "PATH", "IMAGES"}};
    const int first = input.index() > 1 ? 1 : 0; // without a separator the one record stands in front
    for (int i = first; i < std::max(input.index(), 1); ++i) {
        const orvet::VXA_inst_info & agent = input.input_info(i);
        table.push_back({agent.op_system(), agent.server_name(), agent.server_ren_rgn(),
                         agent.gateway_ip_address() + ":" + agent.gateway_port_number().mbcs_str(),
                         agent.agent_name(), agent.agent_port_number(), agent.agent_inst_path(),
                         agent.images_server_name() + ":" + agent.exported_dir().mbcs_str()});
    }
    return table;
}

std::vector<row> profiles(orvet::file_input_parms & input)
{
    std::vector<row> table{{"PROFILE", "ALL TARGETS", "INSTALL", "PREPARATION", "SEND", "QUEUES", "ADMIN"}};
    for (const auto & profile : orvet::items<orvet::auth_profile_info>(input.arSections()))
        table.push_back({profile.usProfileName(), profile.usManageAll(), profile.usCMInstall(),
                         profile.usPreparation(), profile.usSend(), profile.usQueues(),
                         profile.usSysAdmin()});
    return table;
}

std::vector<row> users(orvet::file_input_parms & input)
{
    std::vector<row> table{{"USER", "PROFILE"}};
    for (const auto & user : orvet::items<orvet::user_info>(input.arSections()))
        table.push_back({user.usUserName(), user.usProfileName()});
    return table;
}

struct kind {
    const char * name; // what "-obj" calls it
    int file_type;
    const char * separator;
    std::vector<row> (*table)(orvet::file_input_parms & input);
};

constexpr kind kinds[] = {
    {"agents", 1, "TARGET=", agents},
    {"profiles", 2, "PROFILE NAME=", profiles},
    {"users", 3, "USER=", users},
};

/// Prints aligned columns. On a terminal, what does not fit into its width is cut.
void print(const std::vector<row> & table)
{
    std::vector<unsigned> widths(table[0].size());
    for (const row & each : table)
        for (std::size_t i = 0; i < each.size(); ++i)
            widths[i] = std::max(widths[i], each[i].length() + 2);
    for (const row & each : table) {
        orvet::ustring line;
        for (std::size_t i = 0; i < each.size(); ++i)
            line.append(each[i]).append(std::string(widths[i] - each[i].length(), ' ').c_str());
        line.strip(orvet::ustring::strip_back, u' ');
        if (is_terminal(1))
            line.remove(terminal_width());
        std::printf("%s\n", line.mbcs_str());
    }
}

} // namespace

int show_records(const orvet::input_parms & ip)
{
    const orvet::ustring & wanted = ip.ip_obj_file_name().text();
    const kind * const chosen = std::find_if(std::begin(kinds), std::end(kinds),
                                             [&](const kind & each) { return wanted == each.name; });
    if (chosen == std::end(kinds)) {
        std::printf("-obj has to be agents, profiles or users\n");
        return 1;
    }

    const char * const file = ip.ip_input_file().mbcs_str();
    orvet::file_input_parms input;
    const short rc = input.get_fips(ip.ip_input_file(), 1, chosen->separator, chosen->file_type);
    if (rc == orvet::code::success) {
        print(chosen->table(input));
        return 0;
    }
    std::printf("%s: not read, code %d\n", file, rc);
    if (input.error_line() != 0)
        std::printf("%s:%d: section %d: %s\n", file, input.error_line(), input.error_section(),
                    input.error_text().mbcs_str());
    else if (input.error_section() != 0)
        std::printf("%s: at the end, section %d\n", file, input.error_section());
    std::printf("The log in %s tells more\n", orvet::environment::kt_inst_path().mbcs_str());
    return 1;
}
