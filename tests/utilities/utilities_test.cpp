#include "support.h"

#include <sstream>

namespace {
// Formats stand beside a model, with the other inputs that are generated.
TEST(Usprintf, TakesEachKindOfArgument)
{
    ustring out("before");
    const auto formatted = [&](const char * format, const auto &... args) {
        const int length = usprintf(out, format, args...);
        EXPECT_EQ(length, static_cast<int>(out.length()));
        return text_of(out);
    };
    EXPECT_EQ(formatted("%d|%d", -2147483647 - 1, 99999999999L), "-2147483648|2147483647");
    EXPECT_EQ(formatted("<%s>", static_cast<const char *>(nullptr)), "<>");
    out = "self";
    EXPECT_EQ(formatted("%s and %s", out, pathname("p\xE9")), "self and p\xE9");
}

TEST(Chkfile, TellsWhetherAFileExists)
{
    write_file("there.txt", "");
    transcript lines;
    EXPECT_EQ(kt_chkfile("there.txt") + kt_chkfile("."), 2);
    lines.take();
    pathname path;
    path = from_bytes(std::string("there.txt\0x", 11)); // not the file in front of the zero
    EXPECT_EQ(kt_chkfile("not there") + kt_chkfile("") + kt_chkfile(path), 0);
    EXPECT_EQ(lines.take().substr(32 * 2), "T[C] kt_chkfile >>>> ENTRY>>>>>\n");
}

TEST(Heapdump, WalksTheHeapOrSaysThatThereIsNone)
{
    const std::string panic = "PANIC - heapdump() called \n", status = printed_by([] { heapdump(nullptr); });
    const bool walked = status.find("Status=OK\n") != std::string::npos;
    EXPECT_TRUE(walked || status == panic + "OK - empty heap\n") << status;
    EXPECT_EQ(printed_by([] { heapdump("heap.txt"); }), panic);
    std::istringstream dump(read_text("heap.txt"));
    long used = 0;
    std::string line;
    while (std::getline(dump, line) && line.find(" block at ") == 6)
        used += line.starts_with("  USED ") ? std::stol(line.substr(line.rfind(' ')), nullptr, 16) : 0;
    EXPECT_EQ(line.find(walked ? "MemUsed=(" + std::to_string(used) + ")" : "OK - empty heap"), 0U) << line;
    EXPECT_EQ(used != 0, walked);
}

TEST(CaptureStream, KeepsLinesAndCountsThemBySeverity)
{
    auto * const said = new capture_stream;
    trace::set_stream(orvet::log::wa(), said);
    trace::set_level(orvet::log::wa(), 0);
    log_message(messages::MSG0020, "[W] x");
    log_message(messages::MSG0134, "x"); // its bracket is misprinted
    log_message("a tool's own [note]  MSG");
    log_message("bare");
    EXPECT_EQ(said->count(severity::fatal), 2U);
    EXPECT_EQ(said->count(severity::warning), 0U);
    EXPECT_EQ(said->lines().size(), 4U);
    const auto line = [&](unsigned i) { return text_of(static_cast<const ustring &>(*said->lines()[i])); };
    EXPECT_EQ(line(0) + "|" + line(2), "MSG0020 [F] Error closing the file [W] x|[note]  MSG");
    EXPECT_EQ(line(3).substr(line(3).size() - 6), "  bare"); // its time stamp in front
    for (const char * odd : {"", "x", " [", "  MSG1"})
        said->writeline(odd); // what no channel writes
    EXPECT_EQ(line(4) + "|" + line(5) + "|" + line(6) + "|" + line(7), "|x|[|MSG1");
    said->clear();
    EXPECT_EQ(said->lines().size() + said->count(severity::fatal), 0U);
    trace::set_stream(orvet::log::wa(), nullptr);
}
} // namespace
