#ifndef ORVET_BENCH_H
#define ORVET_BENCH_H

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include <benchmark/benchmark.h>

namespace bench {

/// The directory of the benchmarks' files: what `bench/run` gives, else one that stays.
inline std::filesystem::path directory()
{
    const char * const given = std::getenv("ORVET_BENCH_DATA");
    const auto path =
        given ? std::filesystem::path(given) : std::filesystem::temp_directory_path() / "orvet_bench";
    std::filesystem::create_directories(path);
    return path;
}

/// The path of a file in it. What is not there yet is written, by `write` to the stream that it is given, so
/// that all programs work on the same bytes.
template <class Write>
std::string data_file(const std::string & name, Write write)
{
    const auto path = directory() / name;
    if (!std::filesystem::exists(path)) {
        const std::string unfinished = path.string() + ".part";
        std::FILE * const file = std::fopen(unfinished.c_str(), "wb");
        write(file);
        std::fclose(file);
        std::filesystem::rename(unfinished, path);
    }
    return path.string();
}

} // namespace bench

#endif
