// A rewrite of "brod.cfg", from reading its 10,000 lines to the last rename. The new text is on the disk
// before the first one, and the directory after the last, so what counts is the elapsed time.

#include <fstream>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

#include "bench.h"
#include "silence.h"

namespace {

constexpr int servers = 20;

std::string cfg_file(const char * directory)
{
    const auto path = bench::directory() / directory;
    std::filesystem::create_directories(path);
    return bench::data_file(std::string(directory) + "/brod.cfg", [](std::FILE * file) {
        for (int i = 0; i < 10000 - servers; ++i)
            std::fprintf(file, "generic_key_%05d: value number %d of the file\n", i, i);
        for (int i = 0; i < servers; ++i)
            std::fprintf(file, "server: host%02d.example tcp 7100\n", i);
    });
}

void rewrite_orvet(benchmark::State & state)
{
    bench::shut_gates();
    orvet::scan_cfg cfg(cfg_file("orvet").c_str());
    if (cfg.load() != 0)
        state.SkipWithError("the file was not read");
    for (auto _ : state)
        if (cfg.set_server(2) != 0)
            state.SkipWithError("the file was not rewritten");
}
BENCHMARK(rewrite_orvet)->Name("rewrite/orvet")->UseRealTime()->Unit(benchmark::kMicrosecond);

void rewrite_loaded(benchmark::State & state)
{
    bench::shut_gates();
    const std::string path = cfg_file("loaded");
    for (auto _ : state) {
        orvet::scan_cfg cfg(path.c_str());
        if (cfg.load() != 0 || cfg.set_server(2) != 0)
            state.SkipWithError("the file was not rewritten");
    }
}
BENCHMARK(rewrite_loaded)->Name("rewrite/loaded")->UseRealTime()->Unit(benchmark::kMicrosecond);

bool sync(const std::string & path)
{
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    const bool synced = fsync(file) == 0;
    close(file);
    return synced;
}

/// Reads the lines and writes them in the same order, by the same steps.
void rewrite_fstream(benchmark::State & state)
{
    const std::string path = cfg_file("fstream");
    const std::string stem = path.substr(0, path.size() - 3);
    const std::string temporary = stem + "tmp", backup = stem + "bak";
    const std::string directory = path.substr(0, path.rfind('/'));
    for (auto _ : state) {
        std::vector<std::string> lines, server_lines;
        std::ifstream in(path);
        for (std::string line; std::getline(in, line);)
            (line.starts_with("server:") ? server_lines : lines).push_back(line);
        std::swap(server_lines.at(0), server_lines.at(1));
        {
            std::ofstream out(temporary);
            for (const auto * part : {&lines, &server_lines})
                for (const std::string & line : *part)
                    out << line << '\n';
        }
        const bool synced = sync(temporary);
        std::remove(backup.c_str());
        if (!synced || std::rename(path.c_str(), backup.c_str()) != 0 ||
            std::rename(temporary.c_str(), path.c_str()) != 0 || !sync(directory))
            state.SkipWithError("the file was not rewritten");
    }
}
BENCHMARK(rewrite_fstream)->Name("rewrite/fstream")->UseRealTime()->Unit(benchmark::kMicrosecond);

} // namespace
