// Runs the targets on the inputs that are kept: replay DIRECTORY..., each with a directory a target.

#include "fuzz.h"

int main(int argc, char ** argv)
{
    if (!std::freopen("replay.out", "w", stdout)) // what the library prints is ignored
        return 1;
    int inputs = 0;
    std::error_code none;
    for (int i = 1; i < argc; ++i)
        for (const auto & input : std::filesystem::recursive_directory_iterator(argv[i], none)) {
            const std::string file = input.path().string();
            if (!input.is_regular_file())
                continue;
            run(input.path().parent_path().filename().string(), read_file(file.c_str()), file);
            ++inputs;
        }
    std::fprintf(stderr, "%d inputs\n", inputs);
    return inputs == 0; // a test of nothing must not pass
}
