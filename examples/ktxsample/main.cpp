// ktxsample, a complete tool on liborvet: it reads its command line, brings up its channels and does what the
// operator asked for with "-cmd".

#include "ktxsample.h"

#include <cstdio>
#include <cstring>

namespace {

struct command {
    const char * name;
    int (*run)(const orvet::input_parms & ip);
    const char * purpose;
};

constexpr command commands[] = {
    {"domains", show_domains, "show the domains and targets of the scan result file named by -file"},
    {"records", show_records,
     "show the records of the input file named by -file; -obj agents, profiles or users"},
    {"listing", ask_brodan, "list Brodan's targets and the object named by -obj; -rcmd says who answers"},
    {"server", choose_server, "list the servers of the brod.cfg in -dir and make that of -srv the first"},
};

// The kind of tool this is: "-cmd" and "-ini" are mandatory.
constexpr const orvet::option_profile & profile = orvet::ip_profiles[18];

constexpr int wrong_call = 2;

int explain()
{
    std::printf("%scommands of -cmd:\n", orvet::input_parms::usage(profile, "ktxsample").mbcs_str());
    for (const command & each : commands)
        std::printf("    %-10s %s\n", each.name, each.purpose);
    std::printf(
        "or: ktxsample -explain NUMBER\n    what a message or code means and what to do, MSG0107 or 259\n");
    return wrong_call;
}

} // namespace

int main(int argc, char ** argv)
{
    if (argc == 3 && std::strcmp(argv[1], "-explain") == 0)
        return explain_number(argv[2]);
    orvet::input_parms ip;
    if (ip.get_ips(argc, argv) != 0 || !ip.validate(profile.mandatory, profile.allowed))
        return explain();
    orvet::setloglevel(ip);
    const orvet::call_trace trace("ktxsample::main"); // tells the runs in one trace apart
    for (const command & each : commands)
        if (ip.ip_cmd() == each.name)
            return trace.leave(each.run(ip));
    return explain();
}
