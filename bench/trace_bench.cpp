// The two channels: a gate that is shut, and a line that is written.

#include <fcntl.h>
#include <unistd.h>

#include "silence.h"
#include "trace_jobs.h"

namespace {

using orvet::call_trace;

void gate_orvet(benchmark::State & state)
{
    bench::shut_gates();
    const call_trace trace("gate_orvet");
    bench::meet_gates(state, [&](int i) { trace.info("seeking at offset %d", i); });
}
BENCHMARK(gate_orvet)->Name("gate/orvet");

/// Sends a channel's lines to a file of their own, below KTXPATH, as the library opens one.
void redirect(orvet::work_area & area, const char * name)
{
    std::filesystem::remove(bench::directory() / name);
    orvet::trace::set_stream(area, new orvet::stdio_trace_stream(name));
    orvet::trace::set_level(area, 0);
}

void line_trace(benchmark::State & state)
{
    bench::shut_gates();
    const call_trace trace("kt_file::seek");
    redirect(orvet::system_trace::wa(), "trace.txt");
    bench::write_lines(
        state, [&](const char * name, int i) { trace.info("seeking in %s file. offset is %d", name, i); });
    bench::shut_gates();
}
BENCHMARK(line_trace)->Name("line/trace");

void line_log(benchmark::State & state)
{
    bench::shut_gates();
    redirect(orvet::log::wa(), "log.txt");
    bench::write_lines(state, [](const char * name, int i) {
        orvet::log_message("kt_file::seek seeking in %s file. offset is %d", name, i);
    });
    bench::shut_gates();
}
BENCHMARK(line_log)->Name("line/log");

/// The limit: the bytes of such a line handed to the system as they are.
void line_write(benchmark::State & state)
{
    const std::string line =
        "Mon Jan  1 12:00:00 2024 [I] kt_file::seek seeking in /var/ketrix/data/scan.res file. "
        "offset is 1234\n";
    const int file =
        open((bench::directory() / "write.txt").c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    for (auto _ : state)
        if (write(file, line.data(), line.size()) != static_cast<ssize_t>(line.size()))
            state.SkipWithError("the line was not written");
    close(file);
}
BENCHMARK(line_write)->Name("line/write");

} // namespace
