// Full loads: the time that each takes, the most memory, the streams open before and after, and how
// both have grown against half the load. Each runs in a process and a directory of its own.
//
// usage: bench_load [--quick] [WORD]
//
// --quick takes a hundredth of each load; WORD runs only those whose name holds it. Not 0 when a result was
// wrong, a stream stayed open, or something grew without a reason.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <orvet/orvet.h>

#include "peak_memory.h"
#include "scan_file.h"

namespace {

namespace fs = std::filesystem;

struct load {
    const char * name;
    long size;
    const char * memory_for;    // what memory may grow with; empty for nothing
    void (*prepare)(long size); // writes files to the current directory, ahead of the measurement
    void (*run)(long size);     // throws what went wrong
};

void require(bool right, const char * what)
{
    if (!right)
        throw std::runtime_error(what);
}

template <class Write>
void write_file(const char * name, Write write)
{
    std::FILE * const file = std::fopen(name, "wb");
    require(file, "no file could be made");
    write(file);
    require(std::fclose(file) == 0, "the disk is full");
}

std::string text_of(const char * name)
{
    std::ifstream file(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void write_scan(long domains, long entries)
{
    write_file("scan.res", [=](std::FILE * file) { bench::write_scan(file, domains, entries); });
}

/// What a tool does: loads the domains, then reads the entries of each.
void read_scan(long domains, long entries)
{
    orvet::kt_file file(orvet::pathname("scan.res"));
    orvet::ustring server;
    orvet::ustring line;
    orvet::vector found;
    require(file.open("r") == 0 && file.find_section("[topology]") == 0, "no topology");
    require(file.load_top(server, found) == 0 && file.load_offsets(found) == 0, "not loaded");
    require(found.size() == domains, "domains were lost");
    for (unsigned i = 0; i < found.size(); ++i) {
        const auto & domain = static_cast<const orvet::top_entry &>(*found[i]);
        const auto & section = static_cast<const orvet::sof_entry &>(*domain.trg_sect_info[0]);
        require(file.seek(section.sect_offset, SEEK_SET) == 0, "no section");
        for (int j = 0; j < section.sect_count; ++j)
            if (file.get_line(line) && line.begins_with("target"))
                --entries;
    }
    require(entries == 0 && file.close() == 0, "entries were lost");
}

void write_users(long users)
{
    write_file("users.txt", [=](std::FILE * file) {
        for (long i = 0; i < users; ++i)
            std::fprintf(file, "USER=user%ld\nAUTHORIZATION PROFILE=profile%ld\n", i, i % 50);
    });
}

void read_users(long users)
{
    orvet::file_input_parms input;
    require(input.get_fips("users.txt", 1, "USER=", 3) == 0, "not read");
    require(input.arSections().size() == users, "users were lost");
}

/// Two servers behind lines of other things.
void write_cfg(long lines)
{
    write_file("brod.cfg", [=](std::FILE * file) {
        for (long i = 2; i < lines; ++i)
            std::fprintf(file, "KEY %07ld: value\n", i);
        std::fputs("SERVER: a\nSERVER: b\n", file);
    });
}

void rewrite(long times)
{
    const std::string before = text_of("brod.cfg");
    const std::string generic = before.substr(0, before.find("SERVER"));
    for (long i = 0; i < times; ++i) {
        orvet::scan_cfg cfg("brod.cfg");
        require(cfg.load() == 0 && cfg.set_server(2) == 0, "not rewritten");
        require(text_of("brod.cfg") ==
                    generic + (i % 2 ? "SERVER: a\nSERVER: b\n" : "SERVER: b\nSERVER: a\n"),
                "lines were lost");
    }
}

void rewrite_lines(long lines)
{
    orvet::scan_cfg cfg("brod.cfg");
    require(cfg.load() == 0 && cfg.set_server(2) == 0, "not rewritten");
    require(fs::file_size("brod.cfg") == fs::file_size("brod.bak"), "lines were lost");
    require(cfg.generic_lines().size() + 2 == lines, "lines were lost");
}

void write_line(long length)
{
    write_file("line.txt", [=](std::FILE * file) {
        const std::string piece(1 << 16, 'x');
        for (long left = length; left > 0; left -= static_cast<long>(piece.size()))
            std::fwrite(piece.data(), 1, std::min(piece.size(), static_cast<std::size_t>(left)), file);
        std::fputs("\nshort\n", file);
    });
}

void copy_line(long length)
{
    orvet::kt_file from(orvet::pathname("line.txt"));
    orvet::kt_file to(orvet::pathname("copy.txt"));
    orvet::ustring line;
    require(from.open("r") == 0 && to.open("w") == 0, "not opened");
    require(from.get_line(line) && line.length() == length, "not read");
    require(to.write(line) == 0, "not written");
    require(from.get_line(line) && line == "short", "what follows was lost");
    require(from.close() == 0 && to.close() == 0, "not closed");
    require(fs::file_size("copy.txt") == static_cast<std::uintmax_t>(length), "bytes were lost");
}

void trace_lines(long lines)
{
    orvet::trace::set_level(orvet::system_trace::wa(), 0);
    const orvet::call_trace trace("trace_lines");
    for (long i = 1; i < lines; ++i)
        trace.info("line %d of %s", i, "many");
    orvet::trace::set_level(orvet::system_trace::wa(), 6);
    std::ifstream file("ktx1.trc");
    long left = lines;
    for (std::string line; std::getline(file, line);)
        --left;
    require(left == 0, "lines were lost");
}

void run_commands(long commands)
{
    fs::create_directory("migr");
    for (long i = 0; i < commands; ++i) {
        orvet::brod_base command(orvet::sset_out_file("command.out"), orvet::sset_out_file("final.out"));
        orvet::ustring line;
        command.set_brod_cmd("echo answer", 1);
        require(command.exec_brod_cmd(1, 1) == 0, "a command failed");
        require(command.out_file().open("r") == 0 && command.out_file().get_line(line), "no answer");
    }
}

// clang-format off
const load loads[] = {
    {"scan result file, entries", 10000000, "",
     [](long n) { write_scan(32767, n); }, [](long n) { read_scan(32767, n); }},
    {"scan result file, domains", 32767, "each domain",
     [](long n) { write_scan(n, 1000000); }, [](long n) { read_scan(n, 1000000); }},
    {"input file, users", 1000000, "each user", write_users, read_users},
    {"\"brod.cfg\", lines", 1000000, "each line", write_cfg, rewrite_lines},
    {"rewrites of \"brod.cfg\"", 10000, "", [](long) { write_cfg(20); }, rewrite},
    {"one line, bytes", 512L << 20, "each byte", write_line, copy_line},
    {"trace lines", 1000000, "", [](long) {}, trace_lines},
    {"commands", 10000, "", [](long) {}, run_commands},
};
// clang-format on

struct outcome {
    double seconds;
    double user; // seconds of the processor outside the system, those of commands with them
    long peak_kb;
    long streams_before;
    long streams_after;
    char error[64]; // empty when all went well
};

double memory(const outcome & one)
{
    return static_cast<double>(one.peak_kb);
}

long open_streams()
{
    return std::distance(fs::directory_iterator("/proc/self/fd"), {}) - 1; // that of the listing itself
}

double user_seconds()
{
    double seconds = 0;
    for (const int who : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
        rusage usage;
        getrusage(who, &usage);
        seconds +=
            static_cast<double>(usage.ru_utime.tv_sec) + static_cast<double>(usage.ru_utime.tv_usec) / 1e6;
    }
    return seconds;
}

outcome run_here(const load & each, long size)
{
    outcome result{};
    try {
        const fs::path directory = fs::current_path();
        setenv("KTXPATH", directory.c_str(), 1);
        setenv("brdcfg", directory.c_str(), 1);
        each.prepare(size);
        orvet::trace::set_level(orvet::system_trace::wa(), 6); // opens the channels
        orvet::trace::set_level(orvet::log::wa(), 0);
        result.streams_before = open_streams();
        const auto begin = std::chrono::steady_clock::now();
        const double user = user_seconds();
        each.run(size);
        result.user = user_seconds() - user;
        result.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
        result.streams_after = open_streams();
        result.peak_kb = bench::peak_kb();
    } catch (const std::exception & problem) {
        std::snprintf(result.error, sizeof result.error, "%s", problem.what());
    }
    return result;
}

outcome run_apart(const load & each, long size, const fs::path & directory)
{
    outcome result{};
    std::snprintf(result.error, sizeof result.error, "crashed");
    fs::create_directory(directory);
    int ends[2];
    const pid_t child = pipe(ends) == 0 ? fork() : -1;
    if (child == 0) {
        close(ends[0]);
        fs::current_path(directory);
        result = run_here(each, size);
        _exit(write(ends[1], &result, sizeof result) != sizeof result);
    }
    if (child > 0) {
        close(ends[1]);
        if (read(ends[0], &result, sizeof result) < 0)
            std::perror("bench_load");
        close(ends[0]);
        waitpid(child, nullptr, 0);
    }
    fs::remove_all(directory);
    return result;
}

double ratio(double whole, double half)
{
    return half > 0 ? whole / half : 0;
}

/// Prints what is wrong with a load, if anything is. A little more than in proportion is the noise of the
/// machine; a time that is hardly one says nothing, and the system's own depends on what it did before.
bool judge(const load & each, const outcome & half, const outcome & whole)
{
    bool right = true;
    const auto expect = [&](bool what, const char * otherwise) {
        if (!what)
            std::printf("    wrong: %s\n", otherwise);
        right = right && what;
    };
    for (const outcome & one : {half, whole}) {
        expect(!*one.error, one.error);
        expect(one.streams_after == one.streams_before, "streams stayed open");
    }
    expect(ratio(memory(whole), memory(half)) <= (*each.memory_for ? 2.2 : 1.1),
           "memory has grown without a reason");
    expect(half.user < 0.2 || ratio(whole.user, half.user) <= 3, "time has grown out of proportion");
    return right;
}

bool measure(const load & each, long size, const fs::path & scratch)
{
    const outcome half = run_apart(each, size / 2, scratch / "half");
    const outcome whole = run_apart(each, size, scratch / "whole");
    std::printf("%-25s %10ld %8.2f %6.2f %8.2f %6.2f %8.1f %6.2f %7ld %6ld  %s", each.name, size,
                whole.seconds, ratio(whole.seconds, half.seconds), whole.user, ratio(whole.user, half.user),
                memory(whole) / 1024, ratio(memory(whole), memory(half)), whole.streams_before,
                whole.streams_after, each.memory_for);
    if (*each.memory_for)
        std::printf(", %.0f bytes",
                    (memory(whole) - memory(half)) * 1024 / static_cast<double>(size - size / 2));
    std::printf("\n");
    const bool right = judge(each, half, whole);
    std::fflush(stdout);
    return right;
}

} // namespace

int main(int argc, char ** argv)
{
    const bool quick = argc > 1 && std::string(argv[1]) == "--quick";
    const std::string word = argc > 1 + quick ? argv[1 + quick] : "";
    std::string scratch = (fs::temp_directory_path() / "orvet_load_XXXXXX").string();
    if (!mkdtemp(scratch.data())) {
        std::perror(scratch.c_str());
        return 1;
    }
    std::printf("%-25s %10s %8s %6s %8s %6s %8s %6s %7s %6s  %s\n", "load", "size", "seconds", "x half",
                "user", "x half", "peak MB", "x half", "streams", "after", "memory grows with");
    std::fflush(stdout);
    int wrong = 0;
    for (const load & each : loads)
        if (std::string(each.name).find(word) != std::string::npos)
            wrong += !measure(each, quick ? each.size / 100 : each.size, scratch);
    fs::remove_all(scratch);
    return wrong != 0;
}
