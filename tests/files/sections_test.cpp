#include "support.h"

using namespace orvet;
using namespace orvet_test;

namespace {

TEST(Sections, TakesLinesApart) {
    const struct {
        const char * text;
        int index;
        const char * token;
    } tokens[] = {{"a,,b", 0, "a"}, {"a,,b", 1, ""}, {"a,,b", 2, "b"},    {"a,b", 5, ""},
                  {"a,b", -1, "a"}, {"", 0, ""},     {" a , b", 1, " b"}, {"a,", 1, ""}};
    for (const auto & each : tokens)
        EXPECT_EQ(text_of(get_token(each.text, each.index)), each.token) << each.text << " " << each.index;

    const struct {
        const char * line;
        short code;
        int count;
    } counts[] = {{"count = 4", 0, 4},   {"COUNT =    4", 0, 4},
                  {"count = x", 0, 0},   {"count = 12abc", 0, 12},
                  {"count = -3", 0, -3}, {"count = 99999999999", 0, 2147483647},
                  {"count=4", 259, 7},   {" count = 4", 259, 7},
                  {"coun", 259, 7},      {"", 259, 7}};
    for (const auto & each : counts) {
        int count = 7;
        EXPECT_EQ(get_count(each.line, &count), each.code) << each.line;
        EXPECT_EQ(count, each.count) << each.line;
    }

    EXPECT_EQ(text_of(build_server_rr("HQ1")), "HQ1_HQ1");
    EXPECT_EQ(text_of(build_server_rr("")), "");

    keyval line("Local Name:   x y ");
    EXPECT_NE(line.getval("Local name: longer than that"), 0);
    EXPECT_NE(line.getval("Remote"), 0);
    EXPECT_EQ(line.getval("local name:"), 0);
    EXPECT_EQ(text_of(line), "x y ");
}

constexpr char file_text[] = "lead\n"
                             "[Topology]\n"
                             "[topology] \n"
                             "[topology]\n"
                             "entries = 4\n"
                             "a = b = c\n"
                             "no separator=\n"
                             "empty = \n"
                             "[bad]\n"
                             "no count\n"
                             "[last]";

TEST(Sections, WalksForward) {
    write_file("sections.txt", file_text);
    kt_file file(pathname("sections.txt"));
    EXPECT_EQ(file.open("r"), 0);
    transcript lines(1);
    ustring key, value;
    int count = 7;
    EXPECT_EQ(file.find_section("[topology]"), 0);
    lines.take();
    EXPECT_EQ(file.get_keyval(key, value), 0);
    EXPECT_EQ(text_of(key) + "|" + text_of(value), "entries|4");
    EXPECT_EQ(file.get_keyval(key, value), 0);
    EXPECT_EQ(text_of(key) + "|" + text_of(value), "a|b = c");
    EXPECT_EQ(file.get_keyval(key, value), 258);
    EXPECT_EQ(text_of(key) + "|" + text_of(value), "a|b = c");
    EXPECT_EQ(file.get_keyval(key, value), 0);
    EXPECT_EQ(text_of(key) + "|" + text_of(value), "empty|");
    lines.take();
    EXPECT_EQ(file.find_section("[topology]"), -1);
    EXPECT_EQ(lines.take("Section"), "T[I] kt_file::find_section Section not found reading kt_file while locating "
                                     "<[topology]>\n");
    EXPECT_EQ(file.get_keyval(key, value), 0);
    EXPECT_EQ(text_of(key) + "|" + text_of(value), "empty|");

    EXPECT_EQ(file.seek(0, SEEK_SET), 0);
    EXPECT_EQ(file.seek_section("[topology]", &count, 1), 0);
    EXPECT_EQ(count, 4);
    EXPECT_EQ(lines.take("found"), "T[I] kt_file::seek_section Section <[topology]> found. Count = <4> \n");
    EXPECT_EQ(file.seek_section("[bad]", nullptr, 0), 0);
    EXPECT_EQ(file.seek(0, SEEK_SET), 0);
    EXPECT_EQ(file.seek_section("[bad]", &count, 1), 258);
    EXPECT_EQ(lines.take("Error"), "T[E] kt_file::seek_section Error 258 parsing line\n");
    EXPECT_EQ(file.seek_section("[last]", &count, 1), 0);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(file.seek_section("[none]", &count, 1), 260);
    EXPECT_EQ(lines.take("Error"), "T[E] kt_file::seek_section Error reading kt_file while locating <[none]>\n");
    EXPECT_EQ(file.close(), 0);
}

} // namespace
