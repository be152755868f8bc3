#include "support.h"

#include <cstdlib>

namespace {

/// What `usprintf` makes of a format, and the length that it returns.
template <class... Args>
std::string formatted(const char * format, const Args &... args)
{
    ustring out("before");
    const int length = usprintf(out, format, args...);
    return text_of(out) + ", " + std::to_string(length);
}

TEST(Usprintf, ReplacesItsTwoConversions)
{
    const example<std::string, std::string> rows[] = {
        {"no conversion", formatted("text"), "text, 4"},
        {"nothing", formatted(""), ", 0"},
        {"each kind of text", formatted("<%s%s%s>", ustring("u"), pathname("p\xE9"), "c"),
         "<up\xE9"
         "c>, 6"},
        {"numbers", formatted("[%d]: [1..%d]", -9, 3), "[-9]: [1..3], 12"},
        {"the ends of int", formatted("%d|%d", -2147483647 - 1, 99999999999L), "-2147483648|2147483647, 22"},
        {"a null text", formatted("<%s>", static_cast<const char *>(nullptr)), "<>, 2"},
        {"NULL for a text", formatted("<%s>", NULL), "<>, 2"},
        {"a zero of NULL's type", formatted("<%d>", decltype(NULL){}), "<0>, 3"},
        {"strings and enums",
         formatted("%s%s%d", std::string("s"), std::string_view("view", 1), severity::fatal), "sv4, 3"},
        {"too few arguments", formatted("%s and %s", "a"), "a and %s, 8"},
        {"too many arguments", formatted("%s", "a", 5), "a, 1"},
        {"an argument of the other kind", formatted("%d, %s", "a"), "%d, a, 5"},
        {"another conversion", formatted("100%% %5d %s", "a"), "100%% %5d a, 11"},
        {"a percent sign at the end", formatted("%s %", "a"), "a %, 3"},
        {"a conversion in a text", formatted("%s %s", "%d", 7, "b"), "7 b, 3"},
    };
    expect_each(rows, [](const std::string & result) { return result; });
    ustring self("self");
    usprintf(self, "%s and %s", self, self);
    EXPECT_EQ(text_of(self), "self and self");
}

TEST(Chkfile, SeesFilesAndDirectories)
{
    write_file("there.txt", "");
    const example<const char *, int> rows[] = {
        {"a file", "there.txt", 1}, {"a directory", ".", 1}, {"nothing", "not there", 0}, {"no name", "", 0}};
    expect_each(rows, [](const char * name) { return kt_chkfile(name); });
    pathname path;
    path = from_bytes(std::string("there.txt\0x", 11)); // not the file before the zero
    transcript lines;
    EXPECT_EQ(kt_chkfile(path), 0);
    EXPECT_EQ(lines.take(), "T[C] kt_chkfile >>>> ENTRY>>>>>\n");
}

TEST(Heapdump, AddsUpTheBlocksThatItLists)
{
    const std::string panic = "PANIC - heapdump() called \n";
    void * const volatile block = std::malloc(0x12345);
    EXPECT_EQ(printed_by([] { heapdump("heap.txt"); }), panic);
    const std::string status = printed_by([] { heapdump(nullptr); });
    std::free(block);
    std::istringstream dump(read_text("heap.txt"));
    unsigned used = 0; // sums wrap as the dump's do: some runtimes list parts of the heap with odd sizes
    unsigned free = 0;
    unsigned largest = 0;
    std::string line;
    while (std::getline(dump, line) && line.find(" block at ") == 6) {
        const auto size = static_cast<unsigned>(std::stoul(line.substr(line.rfind(' ')), nullptr, 16));
        const bool is_used = line.starts_with("  USED ");
        EXPECT_EQ(line.substr(0, 7), is_used ? "  USED " : "  FREE ");
        (is_used ? used : free) += size;
        largest = std::max(largest, is_used ? size : 0U);
    }
    if (line == "OK - empty heap") {
        EXPECT_EQ(status, panic + "OK - empty heap\n");
        GTEST_SKIP() << "no heap to walk here";
    }
    EXPECT_EQ(line, "MemUsed=(" + std::to_string(static_cast<int>(used)) + ") MemFree=(" +
                        std::to_string(static_cast<int>(free)) + ") Status=OK");
    if (native("/") == "/") { // other systems keep large blocks elsewhere
        EXPECT_GE(largest, 0x12345U);
    }
    EXPECT_EQ(status.find(panic + "MemUsed=("), 0U) << status;
}

TEST(CaptureStream, CountsLinesBySeverity)
{
    transcript silent;
    auto * const lines = new capture_stream;
    trace::set_stream(orvet::log::wa(), lines);
    log_message(messages::MSG0020, "[W] x");
    log_message(messages::MSG0134, "x"); // its bracket is misprinted
    log_message("MSG0999 [I] one");
    log_message("bare");
    const auto count = [&](severity s) { return lines->count(s); };
    EXPECT_EQ(lines->lines().size(), 4U);
    EXPECT_EQ(count(severity::fatal), 2U);
    EXPECT_EQ(count(severity::warning), 0U);
    EXPECT_EQ(count(severity::info), 1U);
    EXPECT_EQ(text_of(static_cast<const ustring &>(*lines->lines()[0])),
              "MSG0020 [F] Error closing the file [W] x");
    EXPECT_EQ(text_of(static_cast<const ustring &>(*lines->lines()[2])), "MSG0999 [I] one");
    lines->clear();
    EXPECT_EQ(lines->lines().size(), 0U);
    EXPECT_EQ(count(severity::fatal), 0U);
}

TEST(CaptureStream, CutsTheTimeStampAlone)
{
    transcript silent;
    auto * const lines = new capture_stream;
    trace::set_stream(orvet::log::wa(), lines);
    const example<const char *, std::string> rows[] = {
        {"a number of the tool's own", "CAT0003 [I] Server one", "CAT0003 [I] Server one"},
        {"neither number nor severity", "bare", "bare"},
        {"blanks of the text's own", "  MSG [I]", "  MSG [I]"},
        {"nothing", "", ""},
    };
    expect_each(rows, [&](const char * text) {
        lines->clear();
        log_message("%s", text);
        return text_of(static_cast<const ustring &>(*lines->lines()[0]));
    });
    lines->clear();
    lines->writeline("no channel's line [I]\n");
    EXPECT_EQ(text_of(static_cast<const ustring &>(*lines->lines()[0])), "no channel's line [I]");
}

TEST(CaptureStream, KeepsTraceLinesFromTheirSeverityOn)
{
    transcript silent;
    auto * const lines = new capture_stream;
    trace::set_stream(system_trace::wa(), lines);
    call_trace("f").error("failure");
    EXPECT_EQ(text_of(static_cast<const ustring &>(*lines->lines()[1])), "[E] f failure");
    EXPECT_EQ(lines->count(severity::call), 1U);
    EXPECT_EQ(lines->count(severity::error), 1U);
}

} // namespace
