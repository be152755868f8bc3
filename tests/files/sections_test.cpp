#include "support.h"

namespace {

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
