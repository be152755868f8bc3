// Reading a file line by line. The arguments of a job are the number of lines, the length of one with its
// line feed, and which lines have a character outside ASCII: one in so many, 0 for none.

#include <cstring>
#include <fstream>
#include <memory>

#include <fcntl.h>
#include <unistd.h>

#include <unicode/unistr.h>

#include "bench.h"
#include "peak_memory.h"
#include "silence.h"

namespace {

constexpr long many = 6391321; // of 42 bytes: 256 MB
constexpr long long_line = 1 << 20;

std::string lines_file(const benchmark::State & state, const char * first = "x")
{
    const long lines = state.range(0), length = state.range(1), every = state.range(2);
    const std::string name = "lines_" + std::to_string(lines) + "_" + std::to_string(length) + "_" +
                             std::to_string(every) + (*first == '[' ? "_heads" : "") + ".txt";
    return bench::data_file(name, [=](std::FILE * file) {
        std::string ascii(static_cast<std::size_t>(length) - 1, 'x');
        for (std::size_t i = 0; i < ascii.size(); i += 7)
            ascii[i] = ' ';
        std::string other = ascii;
        if (every != 0)
            other.replace(10, 2, "\xC3\xA9");
        ascii[0] = other[0] = *first;
        for (long i = 0; i < lines; ++i)
            std::fprintf(file, "%s\n", (every != 0 && i % every == 0 ? other : ascii).c_str());
    });
}

void check(benchmark::State & state, long lines)
{
    if (lines != state.range(0))
        state.SkipWithError("lines were lost");
    state.SetBytesProcessed(state.iterations() * state.range(0) * state.range(1));
    state.counters["peak_kb"] = static_cast<double>(bench::peak_kb());
}

void lines_orvet(benchmark::State & state)
{
    bench::shut_gates();
    orvet::kt_file file(orvet::pathname(lines_file(state).c_str()));
    long lines = 0;
    for (auto _ : state) {
        orvet::ustring line;
        file.open("r");
        for (lines = 0; file.get_line(line); ++lines)
            benchmark::DoNotOptimize(line.data());
        benchmark::DoNotOptimize(file.close());
    }
    check(state, lines);
}
BENCHMARK(lines_orvet)
    ->Name("lines/orvet")
    ->Args({many, 42, 0})
    ->Args({many / 2, 42, 0})
    ->Args({many, 42, 10})
    ->Args({64, long_line, 0})
    ->Args({64, 2 * long_line, 0});

void lines_getline(benchmark::State & state)
{
    const std::string path = lines_file(state);
    long lines = 0;
    for (auto _ : state) {
        std::string line;
        std::ifstream file(path);
        for (lines = 0; std::getline(file, line); ++lines)
            benchmark::DoNotOptimize(line.data());
    }
    check(state, lines);
}
BENCHMARK(lines_getline)->Name("lines/getline")->Args({many, 42, 0})->Args({many, 42, 10});

/// The limit: the line ends are found, and nothing is kept.
void lines_memchr(benchmark::State & state, const char * first)
{
    const std::string path = lines_file(state, first);
    constexpr std::size_t block = 65536;
    const std::unique_ptr<char[]> room(new char[block]);
    long lines = 0;
    for (auto _ : state) {
        const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
        lines = 0;
        for (ssize_t got; (got = read(file, room.get(), block)) > 0;) {
            const char * const end = room.get() + got;
            for (const char * at = room.get();
                 (at = static_cast<const char *>(std::memchr(at, '\n', static_cast<std::size_t>(end - at))));
                 ++at) {
                benchmark::DoNotOptimize(at);
                ++lines;
            }
        }
        close(file);
    }
    check(state, lines);
}
BENCHMARK_CAPTURE(lines_memchr, plain, "x")->Name("lines/memchr")->Args({many, 42, 0});
BENCHMARK_CAPTURE(lines_memchr, heads, "[")->Name("heads/memchr")->Args({many, 42, 0});

/// Looks through the whole file for a section that is not in it.
void find_orvet(benchmark::State & state, const char * first)
{
    bench::shut_gates();
    orvet::kt_file file(orvet::pathname(lines_file(state, first).c_str()));
    short found = 0;
    for (auto _ : state) {
        file.open("r");
        found = file.find_section("[no such section]");
        benchmark::DoNotOptimize(file.close());
    }
    check(state, found == orvet::code::section_absent ? state.range(0) : 0);
}
BENCHMARK_CAPTURE(find_orvet, plain, "x")->Name("find/orvet")->Args({many, 42, 0});
BENCHMARK_CAPTURE(find_orvet, heads, "[")->Name("find/orvet_heads")->Args({many, 42, 0});

void lines_ustring(benchmark::State & state)
{
    const std::string path = lines_file(state);
    long lines = 0;
    for (auto _ : state) {
        std::FILE * const file = std::fopen(path.c_str(), "r");
        orvet::ustring line;
        for (lines = 0; line.getline(file); ++lines)
            benchmark::DoNotOptimize(line.data());
        std::fclose(file);
    }
    check(state, lines);
}
BENCHMARK(lines_ustring)->Name("lines/ustring")->Args({many, 42, 0});

/// With the line end cut, as whoever compares lines has to.
void lines_fgets(benchmark::State & state)
{
    const std::string path = lines_file(state);
    long lines = 0;
    for (auto _ : state) {
        std::FILE * const file = std::fopen(path.c_str(), "r");
        char line[512];
        for (lines = 0; std::fgets(line, sizeof line, file); ++lines) {
            line[std::strcspn(line, "\r\n")] = 0;
            benchmark::DoNotOptimize(line);
        }
        std::fclose(file);
    }
    check(state, lines);
}
BENCHMARK(lines_fgets)->Name("lines/fgets")->Args({many, 42, 0});

void lines_icu(benchmark::State & state)
{
    const std::string path = lines_file(state);
    long lines = 0;
    for (auto _ : state) {
        std::string line;
        std::ifstream file(path);
        for (lines = 0; std::getline(file, line); ++lines) {
            const icu::UnicodeString text = icu::UnicodeString::fromUTF8(line);
            benchmark::DoNotOptimize(text.getBuffer());
        }
    }
    check(state, lines);
}
BENCHMARK(lines_icu)->Name("lines/icu")->Args({many, 42, 10});

} // namespace
