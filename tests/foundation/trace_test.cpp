#include "support.h"

#include <cerrno>
#include <cstring>
#include <ctime>

namespace {

/// The lines of a channel, whole.
class whole_lines : public trace_stream {
public:
    explicit whole_lines(std::string & lines) : lines_(lines) {}
    int writeline(const char * line) override
    {
        lines_ += line;
        return static_cast<int>(std::strlen(line));
    }

private:
    std::string & lines_;
};

class Channel : public testing::Test {
protected:
    Channel() { trace::set_stream(wa, new whole_lines(lines)); }
    ~Channel() override { trace::set_stream(wa, nullptr); }

    work_area wa{};
    std::string lines;
};

std::string time_stamp()
{
    char now[100];
    const std::time_t second = std::time(nullptr);
    std::strftime(now, sizeof now, "%c", std::localtime(&second));
    return now;
}

TEST_F(Channel, LineBeginsWithTheTimeOfNow)
{
    trace::write_header(wa, "", "");
    const std::string earlier = time_stamp();
    while (time_stamp() == earlier)
        continue;
    std::string now;
    do {
        now = time_stamp();
        lines.clear();
        wa.current_size = 0;
        trace::write_header(wa, " [C] ", "kt_file::close");
        trace::write_text(wa, "100%d", 5);
    } while (now != time_stamp());
    EXPECT_EQ(lines, now + " [C] kt_file::close 100%d\n");
    EXPECT_EQ(wa.line, lines);
    EXPECT_EQ(wa.current_size, static_cast<long>(lines.size()));
}

TEST_F(Channel, NullTextsAreEmptyAndSizesAddUp)
{
    trace::write_header(wa, nullptr, nullptr);
    trace::write_text(wa, nullptr);
    const std::size_t stamp = time_stamp().size();
    EXPECT_EQ(lines.substr(stamp), " \n");
    trace::set_stream(wa, wa.stream); // the present one stays
    trace::write_line(wa, " ", nullptr, "text", nullptr, 0);
    EXPECT_EQ(lines.substr(2 * stamp + 2), "  text\n");
    EXPECT_EQ(wa.current_size, static_cast<long>(lines.size()));
    struct opened : trace {
        using trace::write_current_time;
    };
    opened::write_current_time(wa);
    EXPECT_EQ(std::strlen(wa.line), stamp);
}

struct cut {
    int before; // bytes in the line
    const char * text;
};
const example<cut, std::string> full_lines[] = {
    {"the last byte", {1020, "y"}, " y\n"},
    {"one byte too many", {1021, "y"}, " \n"},
    {"a wide character at the end", {1019, "\xC3\xA9"}, " \xC3\xA9\n"},
    {"a wide character that does not fit", {1020, "\xC3\xA9"}, " \n"},
    {"four bytes, of which three fit", {1018, "\xF0\x9F\x99\x82"}, " \n"},
    {"no room for the blank", {1022, "y"}, "\n"},
};

TEST_F(Channel, CutsALineAtACharactersEnd)
{
    expect_each(full_lines, [this](const cut & line) {
        lines.clear();
        std::memset(wa.line, 'x', sizeof wa.line);
        wa.line[line.before] = 0;
        trace::write_text(wa, line.text);
        return lines.substr(static_cast<std::size_t>(line.before));
    });
}

TEST_F(Channel, CutsAHeaderThatIsTooLong)
{
    const std::string wide = std::string(1020 - time_stamp().size(), 's') + "\xC3\xA9\xC3\xA9";
    trace::write_header(wa, wide.c_str(), "name");
    EXPECT_EQ(std::strlen(wa.line), 1022U);
    trace::write_header(wa, ("s" + wide).c_str(), "name");
    EXPECT_EQ(std::strlen(wa.line), 1021U);
    trace::write_line(wa, wide, "name", "text", nullptr, 0);
    EXPECT_EQ(lines.size(), 1023U);
    EXPECT_EQ(lines.find("name"), std::string::npos);
}

const std::string x1022(1022, 'x');

TEST(Format, FollowsPrintfWithinItsBuffer)
{
    const auto text = trace::internal_write_text;
    const example<std::string, std::string> rows[] = {
        {"printf's conversions", text("%d %5.2f|%-4s|%x", -1, 2.5, "ab", 255U), "-1  2.50|ab  |ff"},
        {"a bare l", text("offset %l from %ld, %l.", 70000L, -3L, 9L), "offset 70000 from -3, 9."},
        {"an l that has its letter", text("%lu %lx %ls|", 5UL, 255UL, L"w"), "5 ff w|"},
        {"an l after percent signs", text("%%l %%%l", 7L), "%l %7"},
        {"no format", text(nullptr), ""},
        {"a full buffer", text("%s", (x1022 + "yz").c_str()), x1022 + "y"},
        {"a wide character at the end", text("%s", (x1022 + "\xC3\xA9").c_str()), x1022},
        {"a long format", text(("%l" + x1022 + x1022 + "%l").c_str(), 7L, 8L), "7" + x1022},
    };
    expect_each(rows, [](const std::string & result) { return result; });
}

/// The text of a trace line that is made of typed arguments.
template <class... Args>
std::string traced(format_for<Args...> format, const Args &... args)
{
    const call_trace trace("f");
    transcript lines;
    trace.info(format, args...);
    const std::string line = lines.take();
    return line.substr(7, line.size() - 8);
}

TEST(Format, ConvertsTypedArguments)
{
    const example<std::string, std::string> rows[] = {
        {"each kind of text", traced("%s %s %s", ustring("u"), pathname("p"), "c"), "u p c"},
        {"a null text", traced("%s|", static_cast<const char *>(nullptr)), "|"},
        {"a text to its zero", traced("%s|", from_bytes(std::string("a\0b", 3))), "a|"},
        {"sizes", traced("%ld %lld %hd %hhd", 70000L, 9999999999LL, -5, 3), "70000 9999999999 -5 3"},
        {"no sign", traced("%u %lu %hu %hhu", 4000000000U, 7UL, 65537U, 257U), "4000000000 7 1 1"},
        {"a long for an int", traced("%d %i", 9999999999LL, -9999999999LL), "2147483647 -2147483648"},
        {"an int for a short", traced("%hd %hhd", 70000, 300), "4464 44"},
        {"a bare l", traced("%l!", 70000L), "70000!"},
        {"bases", traced("%x %X", 255, 48879), "ff BEEF"},
        {"a truth and a character", traced("%d%c%%", true, 'A'), "1A%"},
        {"widths and flags", traced("%5d|%-5d|%05d|%+d", 42, 42, 42, 42), "   42|42   |00042|+42"},
        {"widths of texts", traced("%5s|%-4s|", "ab", "ab"), "   ab|ab  |"},
        {"a precision within a character", traced("%.3s|%.0s", "ab\xC3\xA9", "x"), "ab|"},
        {"a zero character ends the text", traced("a%cb", 0), "a"},
        {"Latin-1", traced("%c %3s", 0xE9, "f\xE9"), "\xE9  f\xE9"},
        {"too few arguments", format_message("|%d", nullptr, 0), "|"},
        {"an unknown conversion", format_message("|%hq", nullptr, 0), "|q"},
        {"a percent sign at the end", format_message("|%", nullptr, 0), "|"},
    };
    expect_each(rows, [](const std::string & result) { return result; });
}

TEST(SystemError, HasTheSystemsTextOrItsNumber)
{
    work_area wa{};
    EXPECT_STREQ(trace::system_error_to_string(wa, 999999), "System error 999999\n");
    const std::string missing = trace::system_error_to_string(wa, 2);
    EXPECT_EQ(missing.find("System error"), std::string::npos);
    kt_chkfile("not there");
    EXPECT_EQ(trace::last_system_error_to_string(wa), missing);
}

const example<std::pair<const char *, int>, int> silences[] = {
    {"no variable", {nullptr, 6}, 6}, {"zero", {"0", 6}, 0},
    {"no number", {"x", 6}, 0},       {"blanks and a sign", {" \t+3", 6}, 3},
    {"another level", {"3", 5}, 5},   {"a negative level", {nullptr, -7}, -7},
};

TEST(Channels, SilenceCanBeOverridden)
{
    expect_each(silences, [](const auto & each) {
        work_area wa{};
        set_variable("ostrel_trace_level", each.first);
        trace::set_level(wa, each.second);
        return trace::level(wa);
    });
}

TEST(CallTrace, GatesPassBySeverity)
{
    transcript lines;
    for (int level = -1; level <= 6; ++level) {
        trace::set_level(system_trace::wa(), level);
        trace::set_level(orvet::log::wa(), level);
        lines.step("both levels " + std::to_string(level), [] {
            const call_trace trace("f");
            trace.info("progress");
            trace.warning("step");
            trace.error("failure");
            trace.fatal("end");
            log_message(messages::MSG0001);
        });
    }
    expect_golden("call_trace_gates", lines.take());
}

TEST(CallTrace, CallLinesShowResultsAsTheyAre)
{
    transcript lines;
    const call_trace trace("f");
    lines.step("without a result", [&] { trace.leave(); });
    lines.step("a short", [&] { return trace.leave(short{-5}); });
    lines.step("an int", [&] { return trace.leave(100000); });
    lines.step("an unsigned of a short's size", [&] { return trace.leave(100000U); });
    lines.step("a failure", [&] { return trace.fail(short{252}); });
    lines.step("quitting", [&] { trace.quit(); });
    expect_golden("call_trace_results", lines.take());
}

TEST(ConsoleMessage, PassesNoGate)
{
    EXPECT_EQ(printed_by([] { console_message(messages::MSGI0004, "-x"); }),
              "MSGI0004 [F] The option -x is not supported.\n");
}

TEST(StdioTraceStream, WritesThroughWhereTheStreamIs)
{
    EXPECT_EQ(stdio_trace_stream(static_cast<std::FILE *>(nullptr)).writeline("x"), -1);
    std::FILE * const file = std::fopen("lines.txt", "wb");
    stdio_trace_stream stream(file);
    std::fputs("before ", file);
    EXPECT_EQ(stream.writeline("line\n"), 5);
    EXPECT_EQ(read_text("lines.txt"), "before line\n");
    std::fseek(file, 7, SEEK_SET);
    EXPECT_EQ(stream.writeline("LI"), 2);
    EXPECT_EQ(stream.writeline("NE"), 2);
    EXPECT_EQ(read_text("lines.txt"), "before LINE\n");
    EXPECT_EQ(stream.writeline(nullptr), -1);
}

const scenario channel_files("channel_files", [] {
    std::printf("%d %d,", system_trace::passes(severity::fatal), trace::level(system_trace::wa()));
    std::printf(" %d %d\n", orvet::log::passes(), trace::level(orvet::log::wa()));
    for (work_area * wa : {&system_trace::wa(), &orvet::log::wa()})
        std::printf("%s %ld %ld\n", wa->file_name->mbcs_str(), trace::max_size(*wa), wa->current_size);
    std::fflush(stdout);
    trace::set_level(system_trace::wa(), 0);
    call_trace("f").leave();
    log_message(messages::MSG0020, "x");
    for (int i = 0; i < 2; ++i)
        delete new orvet::log;
    log_message(messages::MSG0001); // dropped
    delete new system_trace;
    call_trace("g").leave();
    die(); // every line was out when it was written
});

/// The lines of a file without their time stamps.
std::string unstamped(const char * file)
{
    std::string text;
    std::istringstream lines(read_text(file));
    for (std::string line; std::getline(lines, line);)
        text += line.substr(time_stamp().size()) + "\n";
    return text;
}

TEST(Channels, FilesGrowFromRunToRun)
{
    const std::string start = "0 6, 1 0\nktx1.trc 500000 0\nktx1.log 500000 0\n";
    const std::string call = " [C] f >>>> ENTRY>>>>>\n [C] f <<<<<<<<<< EXIT\n";
    const std::string message = "  MSG0020 [F] Error closing the file x\n";
    EXPECT_EQ(run_scenario("channel_files").substr(0, start.size()), start);
    EXPECT_EQ(unstamped("ktx1.trc"), call);
    EXPECT_EQ(unstamped("ktx1.log"), message);
    run_scenario("channel_files");
    EXPECT_EQ(unstamped("ktx1.trc"), call + call);
    EXPECT_EQ(unstamped("ktx1.log"), message + message);
}

const scenario no_directory("no_directory", [] {
    set_variable("KTXPATH", "not/there");
    if (std::freopen("stderr.txt", "w", stderr))
        log_message(messages::MSG0020, "x");
    delete new orvet::log; // leaves standard error open
    std::fputs("end\n", stderr);
});

TEST(Channels, LogToStandardErrorWithoutTheirDirectory)
{
    EXPECT_EQ(run_scenario("no_directory"), "");
    const std::string path = "not/there" + native("/") + "ktx1.log";
    const std::string lines = read_text("stderr.txt");
    EXPECT_EQ(lines_with("->", lines), "Could not open trace file ->" + path + "<-, logging on stderr\n");
    EXPECT_NE(lines.find("  MSG0020 [F] Error closing the file x\nend\n"), std::string::npos) << lines;
}

const scenario no_path("no_path", [] {
    set_variable("KTXPATH", nullptr);
    system_trace::wa();
    log_message(messages::MSG0020, "x");
    stdio_trace_stream((test_directory() / "absolute.txt").string().c_str()).writeline("there");
});

TEST(Channels, LieInTheCurrentDirectoryWithoutAPath)
{
    EXPECT_EQ(run_scenario("no_path"), "MSGI0001 [F] The environment variable KTXPATH, containing the Ketrix "
                                       "installation path, is not set or can not be acccessed\n");
    EXPECT_EQ(unstamped("ktx1.log"), "  MSG0020 [F] Error closing the file x\n");
    EXPECT_EQ(read_text("absolute.txt"), "there");
}

} // namespace
