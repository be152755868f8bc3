#include "support.h"

namespace {

TEST(KtFile, OpensMeasuresAndCloses)
{
    write_file("ten.txt", "0123456789");
    write_file("kept.txt", "kept");
    transcript lines;
    kt_file file(pathname("ten.txt"));
    lines.step("close before open", [&] { return file.close(); });
    lines.step("open", [&] { return file.open("r"); });
    lines.step("size", [&] { return file.file_size(); });
    file.set_file_name("missing.txt");
    lines.step("open what is missing", [&] { return file.open("r"); });
    lines.step("size", [&] { return file.file_size(); });
    file.set_file_name("kept.txt");
    lines.step("open to append", [&] { return file.open("a"); });
    lines.step("size", [&] { return file.file_size(); });
    lines.step("open to write anew", [&] { return file.open("w"); });
    lines.step("write", [&] { return file.write("abc", 3); });
    lines.step("size as at the opening", [&] { return file.file_size(); });
    lines.step("close", [&] { return file.close(); });
    lines.step("size", [&] { return file.file_size(); });
    expect_golden("kt_file_open", lines.take());
    EXPECT_EQ(read_file("kept.txt"), "abc");
}

TEST(KtFile, BareNamesAreBelowTheInstallationDirectory)
{
    for (const char * name : {"a.txt", "/a.txt"})
        EXPECT_EQ(text_of(kt_file(ustring(name)).file_name().text()), (test_directory() / "a.txt").string());
    transcript lines;
    const kt_file file(ustring(""));
    expect_golden("kt_file_bare_name", lines.take() + text_of(file.file_name().text()) + "\n");
}

TEST(KtFile, RefusesWhatIsNotAFileAndStrangeModes)
{
    fs::create_directory("folder");
    write_file("ten.txt", "0123456789");
    const std::pair<const char *, const char *> rows[] = {
        {"folder", "r"},   {"folder", "w"},           {"", "r"}, {"ten.txt", ""}, {"ten.txt", "?"},
        {"ten.txt", "wx"}, {"ten.txt", "r,ccs=UTF-8"}};
    transcript lines(2);
    for (const auto & [name, mode] : rows) {
        kt_file file{pathname(name)};
        lines.step(std::string(name) + ", " + mode, [&] { return file.open(mode); });
    }
    expect_golden("kt_file_refused", without_numbers(lines.take()));
    EXPECT_EQ(read_file("ten.txt"), "0123456789");
}

TEST(KtFile, ReportsThatItIsNotOpen)
{
    transcript lines;
    kt_file file(pathname("x"));
    ustring line("kept");
    long position = 7;
    char byte = 'k';
    lines.step("seek", [&] { return file.seek(0, SEEK_SET); });
    lines.step("get_pos", [&] { return file.get_pos(&position); });
    lines.step("get_line", [&] { return file.get_line(line); });
    lines.step("write a text", [&] { return file.write(line); });
    lines.step("write a block", [&] { return file.write(&byte, 1); });
    lines.step("read items", [&] { return file.read(&byte, 1, 1); });
    lines.step("read a block", [&] { return file.read(&byte, 1); });
    lines.step("error", [&] { return file.error(); });
    lines.step("at_end", [&] { return file.at_end(); });
    expect_golden("kt_file_not_open", lines.take());
    EXPECT_EQ(text_of(line), "kept");
    EXPECT_EQ(position, 7);
    EXPECT_EQ(byte, 'k');
}

TEST(KtFile, ReadsAndSeeks)
{
    write_file("data.txt", "one\r\ntwo\n\nlast!");
    kt_file file(pathname("data.txt"));
    ASSERT_EQ(file.open("r"), 0);
    ustring line;
    long position = 0;
    char buffer[16] = {};
    transcript lines;
    const auto read_line = [&] {
        lines.step("get_line", [&] { return file.get_line(line); });
        lines.step("get_pos", [&] { return file.get_pos(&position); });
        lines.note("<" + text_of(line) + "> at " + std::to_string(position));
    };
    for (int i = 0; i < 5; ++i)
        read_line();
    lines.step("at_end", [&] { return file.at_end(); });
    lines.step("seek from the end", [&] { return file.seek(-5, SEEK_END); });
    lines.step("at_end", [&] { return file.at_end(); });
    lines.step("read two items of two", [&] { return file.read(buffer, 2, 2); });
    lines.note(buffer);
    lines.step("seek back", [&] { return file.seek(-2, SEEK_CUR); });
    lines.step("read a block", [&] { return file.read(buffer, 8); });
    lines.note(buffer);
    lines.step("read a block at the end", [&] { return file.read(buffer, 8); });
    lines.step("seek", [&] { return file.seek(11, SEEK_SET); });
    lines.step("read more items than there are", [&] { return file.read(buffer, 2, 3); });
    lines.note(buffer);
    lines.step("read no items", [&] { return file.read(buffer, 1, 0); });
    lines.step("seek", [&] { return file.seek(4, SEEK_SET); });
    lines.step("seek before the start", [&] { return file.seek(-1, SEEK_SET); });
    read_line();
    lines.step("error", [&] { return file.error(); });
    lines.step("close", [&] { return file.close(); });
    expect_golden("kt_file_read", lines.take());
}

TEST(KtFile, WritesBytesAsTheyAre)
{
    const std::string bytes("caf\xC3\xA9 \xE9 \0 z", 11);
    kt_file file(pathname("out.bin"));
    transcript lines;
    lines.step("open", [&] { return file.open("wb"); });
    lines.step("write a text", [&] { return file.write(from_bytes(bytes)); });
    lines.step("write nothing", [&] { return file.write(ustring()); });
    lines.step("write a block", [&] { return file.write("\n!", 2); });
    lines.step("open again, to append", [&] { return file.open("ab"); });
    lines.step("size", [&] { return file.file_size(); });
    lines.step("open to read", [&] { return file.open("rb"); });
    lines.step("write a text", [&] { return file.write(ustring("\xC3\xA9")); });
    lines.step("error", [&] { return file.error(); });
    lines.step("write a block", [&] { return file.write("abc", 3); });
    lines.step("close", [&] { return file.close(); });
    expect_golden("kt_file_write", lines.take());
    EXPECT_EQ(read_file("out.bin"), bytes + "\n!");
}

const struct {
    const char * mode;
    const char * written;
    long position; // without what a line end adds
    const char * text;
} updates[] = {
    {"r+", "AB", 14, "line0\nline1\nABne2\n"},
    {"a+", "A\n", 20, "line0\nline1\nline2\nA\n"},
    {"r+b", "AB\n", 15, "line0\nline1\nAB\ne2\n"},
};

TEST(KtFile, WritesWhereItHasRead)
{
    for (const auto & row : updates) {
        SCOPED_TRACE(row.mode);
        write_file("text.txt", "line0\nline1\nline2\n");
        kt_file file(pathname("text.txt"));
        ustring line;
        long position = 0;
        ASSERT_EQ(file.open(row.mode), 0);
        file.get_line(line);
        file.get_line(line);
        EXPECT_EQ(file.write(ustring(row.written)), 0);
        EXPECT_EQ(file.get_pos(&position), 0);
        EXPECT_EQ(position, row.position + (row.mode[0] == 'a' && native("/") != "/"));
        file.seek(6, SEEK_SET);
        file.get_line(line);
        EXPECT_EQ(text_of(line), "line1");
        EXPECT_EQ(file.close(), 0);
        EXPECT_EQ(read_text("text.txt"), row.text);
    }
}

TEST(KtFile, MeasuresAsFarAsALongReaches)
{
    write_file("large.txt", "");
    fs::resize_file("large.txt", 5368709126U);
    kt_file large(pathname("large.txt"));
    EXPECT_EQ(large.open("r"), sizeof(long) == 8 ? 0 : 256);
    EXPECT_EQ(large.close(), 0);
}

TEST(KtFile, MovesAndRemoves)
{
    fs::create_directory("folder");
    write_file("from.txt", "new");
    write_file("to.txt", "old");
    transcript lines;
    kt_file file;
    file.set_file_name("from.txt");
    lines.step("move onto a file", [&] { return file.copy_to("to.txt"); });
    EXPECT_EQ(read_file("to.txt"), "new");
    EXPECT_EQ(read_file("from.txt"), "(no file)");
    lines.step("move what is missing", [&] { return file.copy_to("to.txt"); });
    EXPECT_EQ(read_file("to.txt"), "(no file)");
    write_file("from.txt", "new");
    lines.step("move to a new name", [&] { return file.copy_to("to.txt"); });
    lines.step("remove what is missing", [&] { return file.removef(); });
    file.set_file_name("to.txt");
    lines.step("remove", [&] { return file.removef(); });
    EXPECT_EQ(read_file("to.txt"), "(no file)");
    expect_golden("kt_file_move", lines.take());
    file.set_file_name("folder");
    lines.step("remove a directory", [&] { return file.removef(); });
    EXPECT_TRUE(fs::exists("folder"));
    file.set_file_name(from_bytes(std::string("folder\0x", 8)));
    lines.step("remove a name with a zero", [&] { return file.removef(); });
    lines.step("move a name with a zero", [&] { return file.copy_to("to.txt"); });
    expect_golden("kt_file_move_refused", without_numbers(lines.take()));
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
        EXPECT_TRUE(fs::exists(fs::u8path("\xC3\xBC.txt")));
    }
}

TEST(KtFile, LosesNothingOfAFileThatAnotherHolds)
{
    write_file("from.txt", "new");
    write_file("to.txt", "old");
    auto holder = hold_file("to.txt");
    if (!holder)
        GTEST_SKIP() << "no file can be held here";
    kt_file held(pathname("to.txt"));
    EXPECT_EQ(held.open("r"), 250);
    EXPECT_EQ(held.open("w"), 250);
    EXPECT_EQ(held.removef(), 257);
    EXPECT_EQ(kt_file(pathname("from.txt")).copy_to("to.txt"), 6);
    holder.reset();
    EXPECT_EQ(read_file("from.txt"), "new");
    EXPECT_EQ(read_file("to.txt"), "old");
}

TEST(KtFile, ReportsWhatAFullDiskLost)
{
    if (kt_chkfile("/dev/full") == 0)
        GTEST_SKIP() << "no such device here";
    kt_file full(pathname("/dev/full"));
    char byte = 0;
    transcript lines(2);
    lines.step("open", [&] { return full.open("w"); });
    lines.step("write into the buffer", [&] { return full.write("x", 1); });
    lines.step("close", [&] { return full.close(); });
    lines.step("open to read and write", [&] { return full.open("w+"); });
    lines.step("write into the buffer", [&] { return full.write("x", 1); });
    lines.step("read", [&] { return full.read(&byte, 1); });
    lines.step("error", [&] { return full.error(); });
    lines.step("close", [&] { return full.close(); });
    lines.step("close again", [&] { return full.close(); });
    lines.step("open to write", [&] { return full.open("w"); });
    lines.step("write into the buffer", [&] { return full.write("x", 1); });
    lines.step("seek", [&] { return full.seek(0, SEEK_SET); });
    lines.step("close what is reported", [&] { return full.close(); });
    expect_golden("kt_file_full_disk", lines.take());
}

TEST(KtFile, OpensAPipeThatCannotBeMeasured)
{
    if (std::system("mkfifo pipe 2>pipe.err") != 0)
        GTEST_SKIP() << "no pipes here";
    kt_file pipe(pathname("pipe"));
    transcript lines;
    lines.step("open", [&] { return pipe.open("r+"); });
    lines.step("get_fips", [] { return file_input_parms().get_fips("pipe", 1, "USER=", 3); });
    lines.step("close", [&] { return pipe.close(); });
    expect_golden("kt_file_pipe", lines_without("kt_file(pathname)", lines.take()));
}

} // namespace
