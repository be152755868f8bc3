#include "support.h"

namespace {
constexpr char not_open[] =
    "L MSG0001 [F] A read/write operation has been attempted toa file that is not open\n";

/// The lines of one call: entry, its own lines, a quit line or not, return line and exit.
std::string call_of(const std::string & name, const std::string & own, const std::string & code,
                    bool quits = false)
{
    const std::string call = "T[C] " + name + " ";
    return call + ">>>> ENTRY>>>>>\n" + own + (quits ? call + "<><><><><> QUITTING\n" : "") +
           (code.empty() ? "" : call + "return data = " + code + "\n") + call + "<<<<<<<<<< EXIT\n";
}

TEST(KtFile, OpensMeasuresAndCloses)
{
    write_file("ten.txt", "0123456789");
    transcript lines;
    kt_file file(pathname("ten.txt"));
    EXPECT_EQ(lines.take(), call_of("kt_file(pathname)", "T[I] kt_file(pathname) Path is <ten.txt>\n", ""));
    const auto seek = [](const std::string & origin) {
        const std::string line = "T[W] kt_file::seek seeking in ten.txt file. offset is 0 origin is ";
        return call_of("kt_file::seek", line + origin + "\n", "0");
    };
    const std::string size =
        call_of("kt_file::get_pos", "", "0") + "T[I] kt_file::open The size of the file is 10\n";
    EXPECT_EQ(sum({file.open("r"), file.file_size()}), 10);
    EXPECT_EQ(lines.take(),
              call_of("kt_file::open",
                      "T[W] kt_file::open opening ten.txt file with mode r\n" + seek("2") + size + seek("0"),
                      "0"));
    for (int open_or_not = 0; open_or_not < 2; ++open_or_not) {
        EXPECT_EQ(sum({file.close(), file.file_size()}), 0);
        EXPECT_EQ(lines.take(),
                  call_of("kt_file::close", "T[W] kt_file::close closing <ten.txt> file\n", "0"));
    }
    for (const std::string name : {"/a.txt", ""}) {
        EXPECT_EQ(text_of(kt_file(ustring(name.c_str())).file_name().text()),
                  native(test_directory().generic_string() + "/") + name.substr(name.size() != 0));
        EXPECT_EQ(lines.take(), call_of("kt_file(file_name)", "", ""));
    }
}

TEST(KtFile, TellsWhatCantBeOpened)
{
    std::filesystem::create_directories("folder");
    write_file("ten.txt", "0123456789");
    const std::pair<std::string, std::string> cases[] = {
        {"missing.txt", "r"}, {"folder", "r"},      {"folder", "w"},   {"", "r"},
        {"missing.txt", ""},  {"missing.txt", "?"}, {"ten.txt", "wx"}, {"ten.txt", "r,ccs=UTF-8"}};
    for (const auto & [name, mode] : cases) {
        kt_file file(pathname("ten.txt"));
        EXPECT_EQ(file.open("r"), 0);
        file.set_file_name(name.c_str());
        EXPECT_EQ(without({}, told([&] { return file.open(mode.c_str()); })),
                  call_of("kt_file::open",
                          "T[W] kt_file::open opening " + name + " file with mode " + mode +
                              "\nT[E] kt_file::open Error opening -->" + name +
                              "<-- file\nL MSG0017 [F] Error opening the file " + name + ", errno =\tN.\n",
                          "250", true) +
                      "250");
        EXPECT_EQ(file.file_size(), 10);
    }
    EXPECT_EQ(read_file("ten.txt"), "0123456789");
}

TEST(KtFile, SaysWhenItIsNotOpen)
{
    kt_file file(pathname("x"));
    ustring line("kept");
    long position = 7;
    char byte = 0;
    const std::tuple<std::string, std::function<int()>, int, const char *> cases[] = {
        {"kt_file::seek", [&] { return file.seek(0, 0); }, 255, "255"},
        {"kt_file::get_pos", [&] { return file.get_pos(&position); }, 255, "255"},
        {"kt_file::write", [&] { return file.write(line); }, 255, "255"},
        {"kt_file::write(b,s)", [&] { return file.write(&byte, 1); }, 255, "255"},
        {"kt_file:read", [&] { return file.read(&byte, 1, 1); }, 255, "255"},
        {"kt_file:read", [&] { return static_cast<int>(file.read(&byte, 1)); }, 0, "0"},
        {"kt_file::get_line", [&] { return file.get_line(line); }, 0, ""}};
    for (const auto & [name, call, code, shown] : cases)
        EXPECT_EQ(told(call),
                  call_of(name, "T[F] " + name + " file <x> not open\n" + not_open, shown, *shown != 0) +
                      std::to_string(code));
    EXPECT_EQ(text_of(line) + std::to_string(position), "kept7");
}

TEST(KtFile, ReadsAndSeeks)
{
    write_file("data.txt", "one\r\ntwo\n\nlast");
    kt_file file(pathname("data.txt"));
    EXPECT_EQ(file.open("r"), 0);
    ustring line;
    char buffer[16] = {};
    EXPECT_EQ(sum({file.seek(-4, SEEK_END), file.read(buffer, 2, 2)}), 0);
    EXPECT_EQ(told([&] { return sum({file.read(buffer + 4, 8), file.get_line(line)}); }, 1), "0");
    EXPECT_EQ(file.seek(11, SEEK_SET), 0);
    EXPECT_EQ(told([&] { return file.read(buffer + 4, 1, 5); }, 1),
              "T[F] kt_file:read Error reading from data.txt file. count = 5, read_bytes =3\n"
              "L MSG0037 [F] System error reading 5 bytes from file data.txt. Read 3 bytes.\n254");
    EXPECT_STREQ(buffer, "lastast");
    EXPECT_EQ(told([&] { return file.seek(-1, SEEK_SET); }, 1),
              "T[W] kt_file::seek seeking in data.txt file. offset is -1 origin is 0\n"
              "T[E] kt_file::seek Error seeking in file data.txt at offset -1 from origin 0\n"
              "L MSG0019 [F] Error seeking in the file data.txt to offset -1 from origin 0.\n253");
    EXPECT_EQ(file.close(), 0);
}

TEST(KtFile, Writes)
{
    kt_file file(pathname("out.bin"));
    const std::string bytes("caf\xC3\xA9 \xE9 \0 z", 11);
    EXPECT_EQ(
        sum({file.open("wb"), file.write(from_bytes(bytes)), file.write(ustring()), file.write("\n!", 2)}),
        0);
    EXPECT_EQ(sum({file.open("ab"), file.file_size()}), 13); // the first stream is closed without a word
    EXPECT_EQ(file.close(), 0);
    EXPECT_EQ(read_file("out.bin"), bytes + "\n!");
    EXPECT_EQ(file.open("rb"), 0);
    EXPECT_EQ(told([&] { return file.write(ustring("\xC3\xA9")); }, 1),
              "T[F] kt_file::write error writing to file out.bin. written is 0\n"
              "L MSG0018 [F] Error writing to file out.bin. Written bytes were 0, to write 2.\n251");
    EXPECT_EQ(without({}, told([&] { return file.write("abc", 3); }, 1)),
              "T[F] kt_file::write(b,s) error writing to file out.bin. written is 0, errno is N\n"
              "L MSG0018 [F] Error writing to file out.bin. Written bytes were 0, to write 3.\n251");
    EXPECT_EQ(file.close(), 0); // told already
}

TEST(KtFile, KnowsItsPlace)
{
    const long feed = native("/") == "/" ? 1 : 2;
    const std::tuple<const char *, std::string, long, std::string> cases[] = {
        {"r+", "AB", 14, "line0\nline1\nABne2\n"}, {"a+", "A\n", 19 + feed, "line0\nline1\nline2\nA\n"}};
    for (const auto & [mode, written, place, text] : cases) {
        write_file("text.txt", "line0\nline1\nline2\n");
        kt_file file(pathname("text.txt"));
        ustring line;
        long at = 0;
        EXPECT_EQ(sum({file.open(mode), file.get_line(line), file.seek(-1, SEEK_SET), file.get_line(line)}),
                  255);
        EXPECT_TRUE(file.get_pos(&at) == 0 && at == 12 && line == ustring("line1") && !file.error());
        EXPECT_EQ(
            sum({file.write(written.c_str(), static_cast<unsigned>(written.size())), file.get_pos(&at)}), 0);
        EXPECT_EQ(at + file.close(), place);
        EXPECT_EQ(read_text("text.txt"), text);
    }
    write_file("large.txt", "");
    std::filesystem::resize_file("large.txt", 5368709126U);
    kt_file large(pathname("large.txt"));
    EXPECT_EQ(sum({large.open("r"), large.close()}), sizeof(long) == 8 ? 0 : 256);
    std::filesystem::remove("large.txt");
}

TEST(KtFile, MovesAndRemoves)
{
    write_file("from.txt", "new");
    write_file("to.txt", "old");
    kt_file file(pathname("from.txt"));
    if (const auto holder = hold_file("to.txt")) { // nothing of either file is lost, and no stream stays open
        kt_file held(pathname("to.txt"));
        EXPECT_EQ(sum({held.open("r"), held.open("w"), held.open("a")}), 750);
        EXPECT_EQ(sum({held.removef(), file.copy_to("to.txt")}), 263);
    }
    const auto move = [&] { return file.copy_to("to.txt"); };
    const auto remove = [&] { return file.removef(); };
    const std::string moving = "T[W] kt_file::copy_to renaming file <from.txt> to <to.txt>\n"
                               "T[W] kt_file::copy_to remove done with rc=0, errno=0\n",
                      refused =
                          "T[E] kt_file::copy_to Rename failed with rc=-1, errno=2\n"
                          "L MSG0016 [E] The execution of the command to.txt returned rc -1, errno = 2\n";
    EXPECT_EQ(told(move), call_of("kt_file::copy_to", moving, "0") + "0");
    EXPECT_EQ(read_file("to.txt") + read_file("from.txt"), "new(no file)");
    EXPECT_EQ(told(move),
              call_of("kt_file::copy_to", moving + refused, "6", true) + "6"); // what was there is gone
    EXPECT_EQ(told(remove), call_of("kt_file::removef", "", "0") + "0");
    std::filesystem::create_directories("kept");
    file.set_file_name("kept");
    EXPECT_EQ(without({}, told(remove)),
              call_of("kt_file::removef",
                      "T[E] kt_file::removef error removing file kept. rc = -1, errno = N\n"
                      "L MSG0045 [W] An error has been encountered removing the file kept. Errno was N\n",
                      "257") +
                  "257");
    EXPECT_TRUE(std::filesystem::exists("kept"));
    file.set_file_name(from_bytes(std::string("kept\0x", 6))); // not what stands in front of the zero
    EXPECT_EQ(sum({file.removef(), file.copy_to("to.txt")}), 263);
    for (const char * name :
         {"caf\xC3\xA9.txt", "caf\xE9.txt"}) { // of a caller in UTF-8 and of one in the code page
        file.set_file_name(name);
        EXPECT_EQ(sum({file.open("w"), file.close()}), 0);
        EXPECT_TRUE(read_file(name).empty() || std::filesystem::exists(std::filesystem::u8path(name)));
        EXPECT_EQ(file.copy_to("\xC3\xBC.txt"), 0);
        EXPECT_EQ(kt_chkfile(name) * 10 + kt_chkfile("\xC3\xBC.txt"), 1);
    }
}

/// A full disk and a pipe, which opens but can't be measured, where the system has them.
TEST(KtFile, WorksOnDevicesAsFarAsTheyGo)
{
    kt_file full(pathname("/dev/full")), pipe(pathname("pipe"));
    if (kt_chkfile("/dev/full") == 0 || std::system("mkfifo pipe") != 0)
        GTEST_SKIP() << "no such devices here";
    EXPECT_EQ(sum({full.open("w"), full.write("x", 1)}), 0);
    EXPECT_EQ(told([&] { return full.close(); }, 3), "T[E] kt_file::close Error closing /dev/full\n"
                                                     "L MSG0020 [F] Error closing the file /dev/full\n252");
    EXPECT_EQ(full.write(std::string(100000, 'x').c_str(), 100000), 251); // still open
    char byte = 0;
    for (const bool items : {false, true}) { // what is lost in turning to reading is told by `close`, once
        EXPECT_EQ(sum({full.open("w+"), full.write("x", 1)}), 0);
        EXPECT_EQ(items ? full.read(&byte, 1, 1) : static_cast<int>(full.read(&byte, 1)), items ? 0 : 1);
        EXPECT_EQ(full.close(), 252);
        EXPECT_EQ(full.close(), 0);
    }
    EXPECT_EQ(told([&] { return pipe.open("r+"); }, 3),
              "T[E] kt_file::seek Error seeking in file pipe at offset 0 from origin 2\n"
              "L MSG0019 [F] Error seeking in the file pipe to offset 0 from origin 2.\n"
              "T[F] kt_file::open Error seeking at the end of the file -->pipe<--\n253");
    EXPECT_EQ(sum({file_input_parms().get_fips("pipe", 1, "USER=", 3), pipe.close()}), 253);
}
} // namespace
