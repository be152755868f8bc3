// Reading a user file of 100,000 sections, beside a plain parser of "key=value" lines on the same bytes. Both
// open the file anew each time, with all channels silent.

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>
#include <ini.h>

#include <orvet/orvet.h>

namespace {

constexpr int section_count = 100000;

const std::string & user_file()
{
    static const std::string path = [] {
        const auto name = std::filesystem::temp_directory_path() / "orvet_bench_users.txt";
        std::ofstream file(name, std::ios::binary);
        for (int i = 0; i < section_count; ++i)
            file << "USER=user" << i << "\nAUTHORIZATION PROFILE=profile" << i % 50 << "\n";
        return name.string();
    }();
    return path;
}

void close_gates()
{
    orvet::trace::set_level(orvet::system_trace::wa(), 5);
    orvet::trace::set_level(orvet::log::wa(), 5);
}

void users_get_fips(benchmark::State & state)
{
    close_gates();
    const orvet::pathname path(user_file().c_str());
    for (auto _ : state) {
        orvet::file_input_parms input;
        const short rc = input.get_fips(path, 1, "USER=", 3);
        if (rc != 0 || input.arSections().size() != section_count)
            state.SkipWithError("the file was not read");
    }
    state.SetItemsProcessed(state.iterations() * section_count);
}
BENCHMARK(users_get_fips)->Unit(benchmark::kMillisecond);

void users_ini_parse_nothing(benchmark::State & state)
{
    const auto ignore = [](void *, const char *, const char *, const char *) { return 1; };
    for (auto _ : state)
        if (ini_parse(user_file().c_str(), ignore, nullptr) != 0)
            state.SkipWithError("the file was not read");
    state.SetItemsProcessed(state.iterations() * section_count);
}
BENCHMARK(users_ini_parse_nothing)->Unit(benchmark::kMillisecond);

void users_ini_parse_records(benchmark::State & state)
{
    struct user {
        std::string name;
        std::string profile;
    };
    const auto store = [](void * to, const char *, const char * key, const char * value) {
        auto & users = *static_cast<std::vector<user> *>(to);
        if (std::strcmp(key, "USER") == 0)
            users.push_back({value, {}});
        else if (std::strcmp(key, "AUTHORIZATION PROFILE") == 0 && !users.empty())
            users.back().profile = value;
        else
            return 0;
        return 1;
    };
    for (auto _ : state) {
        std::vector<user> users;
        if (ini_parse(user_file().c_str(), store, &users) != 0 || users.size() != section_count)
            state.SkipWithError("the file was not read");
    }
    state.SetItemsProcessed(state.iterations() * section_count);
}
BENCHMARK(users_ini_parse_records)->Unit(benchmark::kMillisecond);

} // namespace
