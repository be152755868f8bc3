#include "support.h"

namespace {
TEST(Ustring, AnyBytesComeBackAsTheyWere)
{
    std::string wide;
    for (int i = 0; i < 1000; ++i)
        wide += "\xE2\x82\xAC";
    const std::pair<std::string, std::u16string> samples[] = {
        {"", u""},
        {"caf\xC3\xA9 caf\xE9", u"caf\u00E9 caf\xDCE9"},
        {"\xC2\x80", u"\x80"},
        {"\x7F \xC2\x80 \xDF\xBF \xE0\xA0\x80 \xED\x9F\xBF \xEE\x80\x80 \xEF\xBF\xBF \xF0\x90\x80\x80 "
         "\xF4\x8F\xBF\xBF",
         u"\x7F \x80 \u07FF \u0800 \uD7FF \uE000 \uFFFF \xD800\xDC00 \xDBFF\xDFFF"}, // first and last of each
                                                                                     // length
        {"16 of ASCII, then \xC3\xA9 and 16 of it again", u"16 of ASCII, then \u00E9 and 16 of it again"},
        {"8 ASCII \xF0\x9F\x99\x82 in the second half", u"8 ASCII \xD83D\xDE42 in the second half"},
        {std::string("zero\0inside", 11), std::u16string(u"zero\0inside", 11)},
        {wide, std::u16string(1000, u'\u20AC')}};
    for (const auto & [bytes, units] : samples) {
        const ustring text = from_bytes(bytes);
        EXPECT_EQ(std::u16string(text.data(), text.length() + 1), units + u'\0') << bytes;
        EXPECT_EQ(text_of(ustring(text).append("!").remove(text.length())), bytes);
    }
    for (const std::string tail : {"x", "\xEF\xBF\xBF", ""}) // behind half a character
        EXPECT_EQ(text_of(ustring(from_bytes("\xF0\x9F\x99\x82"), 0, 1).append(tail.c_str())),
                  "\xED\xA0\xBD" + tail);
    // Overlong, surrogates, too high, cut, and bytes that begin nothing: each byte for itself.
    for (const std::string bytes :
         {"\xC0\xAF", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xED\xBF\xBF", "\xF0\x8F\xBF\xBF",
          "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xE2\x82", "\xFF\xFE\x80"}) {
        EXPECT_EQ(from_bytes(bytes).length(), bytes.size()) << bytes;
        EXPECT_EQ(text_of(from_bytes(bytes)), bytes);
    }
}

// Edits and searches stand beside a model, with the other inputs that are generated.
TEST(Ustring, TakesItsOwnText)
{
    EXPECT_EQ(text_of(ustring(static_cast<const char *>(nullptr))), "");
    ustring text("0123456789"); // its own text, also where it grows past what it keeps inside itself
    text.append(text).append(text);
    EXPECT_EQ(text_of(text), "0123456789012345678901234567890123456789");
    text.assign(text, 30, ustring::npos).insert(2, text, 5, 5);
    EXPECT_EQ(text_of(text), "015678923456789");
    text.assign(text.mbcs_str() + 10).append(text.mbcs_str());
    EXPECT_EQ(text_of(text), "5678956789");
    EXPECT_STREQ((text = "ab").mbcs_str(), "ab");
    EXPECT_STREQ(text.to_upper(1).mbcs_str(), "aB");
    EXPECT_EQ(text_of(ustring("@AZ[").to_lower()) + text_of(ustring("`az{").to_upper()), "@az[`AZ{");
    std::swap(text, text);
    EXPECT_TRUE(ustring(std::move(text)) == "aB" && text == "");
    EXPECT_EQ(sum({ustring("a = b").find(u" = ", 0, ustring::npos), ustring("a = b").find(u"", 5, 0)}), 6);
    EXPECT_TRUE(ustring("SEND=x").begins_with("SEND=") && !ustring("SEN").begins_with("SEND="));
}

TEST(Ustring, LeavesTheRestToOtherReaders)
{
    write_file("lines.txt", "\r\nfirst\nsecond\nthird\n");
    std::FILE * const file = std::fopen("lines.txt", "rb");
    ustring line;
    char buffer[64];
    EXPECT_TRUE(std::fgetc(file) == '\r' && line.getline(file) && line == "");
    EXPECT_EQ(sum({line.getline(file), std::ftell(file)}), 9);
    EXPECT_STREQ(std::fgets(buffer, sizeof buffer, file), "second\n");
    EXPECT_TRUE(line.getline(file) && line == "third");
    std::fclose(file);
}

TEST(Pathname, JoinsElementsOnBothSystems)
{
    // clang-format off
    const char * const cases[][4] = {
        {"/opt/k", "bin", "/opt/k/bin", "/opt/k\\bin"}, {"/opt/k/", "bin", "/opt/k/bin", "/opt/k/bin"},
        {"c:\\k\\", "bin", "c:\\k\\bin", "c:\\k\\bin"}, {"a", "//\\b/c", "a/b/c", "a\\b/c"}, {"a", "\\", "a/", "a\\"},
        {"a/", "\\", "a/", "a/"}, {"a//", "b", "a//b", "a//b"}, {"a", "", "a", "a"}, {"", "b", "b", "b"},
        {"", "/b", "b", "b"}, {"", "\\", "", ""}, {"a", "b/", "a/b/", "a\\b/"}};
    // clang-format on
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

TEST(Vector, ItemsGoWithTheirLastHolder)
{
    int gone = 0;
    {
        vector first, third;
        for (codable * each : {new counted(gone), new counted(gone), static_cast<counted *>(nullptr)})
            first.push_back(each);
        vector second(first);
        third = second;
        first.resize(0);
        second.remove(0);
        EXPECT_EQ(gone, 0);
        for (const int none : {0, -1, 1})
            third.remove(none); // of these only the first is there
        EXPECT_EQ(gone, 1);
        EXPECT_TRUE(third.size() == 1 && third[0] == second.items()[0] && third[1] == nullptr);
        for (vector * one : {&first, &second, &first})
            *one = third; // into room of either kind
        EXPECT_TRUE(first.size() == 1 && first[0] == third[0] && second[0] == third[0]);
    }
    EXPECT_EQ(gone, 2);
}

TEST(ObjectFamily, ComparesAsTheClassesDo)
{
    const ustring a("a");
    const pathname path("A/b");
    const pair one("k", "v"), other("k", "w");
    const ustring b("b");
    const codable &as_text = a, &as_path = path, &as_pair = one, &codable_text = b,
                  &codable_path = pathname("c");
    EXPECT_TRUE(a == ustring("a") && a != ustring("A"));
    EXPECT_TRUE(path == pathname("a/B") && path != pathname("a/c"));
    EXPECT_TRUE(one == pair("k", "v") && one != other && one != pair("l", "v"));
    // Through the root, from either side, and with an object of another class.
    EXPECT_TRUE(as_text == a && a == as_text && as_path == path && path == as_path && as_pair == one);
    EXPECT_FALSE(as_text == path || path == as_text || as_path == a || as_pair == a || a == as_pair ||
                 as_pair == other || as_text == codable_text || as_path == codable_path);
    EXPECT_TRUE(as_text != path && as_pair != a && a != as_pair);
    EXPECT_TRUE(vector().operator==(as_text) && ktobject().operator==(as_text) && keyval("a") == a);
}

struct third : pair { // a class that says its version by the field
    third() { version = 3; }
    long codable_version() const override { return codable::codable_version(); }
};

/// Name and version of a class, with a mark where an object does not come back from decoding.
template <class Class>
std::string nature()
{
    struct opened : Class {
        using Class::codable_version, Class::decode_object, Class::encode_object;
    } object;
    char nothing = 0;
    object.encode_object(reinterpret_cast<encoder &>(nothing));
    const bool itself = object.decode_object(reinterpret_cast<decoder &>(nothing), 2) == &object;
    return std::string(object.codable_name()) + (itself ? " " : "! ") +
           std::to_string(object.codable_version()) + "\n";
}

TEST(ObjectFamily, ClonesAndNames)
{
    EXPECT_EQ(nature<ustring>() + nature<pathname>() + nature<pair>() + nature<vector>() +
                  nature<ktobject>() + nature<third>(),
              "ustring 1\npathname 1\npair 1\nvector 1\ncom.corvan.qx.cmObjects.ktobject 1\npair 3\n");
    vector sections;
    sections.push_back(new sof_entry("[hq]", sof_entry::target_sect));
    const auto owned = [](codable * object) { return std::unique_ptr<codable>(object); };
    top_entry domain("HQ1", "p", static_cast<vector &>(*owned(sections.clone())));
    const auto copy = owned(domain.clone());
    static_cast<top_entry &>(*copy).trg_sect_info.resize(0);
    EXPECT_EQ(text_of(static_cast<sof_entry &>(*domain.trg_sect_info[0]).sect_name), "[hq]");
    EXPECT_EQ(copy->hash_code(), 0U);
    EXPECT_EQ(sections.hash_code(), static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(&sections)));
    EXPECT_EQ(ktobject().clone(), nullptr);
    EXPECT_EQ(ustring("x").hash_code(), pathname("x").hash_code());
    EXPECT_TRUE(*owned(pathname("x").clone()) == pathname("x") &&
                *owned(pair("k", "v").clone()) == pair("k", "v"));
    EXPECT_TRUE(*owned(keyval("k").clone()) == ustring("k") && owned(sections[0]->clone()) != nullptr);
}
} // namespace
