// Reading lines beside the same runtime's own ways, for runtimes and compilers where Google Benchmark is not
// at hand. Prints a row a peer: the medians of the times and of the ratios of runs right after each other.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>
#include <vector>

#include "silence.h"

namespace {

constexpr char file_name[] = "reading.tmp";
constexpr long lines_in_file = 400000; // of 42 bytes
constexpr int repetitions = 15;

void write_file()
{
    std::string line(41, 'x');
    for (std::size_t i = 0; i < line.size(); i += 7)
        line[i] = ' ';
    std::ofstream file(file_name, std::ios::binary);
    for (long i = 0; i < lines_in_file; ++i)
        file << line << '\n';
}

long read_by_orvet()
{
    orvet::kt_file file{orvet::pathname(file_name)};
    orvet::ustring line;
    long lines = 0;
    if (file.open("r") == 0)
        while (file.get_line(line))
            ++lines;
    return file.close() == 0 ? lines : 0;
}

long read_by_getline()
{
    std::ifstream file(file_name, std::ios::binary);
    std::string line;
    long lines = 0;
    while (std::getline(file, line))
        ++lines;
    return lines;
}

long read_by_fgets()
{
    std::FILE * const file = std::fopen(file_name, "rb");
    char line[512];
    long lines = 0;
    for (; file && std::fgets(line, sizeof line, file); ++lines)
        line[std::strcspn(line, "\r\n")] = 0;
    if (file)
        std::fclose(file);
    return lines;
}

long read_by_ustring()
{
    std::FILE * const file = std::fopen(file_name, "rb");
    orvet::ustring line;
    long lines = 0;
    while (file && line.getline(file))
        ++lines;
    if (file)
        std::fclose(file);
    return lines;
}

using job = long (*)();

/// Milliseconds of one run.
double time_of(job run)
{
    const auto start = std::chrono::steady_clock::now();
    if (run() != lines_in_file) {
        std::fprintf(stderr, "lines were lost\n");
        std::exit(1);
    }
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

double median(std::vector<double> values)
{
    std::nth_element(values.begin(), values.begin() + values.size() / 2, values.end());
    return values[values.size() / 2];
}

void compare(const char * name, job own, const char * against, job peer, double wanted)
{
    std::vector<double> ours;
    std::vector<double> theirs;
    std::vector<double> ratios;
    for (int i = 0; i < repetitions; ++i) {
        ours.push_back(time_of(own));
        theirs.push_back(time_of(peer));
        ratios.push_back(ours.back() / theirs.back());
    }
    const double ratio = median(ratios);
    std::printf("%-34s %-22s %9.3f ms %9.3f ms %8.4f %8.2f%s\n", name, against, median(ours), median(theirs),
                ratio, wanted, ratio > wanted ? "  missed" : "");
}

} // namespace

/// The arguments are the ratios wanted of `get_line` to std::getline and to fgets, and of `ustring::getline`
/// to fgets.
int main(int argc, char ** argv)
{
    const auto wanted = [&](int i) { return i < argc ? std::atof(argv[i]) : 1.0; };
    bench::shut_gates();
    write_file();
    compare("get_line", read_by_orvet, "std::getline", read_by_getline, wanted(1));
    compare("get_line", read_by_orvet, "fgets, line end cut", read_by_fgets, wanted(2));
    compare("ustring::getline", read_by_ustring, "fgets, line end cut", read_by_fgets, wanted(3));
    std::remove(file_name);
    return 0;
}
