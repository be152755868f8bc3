#include "support.h"

namespace {
// What is read stands beside a model, with the other inputs that are generated.
TEST(Sections, WalksForward)
{
    write_file("sections.txt",
               "lead\n[Topology]\n[topology] \n[topology]\nentries = 4\n[bad]\nno count\n[last]");
    kt_file file(pathname("sections.txt"));
    EXPECT_EQ(file.open("r"), 0);
    int count = 4;
    EXPECT_EQ(file.find_section("[topology]"), 0);
    EXPECT_EQ(without({"get_line"}, told([&] { return file.find_section("[topology]"); }, 1)),
              "T[I] kt_file::find_section Section not found reading kt_file while locating <[topology]>\n-1");
    const std::tuple<const char *, int, int, const char *> cases[] = {
        {"[topology]", 2, 4, "T[I] kt_file::seek_section Section <[topology]> found. Count = <4> \n0"},
        {"[bad]", 0, 4, "0"},
        {"[bad]", 1, 4, "T[E] kt_file::seek_section Error 258 parsing line\n258"},
        {"[last]", 1, 0, "T[I] kt_file::seek_section Section <[last]> found. Count = <0> \n0"},
        {"[none]", 1, 0, "T[E] kt_file::seek_section Error reading kt_file while locating <[none]>\n260"}};
    for (const auto & each : cases) {
        const auto seek = [&] {
            return file.seek_section(std::get<0>(each), std::get<1>(each) ? &count : nullptr,
                                     std::get<1>(each));
        };
        EXPECT_EQ(file.seek(0, SEEK_SET), 0);
        EXPECT_EQ(without({"get_line"}, told(seek, 1)), std::get<3>(each));
        EXPECT_EQ(count, std::get<2>(each));
    }
    EXPECT_EQ(file.close(), 0);
}
} // namespace
