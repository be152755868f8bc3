#include "support.h"

#include <memory>
#include <tuple>

using namespace orvet;
using namespace orvet_test;
namespace {
TEST(Ustring, AnyBytesComeBackAsTheyWere) {
    const std::string samples[] = {"",
                                   "plain",
                                   "caf\xC3\xA9",
                                   "caf\xE9",
                                   "\xF0\x9F\x99\x82 smile",
                                   "\xC0\xAF overlong",
                                   "\xED\xA0\x80 surrogate",
                                   "\xF4\x90\x80\x80 too high",
                                   "cut \xE2\x82",
                                   std::string("zero\0inside", 11),
                                   "\xFF\xFE\x80",
                                   "\xEF\xBB\xBFmark"};
    for (const std::string & sample : samples) {
        const ustring text = from_bytes(sample);
        EXPECT_EQ(text_of(text), sample);
        EXPECT_EQ(text_of(ustring(text).append("!").remove(text.length())), sample);
    }
    const ustring text("a\xC3\xA9\xF0\x9F\x99\x82\xE9");
    EXPECT_EQ(std::u16string(text.data(), text.length()), u"a\u00E9\xD83D\xDE42\xDCE9");
    EXPECT_EQ(text.data()[text.length()], u'\0');
}

TEST(Ustring, EditsInPlace) {
    const auto abc = [] { return ustring("abcdef"); };
    const ustring xy("xy");
    const std::pair<ustring, const char *> cases[] = {{abc().append("gh"), "abcdefgh"},
                                                      {abc() += xy, "abcdefxy"},
                                                      {abc().insert(2, xy, 0, ustring::npos), "abxycdef"},
                                                      {abc().insert(2, xy, 1, 1), "abycdef"},
                                                      {abc().insert(2, xy, 2, 1), "abcdef"},
                                                      {abc().insert(99, xy, 0, ustring::npos), "abcdefxy"},
                                                      {abc().remove(1, 2), "adef"},
                                                      {abc().remove(4, ustring::npos), "abcd"},
                                                      {abc().remove(6, 1), "abcdef"},
                                                      {abc().assign(xy, 1, ustring::npos), "y"},
                                                      {abc().assign(xy, 2, 1), ""},
                                                      {ustring(abc(), 2, 3), "cde"},
                                                      {ustring(abc(), 9, 3), ""},
                                                      {abc().to_upper(1, 2), "aBCdef"},
                                                      {ustring("\xC3\xA9Zz").to_lower(0, ustring::npos), "\xC3\xA9zz"},
                                                      {ustring("  a b  ").strip(ustring::strip_front, ' '), "a b  "},
                                                      {ustring("  a b  ").strip(ustring::strip_back, ' '), "  a b"},
                                                      {ustring("  a b  ").strip(ustring::strip_both, ' '), "a b"},
                                                      {ustring("    ").strip(ustring::strip_both, ' '), ""},
                                                      {ustring(static_cast<const char *>(nullptr)), ""}};
    for (const auto & [result, expected] : cases) EXPECT_EQ(text_of(result), expected);
    ustring text("0123456789"); // its own text, also where it grows past what it keeps inside itself
    text.append(text).append(text);
    EXPECT_EQ(text_of(text), "0123456789012345678901234567890123456789");
    text.assign(text, 30, ustring::npos).insert(5, text, 0, 5);
    EXPECT_EQ(text_of(text), "012340123456789");
    text.assign(text.mbcs_str() + 10).append(text.mbcs_str());
    EXPECT_EQ(text_of(text), "5678956789");
    EXPECT_EQ(text_of(text.to_upper().append("z")), "5678956789z");
}

TEST(Ustring, FindsAndCompares) {
    const ustring text("a=b = c = d");
    constexpr char16_t mark[] = u" = ", letters[] = u"CD";
    const std::pair<unsigned, unsigned> found[] = {{text.find(u'=', 2, 0), 4},
                                                   {text.find(u'a', 99, 0), ustring::npos},
                                                   {text.find(mark, 0, 3, 0), 3},
                                                   {text.find(mark, 4, ustring::npos, 0), 7},
                                                   {text.find(u'x', 0, 0), ustring::npos},
                                                   {text.find_first_of(letters, 0, 2, 0), ustring::npos},
                                                   {text.find_first_of(letters, 0, ustring::npos, 1), 6},
                                                   {ustring("\\/x").find_first_not_of(u"/\\", 0, 2, 0), 2}};
    for (const auto & [result, expected] : found) EXPECT_EQ(result, expected);
    const std::tuple<const char *, unsigned, const char *, int, int> cases[] = {{"Count = 4", 8, "count = ", 1, 0},
                                                                                {"Count = 4", 8, "count = ", 0, -1},
                                                                                {"cou", 8, "count = ", 1, -1},
                                                                                {"count", 99, "coun", 0, 1},
                                                                                {"", 0, "", 0, 0},
                                                                                {"\xC3\x89", 1, "\xC3\xA9", 1, -1}};
    for (const auto & [one, n, other, flag, expected] : cases)
        EXPECT_EQ(ustring(one).compare(0, n, other, 0, ustring::npos, flag), expected) << one;
    EXPECT_TRUE(ustring("SEND=x").begins_with("SEND=") && !ustring("SEN").begins_with("SEND="));
}

TEST(Ustring, ReadsLines) {
    const std::string longest(100000, 'x'), filling(4095, 'x');
    const std::pair<std::string, std::vector<std::string>> cases[] = {
        {"", {}},
        {"\n", {""}},
        {"a\nb", {"a", "b"}},
        {"a\r\nb\r\n", {"a", "b"}},
        {"a\r\rb\r", {"a\r\rb\r"}},
        {std::string("z\0z\n", 4), {std::string("z\0z", 3)}},
        {"l\xE9\nu\xC3\xA9\n", {"l\xE9", "u\xC3\xA9"}},
        {longest + "\n" + longest + "\r\nend", {longest, longest, "end"}},
        {filling + "\r\nnext", {filling, "next"}}, // what the end of a filling of the stream cuts
        {filling + "\xC3\xA9\n", {filling + "\xC3\xA9"}}};
    for (const auto & [bytes, expected] : cases) {
        write_file("lines.txt", bytes);
        std::FILE * const file = std::fopen("lines.txt", "rb");
        ustring line("as it was");
        std::vector<std::string> lines;
        while (line.getline(file)) lines.push_back(text_of(line));
        EXPECT_EQ(lines, expected);
        EXPECT_EQ(text_of(line), lines.empty() ? "as it was" : lines.back());
        EXPECT_EQ(std::ftell(file), static_cast<long>(bytes.size()));
        std::fclose(file);
    }
    write_file("lines.txt", "first\nsecond\nthird\n"); // other readers of the stream go on where a line ends
    std::FILE * const file = std::fopen("lines.txt", "rb");
    ustring line;
    char buffer[64];
    EXPECT_TRUE(line.getline(file));
    EXPECT_EQ(std::ftell(file), 6);
    EXPECT_STREQ(std::fgets(buffer, sizeof buffer, file), "second\n");
    EXPECT_TRUE(line.getline(file));
    EXPECT_EQ(text_of(line), "third");
    std::fclose(file);
}

TEST(Pathname, JoinsElementsOnBothSystems) {
    const char * const cases[][4] = {{"/opt/k", "bin", "/opt/k/bin", "/opt/k\\bin"},
                                     {"/opt/k/", "bin", "/opt/k/bin", "/opt/k/bin"},
                                     {"c:\\k\\", "bin", "c:\\k\\bin", "c:\\k\\bin"},
                                     {"a", "//\\b/c", "a/b/c", "a\\b/c"},
                                     {"a", "\\", "a/", "a\\"},
                                     {"a/", "\\", "a/", "a/"},
                                     {"a//", "b", "a//b", "a//b"},
                                     {"a", "", "a", "a"},
                                     {"", "b", "b", "b"},
                                     {"", "/b", "b", "b"},
                                     {"", "\\", "", ""},
                                     {"a", "b/", "a/b/", "a\\b/"}};
    for (const auto & [path, element, posix, windows] : cases) {
        EXPECT_EQ(text_of(join_path(path, element, u'/')), posix);
        EXPECT_EQ(text_of(join_path(path, element, u'\\')), windows);
    }
    pathname path("a");
    path += path.text();
    EXPECT_EQ(std::string(path.mbcs_str()), native("a/a"));
}

/// An object that tells when it goes.
struct counted : ktobject {
    explicit counted(int & gone) : gone_(gone) {}
    ~counted() override { ++gone_; }
    int & gone_;
};

TEST(Vector, ItemsGoWithTheirLastHolder) {
    int gone = 0;
    {
        vector first, third;
        first.push_back(new counted(gone));
        first.push_back(new counted(gone));
        first.push_back(nullptr);
        vector second(first);
        third = second;
        first.resize(0);
        second.remove(0);
        EXPECT_EQ(gone, 0);
        for (const int none : {0, -1, 1}) third.remove(none); // of these only the first is there
        EXPECT_EQ(gone, 1);
        EXPECT_TRUE(third.size() == 1 && third[0] == second.items()[0] && third[1] == nullptr);
    }
    EXPECT_EQ(gone, 2);
}

TEST(ObjectFamily, ComparesAsTheClassesDo) {
    const ustring a("a");
    const pathname path("A/b");
    const pair one("k", "v");
    const codable &as_text = a, &as_path = path, &as_pair = one;
    EXPECT_TRUE(a == ustring("a") && a != ustring("A"));
    EXPECT_TRUE(path == pathname("a/B") && path != pathname("a/c"));
    EXPECT_TRUE(one == pair("k", "v") && one != pair("k", "w") && one != pair("l", "v"));
    // Through the root, from either side, and with an object of another class.
    EXPECT_TRUE(as_text == a && a == as_text && as_path == path && path == as_path && as_pair == one);
    EXPECT_FALSE(as_text == path || path == as_text || as_path == a || as_pair == a || a == as_pair);
    EXPECT_TRUE(as_text != path && as_pair != a && a != as_pair);
    EXPECT_TRUE(vector().operator==(as_text) && ktobject().operator==(as_text) && keyval("a") == a);
}

TEST(ObjectFamily, ClonesAndNames) {
    vector sections;
    sections.push_back(new sof_entry("[hq]", sof_entry::target_sect));
    top_entry domain("HQ1", "p", sections);
    const std::unique_ptr<codable> copy(domain.clone());
    static_cast<top_entry &>(*copy).trg_sect_info.resize(0);
    EXPECT_EQ(text_of(static_cast<sof_entry &>(*domain.trg_sect_info[0]).sect_name), "[hq]");
    EXPECT_EQ(copy->codable_name() + std::to_string(copy->hash_code()), "com.corvan.qx.cmObjects.ktobject0");
    EXPECT_EQ(ktobject().clone(), nullptr);
    EXPECT_EQ(ustring("x").hash_code(), pathname("x").hash_code());
    EXPECT_TRUE(*std::unique_ptr<codable>(pair("k", "v").clone()) == pair("k", "v"));
    EXPECT_TRUE(*std::unique_ptr<codable>(keyval("k").clone()) == ustring("k"));
}
} // namespace
