// A user file of 100,000 sections.

#include <cstring>
#include <utility>
#include <vector>

#include <ini.h>

#include "bench.h"
#include "silence.h"

namespace {

constexpr std::size_t user_count = 100000;

std::string user_file()
{
    return bench::data_file("users.txt", [](std::FILE * file) {
        for (std::size_t i = 0; i < user_count; ++i)
            std::fprintf(file, "USER=user%zu\nAUTHORIZATION PROFILE=profile%zu\n", i, i % 50);
    });
}

void users_orvet(benchmark::State & state)
{
    bench::shut_gates();
    const orvet::pathname path(user_file().c_str());
    for (auto _ : state) {
        orvet::file_input_parms input;
        if (input.get_fips(path, 1, "USER=", 3) != 0 || input.arSections().size() != user_count)
            state.SkipWithError("the file was not read");
    }
}
BENCHMARK(users_orvet)->Name("users/orvet")->Unit(benchmark::kMillisecond);

void users_inih(benchmark::State & state)
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
    const std::string path = user_file();
    for (auto _ : state) {
        std::vector<user> users;
        if (ini_parse(path.c_str(), store, &users) != 0 || users.size() != user_count)
            state.SkipWithError("the file was not read");
    }
}
BENCHMARK(users_inih)->Name("users/inih")->Unit(benchmark::kMillisecond);

} // namespace
