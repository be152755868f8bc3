#include "support.h"

#include <cstring>
#include <ctime>

namespace {
/// Keeps the trace's whole lines, time stamps included.
class Trace : public testing::Test, public trace_stream {
protected:
    Trace()
    {
        trace::set_stream(wa, this);
        wa.current_size = 0;
    }
    ~Trace() override { wa.stream = nullptr; } // not the channel's to delete
    int writeline(const char * line) override
    {
        lines += line;
        return static_cast<int>(std::strlen(line));
    }
    std::string written(const char * severity, const char * name, const char * text)
    {
        lines.clear();
        trace::write_header(wa, severity, name);
        trace::write_text(wa, text, 5);
        return lines;
    }
    work_area & wa = system_trace::wa();
    std::string lines;
};

TEST_F(Trace, LinesHaveTheirLayout)
{
    char now[100];
    std::string line;
    written("", "", "");
    std::time_t before = std::time(nullptr);
    while (before == std::time(nullptr))
        continue; // that line's stamp is of an earlier second
    do {          // which may end in between
        before = std::time(nullptr);
        std::strftime(now, sizeof now, "%c", std::localtime(&before));
        wa.current_size = 0;
        line = written(" [C] ", "kt_file::close", trace::internal_write_text("%s", ">>>> ENTRY>>>>>"));
    } while (before != std::time(nullptr));
    struct opened : trace {
        using trace::write_current_time;
    };
    opened::write_current_time(wa);
    EXPECT_EQ(wa.line, line.substr(0, std::strlen(now)));
    EXPECT_EQ(line, std::string(now) + " [C] kt_file::close >>>> ENTRY>>>>>\n");
    EXPECT_EQ(wa.current_size, static_cast<long>(line.size()));
    EXPECT_EQ(written(" ", "", "100%d").substr(std::strlen(now)), "  100%d\n");
    trace::set_stream(wa, this); // the present one: nothing changes
    EXPECT_EQ(written(" ", "", nullptr).substr(std::strlen(now)), "  \n");
    EXPECT_EQ(wa.current_size, static_cast<long>(line.size() + 2 * std::strlen(now) + 11));
}

// What does not fit, and where it is cut, stands beside a model, with the other inputs that are generated.
TEST_F(Trace, ALineIsFullAtItsLimit)
{
    std::memset(wa.line, 'x', 1023), lines.clear();
    trace::write_text(wa, "more");
    EXPECT_EQ(lines, std::string(1022, 'x') + "\n");
    EXPECT_EQ(std::strlen(trace::internal_write_text("%s", (std::string(1022, 'x') + "\xC3\xA9").c_str())),
              1022U);
}

TEST_F(Trace, FormatsAsPrintf)
{
    const auto text = trace::internal_write_text;
    EXPECT_STREQ(text("%d %5.2f|%-4s|%x%%l", -1, 2.5, "ab", 255U), "-1  2.50|ab  |ff%l");
    EXPECT_STREQ(text("offset %l from %ld, %l, %lu", 70000L, -3L, 9L, 5UL), "offset 70000 from -3, 9, 5");
    EXPECT_EQ(text(("%l" + std::string(3000, 'x') + "%l").c_str(), 7L, 8L), "7" + std::string(1022, 'x'));
    EXPECT_TRUE(std::string("x%lc") == text("x%lc", 0x110000) || native("/") == "\\"); // no character
    EXPECT_EQ(std::strlen(text("%2000d", 1)), 1023U);
    EXPECT_STREQ(trace::system_error_to_string(wa, 999999), "System error 999999\n");
    const std::string missing = trace::system_error_to_string(wa, 2);
    kt_chkfile("not there");
    EXPECT_TRUE(trace::last_system_error_to_string(wa) == missing &&
                missing.find("System error") == std::string::npos);
    EXPECT_EQ(stdio_trace_stream(static_cast<std::FILE *>(nullptr)).writeline("x"), -1);
    std::FILE * const file = std::fopen("lines.txt", "wb");
    stdio_trace_stream stream(file);
    EXPECT_TRUE(std::fputs("ahead ", file) >= 0 && stream.writeline("of it\n") == 6 &&
                read_text("lines.txt") == "ahead of it\n");
    EXPECT_TRUE(std::fseek(file, 6, SEEK_SET) == 0 && stream.writeline("and ") == 4 &&
                std::fseek(file, 0, SEEK_CUR) == 0);
    EXPECT_TRUE(stream.writeline("on") == 2 && read_text("lines.txt") == "ahead and on")
        << read_text("lines.txt");
}

/// For an operation that no caller can name.
template <auto Operation>
struct reach {
    friend void change_file(work_area & area) { Operation(area); }
};
void change_file(work_area & area);
template struct reach<&trace::change_trace_file>;

TEST_F(Trace, ChangesBetweenItsTwoFiles)
{
    for (const char * name : {"ktx2.trc", "ktx1.trc", "ktx2.trc"}) {
        std::filesystem::remove(name);
        if (wa.stream == this)
            wa.stream = nullptr;
        change_file(wa);
        EXPECT_EQ(written(" [F] ", "name", "text"), "");
        EXPECT_EQ(wa.current_size, static_cast<long>(read_text(name).size()));
        EXPECT_TRUE(wa.current_size > 15 && wa.file_name->text() == ustring(name)) << name;
    }
    trace::set_stream(wa, this);
}

TEST_F(Trace, SilenceCanBeOverridden)
{
    const std::tuple<const char *, int, int> cases[] = {{nullptr, 6, 6},  {"0", 6, 0}, {"x", 6, 0},
                                                        {" \t+3", 6, 3},  {"3", 5, 5}, {"\0163", 6, 0},
                                                        {nullptr, -7, -7}};
    for (work_area * area : {&system_trace::wa(), &orvet::log::wa()})
        for (const auto & [variable, wish, level] : cases) {
            set_variable("ostrel_trace_level", variable);
            trace::set_level(*area, wish);
            EXPECT_EQ(trace::level(*area), level);
            trace::set_level(*area, 5);
        }
    set_variable("ostrel_trace_level", nullptr);
}

TEST(CallTrace, GatesLetThroughBySeverity)
{
    for (int level = -1; level <= 6; ++level) {
        transcript said(level, 5);
        const call_trace trace("f");
        trace.info(""), trace.warning(""), trace.error(""), trace.fatal("");
        log_message(messages::MSG0001);
        std::string expected;
        for (int severity = std::max(level, 0); severity < 5; ++severity)
            expected +=
                std::string("T[") + "CIWEF"[severity] + "] f " + (severity == 0 ? ">>>> ENTRY>>>>>\n" : "\n");
        EXPECT_EQ(said.take(), expected) << level;
    }
}

TEST(CallTrace, TypedArgumentsFitTheirConversions)
{
    transcript said;
    const call_trace trace("f");
    said.take();
    trace.info("%s %s %s %d %d %l %ld", ustring("u"), pathname("p"), std::string("s").c_str(), short{-5},
               9999999999LL, 70000L, -1L);
    trace.info("%hd %hu %u %x %c 100%% %9d|%-4s|%.3s", 70000, 65537U, 4000000000U, 255, 'A', 42, "ab",
               "ab\xC3\xA9");
    trace.info("%hhd %hhu %lld %lu %li", 300, 257U, 9999999999LL, 7UL, -7L);
    trace.info("%s|%d%.0s", static_cast<const char *>(nullptr), true, "x");
    trace.info("to its zero%c%s", 0, "x");
    trace.info("%c%5s", 0xE9, "f\xE9");
    for (const auto & [odd, expected] : {std::pair("|%d", "|"), {"|%q", "|q"}, {"|%hq", "|q"}, {"|%", "|"}})
        EXPECT_STREQ(format_message(odd, nullptr, 0), expected); // where nothing was checked
    EXPECT_EQ(said.take(),
              "T[I] f u p s -5 2147483647 70000 -1\n"
              "T[I] f 4464 1 4000000000 ff A 100%        42|ab  |ab\n"
              "T[I] f 44 1 9999999999 7 -7\nT[I] f |1\nT[I] f to its zero\nT[I] f \xE9   f\xE9\n");
    EXPECT_EQ(trace.fail(short{252}), 252);
    trace.leave(100000U);
    EXPECT_EQ(said.take(), "T[C] f <><><><><> QUITTING\nT[C] f return data = 252\nT[C] f <<<<<<<<<< EXIT\n"
                           "T[C] f return data = 34464\nT[C] f <<<<<<<<<< EXIT\n");
    EXPECT_EQ(printed_by([] { console_message(messages::MSGI0004, "-x"); }),
              "MSGI0004 [F] The option -x is not supported.\n");
}

const scenario channel_files("channel_files", [] {
    const bool open = system_trace::passes(severity::fatal) || trace::level(system_trace::wa()) != 6;
    log_message(messages::MSG0020, "x");
    trace::set_level(system_trace::wa(), 0);
    call_trace("f").leave();
    console_message("%d %s %d", open, system_trace::wa().file_name->mbcs_str(),
                    trace::max_size(orvet::log::wa()));
    for (int i = 0; i < 2; ++i) {
        const orvet::log closing{};
        log_message(messages::MSG0001); // dropped once the channel is closed
    }
    die(); // every line was out when it was written
});

/// The lines of a file from `mark` on, without what stands in front of it.
std::string behind(const char * mark, const char * file)
{
    std::string found;
    const std::string all = read_text(file);
    for (std::size_t at = 0; (at = all.find(mark, at)) != std::string::npos; at = all.find('\n', at))
        found += all.substr(at, all.find('\n', at) + 1 - at);
    return found;
}

TEST(Channels, FilesGrowFromRunToRun)
{
    for (const char * name : {"ktx1.trc", "ktx1.log"})
        std::filesystem::remove(name);
    for (int run = 0; run < 2; ++run)
        EXPECT_EQ(run_scenario("channel_files").find("0 ktx1.trc 500000\n"), 0U);
    const std::string log =
        "  MSG0020 [F] Error closing the file x\n"
        "  MSG0001 [F] A read/write operation has been attempted toa file that is not open\n";
    EXPECT_EQ(behind("  MSG", "ktx1.log"), log + log);
    const std::string call = " [C] f >>>> ENTRY>>>>>\n [C] f <<<<<<<<<< EXIT\n";
    EXPECT_EQ(behind(" [C]", "ktx1.trc"), call + call);
}

const scenario no_directory("no_directory", [] {
    set_variable("KTXPATH", "not/there");
    if (std::freopen("stderr.txt", "w", stderr))
        log_message(messages::MSG0001);
    {
        orvet::log closing;
        system_trace too;
    } // leaves standard error open
    std::fputs("end", stderr);
});

const scenario no_path("no_path", [] {
    set_variable("KTXPATH", nullptr);
    system_trace::wa();
    log_message(messages::MSG0001);
    stdio_trace_stream((test_directory() / "absolute.txt").string().c_str()).writeline("there");
});

TEST(Channels, WorkWithoutTheirDirectory)
{
    EXPECT_EQ(run_scenario("no_directory"), "");
    const std::string text = read_text("stderr.txt");
    const std::string path = "not/there" + native("/") + "ktx1.log";
    EXPECT_EQ(text.find("Could not open trace file ->" + path + "<-, logging on stderr\n"), 0U) << text;
    EXPECT_TRUE(text.find("  MSG0001 [F] A read") != std::string::npos && text.ends_with("not open\nend"))
        << text;
    for (const char * name : {"ktx1.log", "absolute.txt"})
        std::filesystem::remove(name);
    EXPECT_EQ(run_scenario("no_path").find("MSGI0001 [F] The environment variable KTXPATH"), 0U);
    EXPECT_EQ(behind("  MSG", "ktx1.log"),
              text.substr(text.find("  MSG"), text.rfind("end") - text.find("  MSG"))); // in the current one
    EXPECT_EQ(read_text("absolute.txt"), "there");
}
} // namespace
