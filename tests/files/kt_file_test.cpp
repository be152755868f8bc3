#include "support.h"

#include <set>

namespace {

struct world {
    kt_file file;
    ustring line{"kept"};
    ustring key{"kept"};
    ustring value{"kept"};
    long position = 7;
    int count = 7;
    char bytes[32] = "kept";
};

/// The text that a word stands for: "|" is a line feed, "~" a carriage return, "_" a blank.
std::string text(const std::string & word)
{
    return replaced(word, {{"|", "\n"}, {"~", "\r"}, {"_", " "}});
}

unsigned number(const std::string & word)
{
    return static_cast<unsigned>(std::stol(word));
}

std::string make_file(const std::string & name, const std::string & bytes)
{
    write_file(name, bytes);
    return "made";
}

std::string rename_object(kt_file & file, const std::string & name)
{
    file.set_file_name(name.c_str());
    return text_of(file.file_name().text());
}

const operation<world> operations[] = {
    {"file", [](auto &, auto & w) { return make_file(w[1], text(w[2])); }},
    {"folder", [](auto &, auto & w) { return result(fs::create_directory(w[1])); }},
    {"name", [](auto & a, auto & w) { return rename_object(a.file, w[1]); }},
    {"open", [](auto & a, auto & w) { return result(a.file.open(w[1].c_str())); }},
    {"close", [](auto & a, auto &) { return result(a.file.close()); }},
    {"size", [](auto & a, auto &) { return result(a.file.file_size()); }},
    {"error", [](auto & a, auto &) { return result(a.file.error()); }},
    {"at_end", [](auto & a, auto &) { return result(a.file.at_end()); }},
    {"seek", [](auto & a, auto & w) { return result(a.file.seek(std::stol(w[1]), std::stoi(w[2]))); }},
    {"get_pos", [](auto & a, auto &) { return result(a.file.get_pos(&a.position), a.position); }},
    {"get_line", [](auto & a, auto &) { return result(a.file.get_line(a.line), a.line); }},
    {"write", [](auto & a, auto & w) { return result(a.file.write(text(w[1]).c_str())); }},
    {"write_block", [](auto & a, auto & w) { return result(a.file.write(w[1].data(), number(w[2]))); }},
    {"read",
     [](auto & a, auto & w) { return result(a.file.read(a.bytes, number(w[1]), number(w[2])), a.bytes); }},
    {"read_block", [](auto & a, auto & w) { return result(a.file.read(a.bytes, number(w[1])), a.bytes); }},
    {"copy_to", [](auto & a, auto & w) { return result(a.file.copy_to(w[1].c_str())); }},
    {"removef", [](auto & a, auto &) { return result(a.file.removef()); }},
    {"find_section", [](auto & a, auto & w) { return result(a.file.find_section(text(w[1]).c_str())); }},
    {"seek_section",
     [](auto & a, auto & w) { return result(a.file.seek_section(w[1].c_str(), &a.count, 1), a.count); }},
    {"pass_section",
     [](auto & a, auto & w) { return result(a.file.seek_section(w[1].c_str(), nullptr, 0)); }},
    {"get_keyval",
     [](auto & a, auto &) { return result(a.file.get_keyval(a.key, a.value), a.key, a.value); }},
};

/// Runs the cases of a golden file: their lines are operations, and what is in the files afterwards is shown.
/// A case whose name ends with "each trace line" shows call lines too.
void run_cases(const char * golden)
{
    expect_golden_cases(golden, [](const std::string & name, const std::string & script) {
        for (const fs::directory_entry & old : fs::directory_iterator("."))
            if (old.is_regular_file())
                fs::remove(old.path());
        transcript lines(name.ends_with("each trace line") ? 0 : 2);
        world a;
        run_script(script, a, operations, lines);
        const fs::directory_iterator files(".");
        std::set<fs::path> names(begin(files), end(files));
        for (const fs::path & file : names)
            if (fs::is_regular_file(file))
                lines.note(file.filename().string() + ": " +
                           replaced(read_file(file.string()), {{"\r", "~"}, {"\n", "|"}}));
        const std::string all = lines.take();
        return name.starts_with("refused") ? without_numbers(all) : all;
    });
}

TEST(KtFile, WorksOnFiles)
{
    run_cases("kt_file");
}

TEST(KtFile, ReportsWhatAFullDiskLost)
{
    if (kt_chkfile("/dev/full") == 0)
        GTEST_SKIP() << "no such device here";
    run_cases("kt_file_full_disk");
}

TEST(KtFile, OpensAPipeThatCannotBeMeasured)
{
    if (std::system("mkfifo pipe 2>pipe.err") != 0)
        GTEST_SKIP() << "no pipes here";
    run_cases("kt_file_pipe");
}

TEST(Sections, AreFoundForward)
{
    run_cases("sections");
}

TEST(KtFile, BareNamesAreBelowTheInstallationDirectory)
{
    transcript lines;
    for (const char * name : {"a.txt", "/a.txt"})
        lines.note(text_of(kt_file(ustring(name)).file_name().text()));
    const kt_file by_path(pathname("a.txt"));
    lines.note(text_of(by_path.file_name().text()));
    expect_golden("kt_file_names", lines.take());
}

TEST(KtFile, WritesTextWithTheSystemsLineEnds)
{
    kt_file file(pathname("text.txt"));
    for (const char * mode : {"w", "a", "r+"}) {
        EXPECT_EQ(file.open(mode), 0);
        EXPECT_EQ(file.write(ustring("a\n")), 0);
        EXPECT_EQ(file.close(), 0);
    }
    EXPECT_EQ(read_file("text.txt"), native("/") == "/" ? "a\na\n" : "a\r\na\r\n");
}

TEST(KtFile, WritesBytesAsTheyAre)
{
    const std::string bytes("caf\xC3\xA9 \xE9 \0 z", 11);
    kt_file file(pathname("out.bin"));
    EXPECT_EQ(file.open("wb"), 0);
    EXPECT_EQ(file.write(from_bytes(bytes)), 0);
    EXPECT_EQ(file.close(), 0);
    EXPECT_EQ(read_file("out.bin"), bytes);
}

TEST(KtFile, MovesWithItsStreamAndItsPlace)
{
    write_file("text.txt", "line0\nline1\n");
    ustring line;
    kt_file moved;
    {
        kt_file file(pathname("text.txt"));
        ASSERT_EQ(file.open("r"), 0);
        ASSERT_NE(file.get_line(line), 0);
        moved = std::move(file);
        EXPECT_FALSE(file.is_open());
        EXPECT_EQ(text_of(file.file_name().text()), "");
    }
    EXPECT_EQ(moved.file_size(), 12);
    ASSERT_NE(moved.get_line(line), 0);
    EXPECT_EQ(text_of(line), "line1");
    EXPECT_EQ(kt_file(std::move(moved)).close(), 0);
}

TEST(KtFile, IsClosedAtTheEndOfAScopeIfOpen)
{
    transcript lines(2);
    kt_file file(pathname("text.txt"));
    {
        const close_at_end closing(file);
        ASSERT_EQ(file.open("w"), 0);
        ASSERT_EQ(file.write("x"), 0);
    }
    EXPECT_EQ(read_file("text.txt"), "x");
    lines.take();
    {
        const close_at_end closing(file);
    }
    EXPECT_EQ(lines.take(), "");
}

TEST(KtFile, MeasuresAsFarAsALongReaches)
{
    write_file("large.txt", "");
    fs::resize_file("large.txt", 5368709126U);
    kt_file large(pathname("large.txt"));
    EXPECT_EQ(large.open("r"), sizeof(long) == 8 ? 0 : 256);
    EXPECT_EQ(large.close(), 0);
}

TEST(KtFile, NamesAreUtf8OrOfTheCodePage)
{
    for (const char * name : {"caf\xC3\xA9.txt", "caf\xE9.txt"}) {
        kt_file file{pathname(name)};
        EXPECT_EQ(file.open("w"), 0);
        EXPECT_EQ(file.close(), 0);
        EXPECT_EQ(kt_chkfile(name), 1);
        EXPECT_EQ(file.copy_to("\xC3\xBC.txt"), 0);
        EXPECT_EQ(kt_chkfile(name), 0);
        EXPECT_TRUE(fs::exists(fs::path(u8"\xC3\xBC.txt")));
    }
}

TEST(KtFile, NamesAreNotCutAtAZero)
{
    write_file("kept.txt", "kept");
    kt_file file;
    file.set_file_name(from_bytes(std::string("kept.txt\0x", 10)));
    EXPECT_EQ(file.open("r"), 250);
    EXPECT_EQ(file.removef(), 257);
    EXPECT_EQ(file.copy_to("to.txt"), 6);
    EXPECT_EQ(read_file("kept.txt"), "kept");
}

TEST(KtFile, LosesNothingOfAFileThatAnotherHolds)
{
    write_file("from.txt", "new");
    write_file("to.txt", "old");
    auto holder = hold_file("to.txt");
    if (!holder)
        GTEST_SKIP() << "no file can be held here";
    kt_file held(pathname("to.txt"));
    EXPECT_EQ(held.open("w"), 250);
    EXPECT_EQ(held.removef(), 257);
    EXPECT_EQ(kt_file(pathname("from.txt")).copy_to("to.txt"), 6);
    holder.reset();
    EXPECT_EQ(read_file("from.txt"), "new");
    EXPECT_EQ(read_file("to.txt"), "old");
}

} // namespace
