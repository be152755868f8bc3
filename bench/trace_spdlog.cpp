#include "trace_jobs.h"

#include <spdlog/sinks/basic_file_sink.h>
#include <spdlog/spdlog.h>

namespace {

std::shared_ptr<spdlog::logger> logger(const char * name, spdlog::level::level_enum level)
{
    const auto sink =
        std::make_shared<spdlog::sinks::basic_file_sink_st>((bench::directory() / name).string(), true);
    auto made = std::make_shared<spdlog::logger>("kt_file::seek", sink);
    made->set_level(level);
    made->flush_on(spdlog::level::trace);
    return made;
}

void gate_spdlog(benchmark::State & state)
{
    const auto to = logger("spdlog_gate.txt", spdlog::level::off);
    bench::meet_gates(state, [&](int i) { to->info("seeking at offset {}", i); });
}
BENCHMARK(gate_spdlog)->Name("gate/spdlog");

void line_spdlog(benchmark::State & state)
{
    const auto to = logger("spdlog.txt", spdlog::level::trace);
    bench::write_lines(
        state, [&](const char * name, int i) { to->info("seeking in {} file. offset is {}", name, i); });
}
BENCHMARK(line_spdlog)->Name("line/spdlog");

} // namespace
