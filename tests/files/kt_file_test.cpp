#include "support.h"

#include <functional>
#include <tuple>

using namespace orvet;
using namespace orvet_test;
namespace {
constexpr char not_open[] = "L MSG0001 [F] A read/write operation has been attempted toa file that is not open\n";

/// The lines of one call: entry, its own lines, return line and exit. `T` in `own` stands for "T[X] name".
std::string call_of(const std::string & name, const std::string & own, const std::string & end) {
    const std::string call = "T[C] " + name + " ";
    std::string lines = call + ">>>> ENTRY>>>>>\n" + own;
    if (end.find("quit") != std::string::npos)
        lines += call + "<><><><><> QUITTING\n";
    const std::size_t digit = end.find_first_of("-0123456789");
    if (digit != std::string::npos)
        lines += call + "return data = " + end.substr(digit) + "\n";
    return lines + call + "<<<<<<<<<< EXIT\n";
}

std::string seek_lines(const std::string & file, long offset, int origin) {
    return call_of("kt_file::seek",
                   "T[W] kt_file::seek seeking in " + file + " file. offset is " + std::to_string(offset) + " origin is " +
                       std::to_string(origin) + "\n",
                   "0");
}

TEST(KtFile, OpensMeasuresAndCloses) {
    write_file("ten.txt", "0123456789");
    transcript lines;
    kt_file file(pathname("ten.txt"));
    EXPECT_EQ(lines.take(), call_of("kt_file(pathname)", "T[I] kt_file(pathname) Path is <ten.txt>\n", ""));
    EXPECT_EQ(file.open("r"), 0);
    EXPECT_EQ(file.file_size(), 10);
    const std::string open = "T[W] kt_file::open opening ten.txt file with mode r\n" + seek_lines("ten.txt", 0, 2) +
                             call_of("kt_file::get_pos", "", "0") + "T[I] kt_file::open The size of the file is 10\n";
    EXPECT_EQ(lines.take(), call_of("kt_file::open", open + seek_lines("ten.txt", 0, 0), "0"));
    for (int open_or_not = 0; open_or_not < 2; ++open_or_not) {
        EXPECT_EQ(file.close(), 0);
        EXPECT_EQ(lines.take(), call_of("kt_file::close", "T[W] kt_file::close closing <ten.txt> file\n", "0"));
        EXPECT_EQ(file.file_size(), 0);
    }
    kt_file bare{ustring("/a.txt")};
    EXPECT_EQ(text_of(bare.file_name().text()), test_directory().string() + native("/") + "a.txt");
    EXPECT_EQ(lines.take(), call_of("kt_file(file_name)", "", ""));
}

TEST(KtFile, TellsWhatCantBeOpened) {
    std::filesystem::create_directories("folder");
    const std::pair<std::string, std::string> cases[] = {{"missing.txt", "r"}, {"folder", "r"},     {"folder", "w"}, {"", "r"},
                                                         {"missing.txt", ""},  {"missing.txt", "?"}};
    for (const auto & [name, mode] : cases) {
        kt_file file(pathname(name.c_str()));
        transcript lines;
        EXPECT_EQ(file.open(mode.c_str()), 250) << name;
        const std::string all = lines.take(), error = all.substr(all.find("errno =\t") + 8);
        EXPECT_NE(error.front(), '0') << all;
        EXPECT_EQ(all, call_of("kt_file::open",
                               "T[W] kt_file::open opening " + name + " file with mode " + mode +
                                   "\nT[E] kt_file::open Error opening -->" + name + "<-- file\nL MSG0017 [F] Error " +
                                   "opening the file " + name + ", errno =\t" + error.substr(0, error.find('\n') + 1),
                               "quit 250"));
        EXPECT_EQ(file.file_size(), 0);
    }
}

TEST(KtFile, SaysWhenItIsNotOpen) {
    kt_file file(pathname("x"));
    ustring line("kept");
    long position = 7;
    char byte = 0;
    const std::tuple<std::string, std::function<int()>, int, const char *> cases[] = {
        {"kt_file::seek", [&] { return file.seek(0, 0); }, 255, "quit 255"},
        {"kt_file::get_pos", [&] { return file.get_pos(&position); }, 255, "quit 255"},
        {"kt_file::write", [&] { return file.write(line); }, 255, "quit 255"},
        {"kt_file::write(b,s)", [&] { return file.write(&byte, 1); }, 255, "quit 255"},
        {"kt_file:read", [&] { return file.read(&byte, 1, 1); }, 255, "quit 255"},
        {"kt_file:read", [&] { return static_cast<int>(file.read(&byte, 1)); }, 0, "quit 0"},
        {"kt_file::get_line", [&] { return file.get_line(line); }, 0, "quit"}};
    for (const auto & [name, call, result, end] : cases) {
        transcript lines;
        EXPECT_EQ(call(), result);
        EXPECT_EQ(lines.take(), call_of(name, "T[F] " + name + " file <x> not open\n" + not_open, end));
    }
    EXPECT_EQ(position, 7);
    EXPECT_EQ(text_of(line), "kept");
}

TEST(KtFile, ReadsAndSeeks) {
    write_file("data.txt", "one\r\ntwo\n\nlast");
    kt_file file(pathname("data.txt"));
    EXPECT_EQ(file.open("r"), 0);
    transcript lines(1);
    ustring line;
    std::string read;
    long position = 0;
    while (file.get_line(line)) {
        EXPECT_EQ(file.get_pos(&position), 0);
        read += text_of(line) + "@" + std::to_string(position) + " ";
    }
    EXPECT_EQ(read + text_of(line), "one@5 two@9 @10 last@14 last");
    EXPECT_EQ(lines.take(), "T[I] kt_file::get_line read line one\nT[I] kt_file::get_line read line two\n"
                            "T[I] kt_file::get_line read line \nT[I] kt_file::get_line read line last\n");
    char buffer[16] = {};
    EXPECT_EQ(file.seek(-4, SEEK_END) + file.read(buffer, 2, 2), 0);
    EXPECT_EQ(std::string(buffer, 4), "last");
    lines.take();
    EXPECT_EQ(file.read(buffer, 8), 0U);
    EXPECT_EQ(lines.take(), "");
    EXPECT_EQ(file.seek(11, SEEK_SET), 0);
    lines.take();
    EXPECT_EQ(file.read(buffer, 1, 5), 254);
    EXPECT_EQ(std::string(buffer, 3), "ast");
    EXPECT_EQ(file.seek(-1, SEEK_SET), 253);
    EXPECT_EQ(lines.take(), "T[F] kt_file:read Error reading from data.txt file. count = 5, read_bytes =3\n"
                            "L MSG0037 [F] System error reading 5 bytes from file data.txt. Read 3 bytes.\n"
                            "T[W] kt_file::seek seeking in data.txt file. offset is -1 origin is 0\n"
                            "T[E] kt_file::seek Error seeking in file data.txt at offset -1 from origin 0\n"
                            "L MSG0019 [F] Error seeking in the file data.txt to offset -1 from origin 0.\n");
    EXPECT_EQ(file.close(), 0);
}

TEST(KtFile, Writes) {
    kt_file file;
    file.set_file_name("out.bin");
    EXPECT_EQ(file.open("wb"), 0);
    const std::string bytes("caf\xC3\xA9 \xE9 \0 z", 11);
    EXPECT_EQ(file.write(from_bytes(bytes)), 0);
    EXPECT_EQ(file.write(ustring()), 0);
    EXPECT_EQ(file.write("\n!", 2), 0);
    EXPECT_EQ(file.file_size(), 0);
    EXPECT_EQ(file.open("ab"), 0); // the first stream is closed without a word
    EXPECT_EQ(file.file_size(), 13);
    EXPECT_EQ(file.close(), 0);
    EXPECT_EQ(read_file("out.bin"), bytes + "\n!");
    EXPECT_EQ(file.open("w+b"), 0); // reading and writing in turns
    ustring line;
    EXPECT_EQ(file.write("ab\n", 3) + file.seek(0, SEEK_SET), 0);
    EXPECT_TRUE(file.get_line(line));
    EXPECT_EQ(file.write("cd\n", 3), 0);
    EXPECT_FALSE(file.get_line(line));
    EXPECT_EQ(file.write("ef", 2), 0);
    EXPECT_EQ(file.close(), 0);
    EXPECT_EQ(read_file("out.bin"), "ab\ncd\nef");
    EXPECT_EQ(file.open("rb"), 0);
    transcript lines(1);
    EXPECT_EQ(file.write(ustring("\xC3\xA9")), 251);
    EXPECT_EQ(lines.take(), "T[F] kt_file::write error writing to file out.bin. written is 0\n"
                            "L MSG0018 [F] Error writing to file out.bin. Written bytes were 0, to write 2.\n");
    EXPECT_EQ(file.write("abc", 3), 251);
    EXPECT_EQ(lines.take().find("T[F] kt_file::write(b,s) error writing to file out.bin. written is 0, errno is "), 0U);
    EXPECT_EQ(file.close(), 0); // told already
}

TEST(KtFile, MovesAndRemoves) {
    write_file("from.txt", "new");
    write_file("to.txt", "old");
    kt_file file(pathname("from.txt"));
    if (const auto holder = hold_file("to.txt")) { // nothing of either file is lost, and no stream stays open
        kt_file held(pathname("to.txt"));
        for (const char * mode : {"r", "w", "a"}) EXPECT_EQ(held.open(mode), 250) << mode;
        EXPECT_EQ(held.removef(), 257);
        EXPECT_EQ(file.copy_to("to.txt"), 6);
    }
    transcript lines;
    EXPECT_EQ(file.copy_to("to.txt"), 0);
    const std::string moving = "T[W] kt_file::copy_to renaming file <from.txt> to <to.txt>\n"
                               "T[W] kt_file::copy_to remove done with rc=0, errno=0\n";
    EXPECT_EQ(lines.take(), call_of("kt_file::copy_to", moving, "0"));
    EXPECT_EQ(read_file("to.txt") + read_file("from.txt"), "new(no file)");
    EXPECT_EQ(file.copy_to("to.txt"), 6); // what was there is gone
    EXPECT_EQ(lines.take(), call_of("kt_file::copy_to",
                                    moving + "T[E] kt_file::copy_to Rename failed with rc=-1, errno=2\n"
                                             "L MSG0016 [E] The execution of the command to.txt returned rc -1, errno = 2\n",
                                    "quit 6"));
    EXPECT_EQ(file.removef(), 0);
    EXPECT_EQ(lines.take(), call_of("kt_file::removef", "", "0"));
    std::filesystem::create_directories("kept");
    file.set_file_name("kept");
    EXPECT_EQ(file.removef(), 257);
    const std::string text = lines.take();
    const std::string error = text.substr(text.find("errno = ") + 8, text.find("\nL") - text.find("errno = ") - 8);
    EXPECT_EQ(text, call_of("kt_file::removef",
                            "T[E] kt_file::removef error removing file kept. rc = -1, errno = " + error +
                                "\nL MSG0045 [W] An error has been encountered removing the file kept. Errno was " + error + "\n",
                            "257"));
    EXPECT_TRUE(std::filesystem::exists("kept"));
    for (const char * name : {"caf\xC3\xA9.txt", "caf\xE9.txt"}) { // of a caller in UTF-8 and of one in the code page
        file.set_file_name(name);
        EXPECT_EQ(file.open("w"), 0);
        EXPECT_EQ(file.close(), 0);
        EXPECT_TRUE(read_file(name).empty() || std::filesystem::exists(std::filesystem::u8path(name)));
        EXPECT_EQ(file.copy_to("\xC3\xBC.txt"), 0);
        EXPECT_EQ(kt_chkfile(name) * 10 + kt_chkfile("\xC3\xBC.txt"), 1);
    }
}

/// What a full disk and a lost descriptor leave behind, where the system has them.
TEST(KtFile, KeepsTheStreamWhenClosingFails) {
    kt_file full(pathname("/dev/full"));
    if (kt_chkfile("/dev/full") == 0)
        GTEST_SKIP() << "no such device here";
    EXPECT_EQ(full.open("w"), 0);
    EXPECT_EQ(full.write("x", 1), 0);
    transcript lines(3);
    EXPECT_EQ(full.close(), 252);
    EXPECT_EQ(lines.take(), "T[E] kt_file::close Error closing /dev/full\n"
                            "L MSG0020 [F] Error closing the file /dev/full\n");
    EXPECT_EQ(full.write(std::string(100000, 'x').c_str(), 100000), 251); // still open
}
} // namespace
