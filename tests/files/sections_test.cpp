#include "support.h"

namespace {

constexpr char file_text[] =
    "[one]\n[Two]\n[two] \n[two]\nentries = 4x\nentry\nno sign\nkey = a = b\n  k  =   v \nempty = \n"
    "[bad]\ncount=1\n[last]";

TEST(Sections, WalksForward)
{
    write_file("sections.txt", file_text);
    kt_file file(pathname("sections.txt"));
    ASSERT_EQ(file.open("r"), 0);
    ustring key("kept");
    ustring value("kept");
    int count = 7;
    transcript lines;
    const auto seek = [&](const char * head, int read_count) {
        count = 7;
        lines.step(std::string("seek_section ") + head,
                   [&] { return file.seek_section(head, &count, read_count); });
        lines.note("count " + std::to_string(count));
    };
    const auto find = [&](const char * head) {
        lines.step(std::string("find_section ") + head, [&] { return file.find_section(head); });
    };
    const auto read_pair = [&] {
        lines.step("get_keyval", [&] { return file.get_keyval(key, value); });
        lines.note("<" + text_of(key) + "> <" + text_of(value) + ">");
    };
    find("[two]");
    file.seek(0, SEEK_SET);
    seek("[two]", 1);
    for (int i = 0; i < 5; ++i)
        read_pair();
    seek("[bad]", 1);
    seek("[last]", 1);
    read_pair();
    find("[one]");
    file.seek(0, SEEK_SET);
    lines.step("seek_section without a count", [&] { return file.seek_section("[one]", nullptr, 0); });
    seek("[One]", 0);
    expect_golden("sections", lines_without("kt_file::get_line", lines.take()));
}

const example<std::pair<const char *, int>, std::string> tokens[] = {
    {"the first", {"a,,b", 0}, "a"},        {"an empty one", {"a,,b", 1}, ""},
    {"the last", {"a,,b", 2}, "b"},         {"past the last", {"a,b", 2}, ""},
    {"far past the last", {"a,b", 5}, ""},  {"a negative one", {"a,b", -1}, "a"},
    {"blanks stay", {"a, b ,c", 1}, " b "}, {"of nothing", {"", 1}, ""},
};

TEST(Sections, TokensAreCountedFromZero)
{
    expect_each(tokens, [](const auto & each) { return text_of(get_token(each.first, each.second)); });
}

const example<const char *, std::string> counts[] = {
    {"a count", "count = 4", "0, 4"},
    {"in capitals, with blanks", "COUNT =   4x", "0, 4"},
    {"no number", "count = x", "0, 0"},
    {"a negative number", "count = -4", "0, -4"},
    {"no blanks around the sign", "count=4", "259, 7"},
    {"another key", "counts = 4", "259, 7"},
    {"too short", "count", "259, 7"},
};

TEST(Sections, CountLinesHaveTheirForm)
{
    expect_each(counts, [](const char * line) {
        int count = 7;
        const short code = get_count(line, &count);
        return std::to_string(code) + ", " + std::to_string(count);
    });
}

const example<std::pair<const char *, const char *>, std::string> values[] = {
    {"a value", {"Dummy  x y ", "dummy"}, "0 <x y >"},
    {"no value", {"dummy", "dummy"}, "0 <>"},
    {"another key", {"dumm x", "dummy"}, "1 <dumm x>"},
    {"a longer key", {"dum", "dummy"}, "1 <dum>"},
};

TEST(Sections, KeyvalTakesAKeyOff)
{
    expect_each(values, [](const auto & each) {
        keyval text(each.first);
        const int differs = text.getval(each.second) != 0 ? 1 : 0;
        return std::to_string(differs) + " <" + text_of(text) + ">";
    });
}

TEST(Sections, ServerFormDoublesTheName)
{
    EXPECT_EQ(text_of(build_server_rr("HQ1")), "HQ1_HQ1");
    EXPECT_EQ(text_of(build_server_rr("")), "");
}

} // namespace
