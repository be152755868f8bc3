// A command line of 8 options with values, of the 30 that there are.

#include <string>
#include <vector>

#include <getopt.h>

#include <CLI/CLI.hpp>

#include "bench.h"
#include "silence.h"

namespace {

/// The same words for each contestant; `dash` stands in front of a name, which has one itself.
class command_line {
public:
    explicit command_line(const char * dash = "")
    {
        for (const char * const name : {"-file", "-dir", "-tool", "-srv", "-cmd", "-usr", "-odir", "-gfn"}) {
            words_.push_back(dash + std::string(name));
            words_.push_back("/var/ketrix/data" + std::string(name));
        }
        values_.push_back(program_);
        for (std::string & word : words_)
            values_.push_back(word.data());
    }

    int count() const { return static_cast<int>(values_.size()); }
    char ** values() { return values_.data(); }

private:
    char program_[8] = "tool";
    std::vector<std::string> words_;
    std::vector<char *> values_;
};

bool is_flag(const std::string & name)
{
    return name == "-uvxp" || name == "-force" || name == "-gh" || name == "-gt";
}

void options_orvet(benchmark::State & state)
{
    bench::shut_gates();
    command_line line;
    for (auto _ : state) {
        orvet::input_parms ip;
        if (ip.get_ips(line.count(), line.values()) != 0)
            state.SkipWithError("an option was refused");
        benchmark::DoNotOptimize(ip.ip_gfn_name().data());
    }
}
BENCHMARK(options_orvet)->Name("options/orvet");

void options_getopt(benchmark::State & state)
{
    command_line line;
    std::vector<option> table;
    for (const char * const * name = orvet::ip_names; *name; ++name)
        table.push_back({*name + 1, is_flag(*name) ? no_argument : required_argument, nullptr,
                         1000 + static_cast<int>(table.size())});
    table.push_back({});
    for (auto _ : state) {
        std::string values[30];
        optind = 0; // begins anew
        for (int found;
             (found = getopt_long_only(line.count(), line.values(), "", table.data(), nullptr)) != -1;) {
            if (found < 1000)
                state.SkipWithError("an option was refused");
            else if (optarg)
                values[found - 1000] = optarg;
        }
        benchmark::DoNotOptimize(values);
    }
}
BENCHMARK(options_getopt)->Name("options/getopt");

void options_cli11(benchmark::State & state)
{
    command_line line("-");
    std::vector<std::string> names;
    for (const char * const * name = orvet::ip_names; *name; ++name)
        names.push_back("-" + std::string(*name));
    for (auto _ : state) {
        std::string values[30];
        bool flags[30] = {};
        CLI::App app;
        for (std::size_t i = 0; i < names.size(); ++i)
            if (is_flag(orvet::ip_names[i]))
                app.add_flag(names[i], flags[i]);
            else
                app.add_option(names[i], values[i]);
        app.parse(line.count(), line.values());
        benchmark::DoNotOptimize(values);
    }
}
BENCHMARK(options_cli11)->Name("options/cli11");

} // namespace
