// A command that does nothing, run through the shell. What counts is the elapsed time.

#include "bench.h"
#include "silence.h"

namespace {

void command_orvet(benchmark::State & state)
{
    bench::shut_gates();
    const std::string root = bench::directory().string();
    std::filesystem::create_directories(root + "/migr");
    setenv("brdcfg", root.c_str(), 1);
    orvet::brod_base command(orvet::sset_out_file("command.out"), orvet::sset_out_file("final.out"));
    command.set_brod_cmd("true", 1);
    for (auto _ : state)
        if (command.exec_brod_cmd(0, 0) != 0)
            state.SkipWithError("the command failed");
}
BENCHMARK(command_orvet)->Name("command/orvet")->UseRealTime();

void command_system(benchmark::State & state)
{
    for (auto _ : state)
        if (std::system("true") != 0)
            state.SkipWithError("the command failed");
}
BENCHMARK(command_system)->Name("command/system")->UseRealTime();

} // namespace
