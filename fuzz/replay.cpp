// Runs every target on the inputs that are kept: replay DIRECTORY..., each with a directory a target.
#include <cstdio>
#include <filesystem>

#include "fuzz.h"

namespace fs = std::filesystem;

int main(int argc, char ** argv)
{
    if (!std::freopen("replay.out", "w", stdout)) // what the library prints is of no account
        return 1;
    int inputs = 0;
    for (const fuzz::target * target = fuzz::target::first; target; target = target->next) {
        fuzz::run(*target, "");
        for (int i = 1; i < argc; ++i) {
            const fs::path directory = fs::path(argv[i]) / target->name;
            if (!fs::is_directory(directory))
                continue;
            for (const fs::directory_entry & input : fs::directory_iterator(directory)) {
                std::fprintf(stderr, "%s: %s\n", target->name, input.path().filename().string().c_str());
                fuzz::run(*target, fuzz::read_file(input.path().string().c_str()));
                ++inputs;
            }
        }
    }
    std::fprintf(stderr, "%d inputs\n", inputs);
    return inputs == 0; // a test of nothing must not pass
}
