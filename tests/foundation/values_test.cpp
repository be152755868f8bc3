#include <map>
#include <unordered_set>

#include "support.h"

namespace {

const std::string with_zero("a\0\xE9\xC3\xA9", 5);

TEST(Values, TextsTakeAndReturnEachByteOfAString)
{
    const std::string_view view = with_zero;
    EXPECT_EQ(std::string(ustring(with_zero)), with_zero);
    EXPECT_EQ(std::string(ustring(view)), with_zero);
    EXPECT_EQ(std::string(pathname(view)), with_zero);
    EXPECT_EQ(ustring(view).mbcs_view(), view);
    EXPECT_EQ(text_of(ustring(std::u16string_view(u"\u00E9\0x", 3))), std::string("\xC3\xA9\0x", 4));
    EXPECT_EQ(std::string(ustring(std::string_view())), "");
}

TEST(Values, TextsAreAddedAndPrinted)
{
    std::ostringstream out;
    out.width(4);
    out << ustring("ab") << pathname("c\xE9") << ustring("d") + ustring("e") + "f" + std::string("g");
    EXPECT_EQ(out.str(), "  abc\xE9"
                         "defg");
}

const struct {
    const char * name;
    pathname path;
    const char * text;
    bool equal;
} path_texts[] = {
    {"the same", "Dir/a", "Dir/a", true},
    {"another case", "Dir/a", "dIR/A", true},
    {"a longer text", "Dir/a", "Dir/ab", false},
    {"the other separator", "Dir/a", "Dir\\a", false},
    {"case outside ASCII", "\xC3\xA9", "\xC3\x89", false},
    {"nothing", "", "", true},
};

TEST(Values, PathsCompareWithTextsByTheirOwnRule)
{
    for (const auto & row : path_texts) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.path == row.text, row.equal);
        EXPECT_EQ(row.text == row.path, row.equal);
        EXPECT_EQ(row.path == ustring(row.text), row.equal);
        EXPECT_EQ(ustring(row.text) != row.path, !row.equal);
        EXPECT_EQ(std::string(row.text) == row.path, row.equal);
        EXPECT_EQ(row.path != pathname(row.text), !row.equal);
    }
}

TEST(Values, KeysOfAMapFollowEquality)
{
    std::map<ustring, int> texts{{"b", 1}, {"B", 2}, {"a", 3}};
    EXPECT_EQ(texts.size(), 3U);
    EXPECT_EQ(text_of(texts.begin()->first), "B");
    const std::map<pathname, int> paths{{"b", 1}, {"B", 2}, {"a", 3}};
    EXPECT_EQ(paths.size(), 2U);
    EXPECT_EQ((std::unordered_set<ustring>{"a", "A", "a"}).size(), 2U);
    EXPECT_EQ((std::unordered_set<pathname>{"a", "A", "b"}).size(), 2U);
}

TEST(Values, PathsBecomeSystemPathsAndBack)
{
    const fs::path system = fs::path(u8"d\xC3\xA9/\xF0\x9F\x99\x82");
    const pathname path = system;
    EXPECT_EQ(std::string(path), "d\xC3\xA9/\xF0\x9F\x99\x82");
    EXPECT_EQ(fs::path(path), system);
    EXPECT_EQ(text_of(kt_file(system).file_name().text()), std::string(path));
}

TEST(Values, ALineCanBeAssignedToAKeyval)
{
    const ustring line = "count = 3";
    keyval value("old");
    value = line;
    ASSERT_EQ(value.getval("count = "), 0);
    EXPECT_EQ(text_of(value), "3");
}

TEST(Items, SkipOtherClassesAndKnowCopies)
{
    user_info user;
    user.set_usUserName("ann");
    vector row;
    row.push_back(user.clone());
    row.push_back(new keyval("k"));
    row.push_back(new auth_profile_info);
    row.push_back(new ustring("u"));
    row.push_back(new user_info(user));
    std::string users;
    for (const user_info & each : items<user_info>(row))
        users += text_of(each.usUserName()) + " ";
    EXPECT_EQ(users, "ann ann ");
    std::string texts;
    for (const ustring & each : items<ustring>(row))
        texts += text_of(each) + " ";
    EXPECT_EQ(texts, "k u ");
    EXPECT_TRUE(items<top_entry>(row).empty());
    std::size_t all = 0;
    for (const codable * item : row)
        all += item != nullptr;
    EXPECT_EQ(all, row.size());
}

} // namespace
