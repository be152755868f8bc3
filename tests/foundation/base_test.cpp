#include "support.h"

namespace {

const struct {
    const char * name;
    std::string bytes;
    std::u16string units;
} byte_texts[] = {
    {"nothing", "", u""},
    {"Latin-1 beside UTF-8", "caf\xC3\xA9 caf\xE9", u"caf\u00E9 caf\xDCE9"},
    {"first and last of two bytes", "\x7F\xC2\x80\xDF\xBF", u"\x7F\x80\u07FF"},
    {"first and last of three bytes", "\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF",
     u"\u0800\uD7FF\uE000\uFFFF"},
    {"first and last of four bytes", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", u"\xD800\xDC00\xDBFF\xDFFF"},
    {"inside each length", "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x99\x82", u"\u00E9\u20AC\xD83D\xDE42"},
    {"wide after a block of ASCII", "16 of ASCII, then \xC3\xA9 and 16 of it again",
     u"16 of ASCII, then \u00E9 and 16 of it again"},
    {"a zero inside", std::string("zero\0inside", 11), std::u16string(u"zero\0inside", 11)},
    {"overlong, of two bytes", "\xC0\xAF\xC1\xBF", u"\xDCC0\xDCAF\xDCC1\xDCBF"},
    {"overlong, of three bytes", "\xE0\x9F\xBF", u"\xDCE0\xDC9F\xDCBF"},
    {"overlong, of four bytes", "\xF0\x8F\xBF\xBF", u"\xDCF0\xDC8F\xDCBF\xDCBF"},
    {"encoded halves of a pair", "\xED\xA0\x80\xED\xBF\xBF", u"\xDCED\xDCA0\xDC80\xDCED\xDCBF\xDCBF"},
    {"beyond the last character", "\xF4\x90\x80\x80\xF5\x80", u"\xDCF4\xDC90\xDC80\xDC80\xDCF5\xDC80"},
    {"cut within a character", "a\xE2\x82", u"a\xDCE2\xDC82"},
};

TEST(Ustring, ReturnsAnyBytesUnchanged)
{
    for (const auto & row : byte_texts) {
        SCOPED_TRACE(row.name);
        const ustring text = from_bytes(row.bytes);
        EXPECT_EQ(std::u16string(text.data(), text.length()), row.units);
        EXPECT_EQ(text.data()[text.length()], u'\0');
        EXPECT_EQ(text_of(text), row.bytes);
        EXPECT_EQ(std::string(text.mbcs_str()), row.bytes.c_str());
    }
}

unsigned number(const std::string & word)
{
    return static_cast<unsigned>(std::stol(word));
}

/// "_" stands for a blank.
ustring text(const std::string & word)
{
    return ustring(replaced(word, {{"_", " "}}).c_str());
}

int sign(int order)
{
    return (order > 0) - (order < 0);
}

std::string found(unsigned place)
{
    return result(static_cast<int>(place));
}

const operation<ustring> operations[] = {
    {"new", [](auto & t, auto & w) { return text_of(t = ustring(text(w[1]), number(w[2]), number(w[3]))); }},
    {"assign", [](auto & t, auto & w) { return text_of(t.assign(text(w[1]), number(w[2]), number(w[3]))); }},
    {"assign_self", [](auto & t, auto & w) { return text_of(t.assign(t, number(w[1]), number(w[2]))); }},
    {"assign_bytes", [](auto & t, auto & w) { return text_of(t.assign(t.mbcs_str() + number(w[1]))); }},
    {"append", [](auto & t, auto & w) { return text_of(t.append(text(w[1]))); }},
    {"add", [](auto & t, auto & w) { return text_of(t += w[1].c_str()); }},
    {"append_self", [](auto & t, auto &) { return text_of(t.append(t)); }},
    {"append_bytes", [](auto & t, auto &) { return text_of(t.append(t.mbcs_str())); }},
    {"insert",
     [](auto & t, auto & w) {
         return text_of(t.insert(number(w[1]), text(w[2]), number(w[3]), number(w[4])));
     }},
    {"insert_self", [](auto & t, auto & w) { return text_of(t.insert(number(w[1]), t, number(w[2]))); }},
    {"remove", [](auto & t, auto & w) { return text_of(t.remove(number(w[1]), number(w[2]))); }},
    {"to_upper", [](auto & t, auto & w) { return text_of(t.to_upper(number(w[1]), number(w[2]))); }},
    {"to_lower", [](auto & t, auto & w) { return text_of(t.to_lower(number(w[1]), number(w[2]))); }},
    {"strip",
     [](auto & t, auto & w) { return "<" + text_of(t.strip(std::stoi(w[1]), text(w[2]).data()[0])) + ">"; }},
    {"unit",
     [](auto & t, auto & w) { return found(t.find(text(w[1]).data()[0], number(w[2]), std::stoi(w[3]))); }},
    {"find",
     [](auto & t, auto & w) {
         return found(t.find(text(w[1]).data(), number(w[2]), number(w[3]), std::stoi(w[4])));
     }},
    {"one_of",
     [](auto & t, auto & w) {
         return found(t.find_first_of(text(w[1]).data(), number(w[2]), number(w[3]), std::stoi(w[4])));
     }},
    {"none_of",
     [](auto & t, auto & w) {
         return found(t.find_first_not_of(text(w[1]).data(), number(w[2]), number(w[3]), std::stoi(w[4])));
     }},
    {"compare",
     [](auto & t, auto & w) {
         return result(sign(
             t.compare(number(w[1]), number(w[2]), text(w[3]), number(w[4]), number(w[5]), std::stoi(w[6]))));
     }},
    {"begins", [](auto & t, auto & w) { return result(t.begins_with(w[1].c_str())); }},
};

TEST(Ustring, EditsSearchesAndCompares)
{
    expect_golden_cases("ustring", [](const std::string &, const std::string & script) {
        ustring value;
        transcript lines;
        run_script(script, value, operations, lines);
        EXPECT_EQ(value.data()[value.length()], u'\0');
        return lines.take();
    });
}

TEST(Ustring, NullIsTheEmptyText)
{
    const char * const null = nullptr;
    EXPECT_EQ(text_of(ustring("ab").append(null)), "ab");
    EXPECT_EQ(text_of(ustring("ab").assign(null)), "");
    EXPECT_EQ(text_of(ustring(null)), "");
}

TEST(Ustring, MovesLeaveAnEmptyText)
{
    for (const char * bytes : {"short", "a text of more than sixteen"}) {
        ustring from(bytes);
        const ustring to(std::move(from));
        EXPECT_EQ(text_of(to), bytes);
        EXPECT_EQ(text_of(from), "");
    }
}

TEST(Ustring, GrowsByManySmallPieces)
{
    ustring text;
    std::string expected;
    for (int i = 0; i < 1500; ++i) {
        text.append("\xE2\x82\xAC").append("x");
        expected += "\xE2\x82\xACx";
    }
    EXPECT_EQ(text_of(text), expected);
}

using texts = std::vector<std::string>;
const std::string x4095(4095, 'x');

const example<std::string, texts> line_files[] = {
    {"either line end", "one\r\ntwo\n", {"one", "two"}},
    {"empty lines", "\n\r\n\n", {"", "", ""}},
    {"no line end at the end", "a\nlast", {"a", "last"}},
    {"a carriage return alone", "a\rb\r\r\n\r", {"a\rb\r", "\r"}},
    {"a zero and Latin-1", std::string("z\0\xE9\nb\n", 6), {std::string("z\0\xE9", 3), "b"}},
    {"a line end across blocks", x4095 + "\r\nz\n", {x4095, "z"}},
    {"lines of several blocks",
     x4095 + x4095 + "\n" + x4095 + "\xE9\r\nz",
     {x4095 + x4095, x4095 + "\xE9", "z"}},
    {"nothing", "", {}},
};

TEST(Ustring, ReadsLinesAndLeavesTheRestToOthers)
{
    expect_each(line_files, [](const std::string & bytes) {
        write_file("lines.txt", bytes);
        std::FILE * const file = std::fopen("lines.txt", "rb");
        texts lines;
        ustring line("before");
        while (line.getline(file) != 0)
            lines.push_back(text_of(line));
        EXPECT_EQ(text_of(line), lines.empty() ? "before" : lines.back());
        std::rewind(file);
        line.getline(file);
        const std::size_t end = std::min(bytes.find('\n'), bytes.size() - 1) + 1;
        EXPECT_EQ(std::ftell(file), static_cast<long>(end));
        std::fclose(file);
        return lines;
    });
}

const struct {
    const char * path;
    const char * element;
    const char * result; // where "/" separates
    const char * on_windows;
} joins[] = {
    {"/opt/k", "bin", "/opt/k/bin", "/opt/k\\bin"},
    {"/opt/k/", "bin", "/opt/k/bin", "/opt/k/bin"},
    {"c:\\k\\", "bin", "c:\\k\\bin", "c:\\k\\bin"},
    {"a", "//\\b/c", "a/b/c", "a\\b/c"},
    {"a", "\\", "a/", "a\\"},
    {"a//", "b", "a//b", "a//b"},
    {"a", "", "a", "a"},
    {"", "/b", "b", "b"},
    {"", "\\", "", ""},
    {"a", "b/", "a/b/", "a\\b/"},
};

TEST(Pathname, JoinsElementsOnBothSystems)
{
    for (const auto & row : joins) {
        SCOPED_TRACE(std::string(row.path) + " and " + row.element);
        EXPECT_EQ(text_of(join_path(row.path, row.element, u'/')), row.result);
        EXPECT_EQ(text_of(join_path(row.path, row.element, u'\\')), row.on_windows);
    }
    pathname path("a");
    path += path.text();
    EXPECT_EQ(text_of(path.text()), native("a/a"));
}

/// An object that counts how many of its kind have gone.
struct counted : ktobject {
    explicit counted(int & gone) : gone_(gone) {}
    ~counted() override { ++gone_; }
    int & gone_;
};

TEST(Vector, ItemsGoWithTheirLastHolder)
{
    int gone = 0;
    vector first;
    first.push_back(new counted(gone));
    first.push_back(new counted(gone));
    first.push_back(nullptr);
    EXPECT_EQ(first.size(), 2U);
    {
        vector second(first);
        vector third;
        third = second;
        codable * const last = third[1];
        first.resize(0);
        second.remove(0);
        EXPECT_EQ(gone, 0);
        third.remove(0);
        EXPECT_EQ(gone, 1);
        EXPECT_EQ(third[0], last);
        EXPECT_EQ(third[1], nullptr);
        first = third;
    }
    EXPECT_EQ(first.size(), 1U);
    EXPECT_EQ(gone, 1);
    first = vector();
    EXPECT_EQ(gone, 2);
}

TEST(Vector, KeepsTheOrderOfManyItems)
{
    vector items;
    for (const char * text : {"a", "b", "c", "d", "e"})
        items.push_back(new ustring(text));
    for (int position : {5, -1, 1}) // of these only the last is there
        items.remove(position);
    items.resize(3);
    items.resize(9);
    const vector copy(items);
    std::string all;
    for (unsigned i = 0; i < copy.size(); ++i)
        all += text_of(static_cast<ustring &>(*copy.items()[i]));
    EXPECT_EQ(all, "acd");
}

const ustring text_a("a");
const pathname path_b("A/b");
const pair pair_kv("k", "v");

const struct {
    const char * name;
    const codable & left;
    const codable & right;
    bool equal;
} equalities[] = {
    {"texts that differ in case", text_a, ustring("A"), false},
    {"a text and a longer one", text_a, ustring("ab"), false},
    {"a text and a keyval", text_a, keyval("a"), true},
    {"paths that differ in case", path_b, pathname("a/B"), true},
    {"paths", path_b, pathname("a/c"), false},
    {"pairs", pair_kv, pair("k", "v"), true},
    {"pairs with another value", pair_kv, pair("k", "w"), false},
    {"pairs with another key", pair_kv, pair("l", "v"), false},
    {"a text and a path", ustring("A/b"), path_b, false},
    {"a path and a text", path_b, ustring("A/b"), false},
    {"a pair and a text", pair_kv, text_a, false},
    {"a vector and a text", vector(), text_a, true},
};

TEST(ObjectFamily, ComparesAsTheClassesDo)
{
    for (const auto & row : equalities) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.left.operator==(row.right), row.equal ? 1 : 0);
        EXPECT_EQ(row.left == row.right, row.equal);
        EXPECT_EQ(row.left != row.right, !row.equal);
    }
    EXPECT_TRUE(text_a == ustring("a"));
    EXPECT_TRUE(text_a != ustring("b"));
    EXPECT_TRUE(path_b == pathname("a/B"));
    EXPECT_TRUE(path_b != pathname("b"));
    EXPECT_TRUE(pair_kv == pair("k", "v"));
    EXPECT_TRUE(pair_kv != pair("k", "w"));
}

struct third_version : pair {
    third_version() { version = 3; }
    long codable_version() const override { return codable::codable_version(); }
};

/// Name and version of a class, and whether its object comes back from decoding.
template <class Class>
std::string nature()
{
    struct opened : Class {
        using Class::codable_version, Class::decode_object, Class::encode_object;
    } object;
    char nothing = 0;
    object.encode_object(reinterpret_cast<encoder &>(nothing));
    const bool itself = object.decode_object(reinterpret_cast<decoder &>(nothing), 2) == &object;
    return object.codable_name() + (" " + std::to_string(object.codable_version())) + (itself ? "" : "!");
}

TEST(ObjectFamily, NamesAndVersions)
{
    const std::string record = "com.corvan.qx.cmObjects.ktobject 1";
    EXPECT_EQ(nature<ustring>(), "ustring 1");
    EXPECT_EQ(nature<pathname>(), "pathname 1");
    EXPECT_EQ(nature<pair>(), "pair 1");
    EXPECT_EQ(nature<vector>(), "vector 1");
    EXPECT_EQ(nature<ktobject>(), record);
    EXPECT_EQ(nature<user_info>(), record);
    EXPECT_EQ(nature<third_version>(), "pair 3");
}

TEST(ObjectFamily, HashesByTextOrAddress)
{
    vector items;
    EXPECT_EQ(items.hash_code(), static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(&items)));
    EXPECT_EQ(ktobject().hash_code(), 0U);
    EXPECT_EQ(ustring("x").hash_code(), pathname("x").hash_code());
    EXPECT_NE(ustring("x").hash_code(), ustring("y").hash_code());
}

TEST(ObjectFamily, ClonesAreCopiesOfTheirOwn)
{
    const auto clone_of = [](codable && object) { return std::unique_ptr<codable>(object.clone()); };
    EXPECT_EQ(ktobject().clone(), nullptr);
    EXPECT_TRUE(*clone_of(keyval("k")) == ustring("k"));
    EXPECT_TRUE(*clone_of(pathname("x")) == pathname("x"));
    EXPECT_TRUE(*clone_of(pair("k", "v")) == pair("k", "v"));
    vector sections;
    sections.push_back(new sof_entry("[hq]", sof_entry::target_sect));
    top_entry domain("HQ1", "path", sections);
    const std::unique_ptr<codable> copy(domain.clone());
    static_cast<top_entry &>(*copy).trg_sect_info.resize(0);
    ASSERT_EQ(domain.trg_sect_info.size(), 1U);
    const std::unique_ptr<codable> section(domain.trg_sect_info[0]->clone());
    EXPECT_EQ(text_of(static_cast<sof_entry &>(*section).sect_name), "[hq]");
}

} // namespace
