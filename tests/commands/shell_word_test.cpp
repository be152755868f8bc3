// Names in commands: as words of either shell, and passed through the system's own.
#include "support.h"

namespace {

struct word {
    const char * name;
    std::string text;
    const char * sh; // null if the shell can't be given it
    const char * cmd_exe;
};
void PrintTo(const word & row, std::ostream * out)
{
    *out << row.name;
}

class ShellWord : public testing::TestWithParam<word> {};

std::string quoted(const std::string & text, command_shell shell)
{
    ustring result("unchanged");
    return quote_word(from_bytes(text), result, shell) ? text_of(result) : "refused, " + text_of(result);
}

TEST_P(ShellWord, IsOneWordOrRefused)
{
    const char * const refused = "refused, unchanged";
    EXPECT_EQ(quoted(GetParam().text, command_shell::sh), GetParam().sh ? GetParam().sh : refused);
    EXPECT_EQ(quoted(GetParam().text, command_shell::cmd_exe),
              GetParam().cmd_exe ? GetParam().cmd_exe : refused);
}

const word words[] = {
    {"a plain name", "APPS.EDITOR_2-1@NODE01", "APPS.EDITOR_2-1@NODE01", "APPS.EDITOR_2-1@NODE01"},
    {"the empty text", "", "''", "\"\""},
    {"a blank", "a b", "'a b'", "\"a b\""},
    {"a second command", "A; touch PWNED #", "'A; touch PWNED #'", "\"A; touch PWNED #\""},
    {"operators of cmd.exe", "a&b|c<d>e^f(g)", "'a&b|c<d>e^f(g)'", "\"a&b|c<d>e^f(g)\""},
    {"a pattern", "*?", "'*?'", "\"*?\""},
    {"a home directory", "~root", "'~root'", "\"~root\""},
    {"a single quote", "it's", "'it'\\''s'", "\"it's\""},
    {"single quotes alone", "''", "''\\'''\\'''", "\"''\""},
    {"a double quote", "a\"b", "'a\"b'", nullptr},
    {"a variable of sh", "$(id)`id`", "'$(id)`id`'", "\"$(id)`id`\""},
    {"a variable of cmd.exe", "%PATH%", "'%PATH%'", nullptr},
    {"a backslash", "C:\\a", "'C:\\a'", "C:\\a"},
    {"a backslash before the closing quote", "C:\\a b\\\\", "'C:\\a b\\\\'", "\"C:\\a b\\\\\\\\\""},
    {"a carriage return", "a\rb", "'a\rb'", nullptr},
    {"a zero byte", std::string("a\0b", 3), nullptr, nullptr},
    {"bytes that are not UTF-8", "a\xE4", "'a\xE4'", "\"a\xE4\""},
};
INSTANTIATE_TEST_SUITE_P(Texts, ShellWord, testing::ValuesIn(words), name_of);

TEST(ShellWord, KeepsALineEndFromCmdExe)
{
    ustring result;
    EXPECT_FALSE(quote_word("a\nb", result, command_shell::cmd_exe));
    EXPECT_TRUE(quote_word("a\nb", result, command_shell::sh));
    EXPECT_EQ(text_of(result), "'a\nb'");
}

TEST(ShellWord, ReachesACommandUnchanged)
{
    const bool has_cmd_exe = system_shell() == command_shell::cmd_exe;
    std::vector<std::string> names = {"plain.txt", "two words.txt", "a & echo b.txt", "(c) ^d; e, f=g.txt",
                                      "it's ~ # !.txt"};
    if (!has_cmd_exe)
        names.insert(names.end(),
                     {"a\"b$(touch PWNED)`touch PWNED`.txt", "a|b>c<d*?%PATH%\\.txt", "a\nb.txt"});
    for (const std::string & name : names) {
        write_file(name, "the text");
        ustring result;
        ASSERT_TRUE(quote_word(name.c_str(), result)) << name;
        brod_base brod(sset_out_file("out.txt"), sset_out_file("final.txt"));
        brod.set_brod_cmd(ustring(has_cmd_exe ? "type " : "cat ").append(result), 1);
        EXPECT_EQ(brod.exec_brod_cmd(1, 0), 0) << name;
        EXPECT_EQ(read_text(brod.output_file().mbcs_str()), "the text") << name;
    }
    EXPECT_FALSE(fs::exists("PWNED"));
}

} // namespace
