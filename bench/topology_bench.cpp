// Scan result files. The arguments of a job are the number of domains and that of all entries together.

#include <fstream>

#include <ini.h>

#include "bench.h"
#include "scan_file.h"
#include "silence.h"

namespace {

/// The number with its zeros, as the heads have it.
std::string number(long i)
{
    return std::to_string(100000 + i).substr(1);
}

std::string scan_file(const benchmark::State & state)
{
    const long domains = state.range(0), entries = state.range(1);
    const std::string name = "scan_" + std::to_string(domains) + "_" + std::to_string(entries) + ".res";
    return bench::data_file(name, [=](std::FILE * file) { bench::write_scan(file, domains, entries); });
}

void load_orvet(benchmark::State & state)
{
    bench::shut_gates();
    const orvet::pathname path(scan_file(state).c_str());
    for (auto _ : state) {
        orvet::kt_file file(path);
        orvet::vector domains;
        orvet::ustring server;
        if (file.open("r") != 0 || file.find_section("[topology]") != 0 ||
            file.load_top(server, domains) != 0 || file.load_offsets(domains) != 0 || file.close() != 0 ||
            domains.size() != state.range(0))
            state.SkipWithError("the file was not loaded");
    }
}
BENCHMARK(load_orvet)
    ->Name("load/orvet")
    ->Unit(benchmark::kMillisecond)
    ->Args({32767, 1000000})
    ->Args({16000, 500000})
    ->Args({32000, 500000})
    ->Args({16000, 1000000});

/// Finds the heads in the order of the file, and stores nothing.
void load_getline(benchmark::State & state)
{
    const std::string path = scan_file(state);
    for (auto _ : state) {
        std::ifstream file(path);
        std::string line, head = "[topology]";
        long found = -1;
        while (std::getline(file, line))
            if (line == head) {
                head = "[d" + number(++found) + "]";
            }
        if (found != state.range(0))
            state.SkipWithError("heads were lost");
    }
}
BENCHMARK(load_getline)->Name("load/getline")->Unit(benchmark::kMillisecond)->Args({32767, 1000000});

void load_inih(benchmark::State & state)
{
    const std::string path = scan_file(state);
    const auto ignore = [](void *, const char *, const char *, const char *) { return 1; };
    for (auto _ : state)
        if (ini_parse(path.c_str(), ignore, nullptr) != 0)
            state.SkipWithError("the file was not parsed");
}
BENCHMARK(load_inih)->Name("load/inih")->Unit(benchmark::kMillisecond)->Args({32767, 1000000});

/// Passes over all the sections in front of the last one.
void sections_orvet(benchmark::State & state)
{
    bench::shut_gates();
    const long sections = state.range(0);
    const orvet::pathname path(
        bench::data_file("sections_" + std::to_string(sections) + ".txt", [=](std::FILE * file) {
            for (long i = 1; i <= sections; ++i)
                std::fprintf(file, "[section %ld]\ncount = 2\nfirst = 1\nsecond = 2\n", i);
        }).c_str());
    const orvet::ustring last(("[section " + std::to_string(sections) + "]").c_str());
    for (auto _ : state) {
        orvet::kt_file file(path);
        if (file.open("r") != 0 || file.find_section(last) != 0 || file.close() != 0)
            state.SkipWithError("the section was not found");
    }
}
BENCHMARK(sections_orvet)->Name("sections/orvet")->Unit(benchmark::kMillisecond)->Arg(250000)->Arg(500000);

} // namespace
