// Channels on full disks, beside other processes, and over a change of time zone or locale.
#include "support.h"

#include <clocale>
#include <ctime>
#include <map>
#include <thread>

namespace {

/// The file of a stream that is opened by the name "lines.trc".
constexpr char file[] = "lines.trc";

bool link_to_full_device()
{
    std::error_code failed;
    if (fs::exists("/dev/full"))
        fs::create_symlink("/dev/full", file, failed);
    return fs::exists("/dev/full") && !failed;
}

TEST(FullChannelFile, ReturnsANegativeResultAndReportsTheFirstLoss)
{
    if (!link_to_full_device())
        GTEST_SKIP() << "no full device here";
    stdio_trace_stream stream(file);
    const std::string said = printed_as_error_by([&] {
        EXPECT_LT(stream.writeline("one\n"), 0);
        EXPECT_LT(stream.writeline("two\n"), 0);
    });
    EXPECT_EQ(said, "Could not write trace file ->" + (test_directory() / file).string() +
                        "<-, lines are lost: No space left on device\n");
}

TEST(FullChannelFile, CountsANegativeResult)
{
    if (!link_to_full_device())
        GTEST_SKIP() << "no full device here";
    work_area & wa = orvet::log::wa();
    printed_as_error_by([&] {
        trace::set_stream(wa, new stdio_trace_stream(file));
        wa.current_size = 100;
        trace::write_header(wa, " ", "");
        trace::write_text(wa, "text");
    });
    EXPECT_EQ(wa.current_size, 99);
    shut_channels();
}

TEST(FullChannelFile, BeginsALineAfterATornOne)
{
    stdio_trace_stream stream(file);
    ASSERT_EQ(stream.writeline("whole\n"), 6);
    if (!limit_files(9))
        GTEST_SKIP() << "no such limit here";
    int torn = 0;
    int lost = 0;
    printed_as_error_by([&] {
        torn = stream.writeline("torn\n");
        lost = stream.writeline("lost\n");
    });
    limit_files(-1);
    EXPECT_LT(torn, 0);
    EXPECT_LT(lost, 0);

    EXPECT_EQ(stream.writeline("next\n"), 5);
    EXPECT_EQ(stream.writeline("last\n"), 5);

    EXPECT_EQ(read_text(file), "whole\ntor\nnext\nlast\n");
}

TEST(FullChannelFile, KeepsTheResultOfAToolsOwnStream)
{
    if (!fs::exists("/dev/full"))
        GTEST_SKIP() << "no full device here";
    stdio_trace_stream stream(std::fopen("/dev/full", "w"));
    const std::string said = printed_as_error_by([&] { EXPECT_EQ(stream.writeline("line\n"), 5); });
    EXPECT_EQ(said, "Could not write trace file ->(stream)<-, lines are lost: No space left on device\n");
}

TEST(ChannelFile, ChangesNothingOfAToolsOwnStream)
{
    std::FILE * const own = std::fopen(file, "wb");
    char buffer[1000];
    std::setvbuf(own, buffer, _IOFBF, sizeof buffer);
    stdio_trace_stream stream(own);
    std::fputs("mine", own);
    EXPECT_EQ(read_file(file), ""); // still in the buffer
    EXPECT_EQ(stream.writeline(" and yours\n"), 11);
    EXPECT_EQ(read_file(file), "mine and yours\n");
}

TEST(ChannelFile, CutsNothingThatIsInTheFile)
{
    write_file(file, "old\n\x1A");
    stdio_trace_stream(file).writeline("new\n");
    EXPECT_EQ(read_text(file), "old\n\x1Anew\n");
}

// Several processes on one log

constexpr int lines_each = 5000;

template <char Mark>
void write_lines()
{
    stdio_trace_stream stream(file);
    const std::string text(40 + Mark % 4, Mark);
    for (int i = 0; i < lines_each; ++i)
        stream.writeline((text + std::to_string(i) + "\n").c_str());
}
const scenario writer_a("writer_a", write_lines<'a'>);
const scenario writer_b("writer_b", write_lines<'b'>);
const scenario writer_c("writer_c", write_lines<'c'>);
const scenario writer_d("writer_d", write_lines<'d'>);

TEST(ChannelFile, KeepsAllLinesOfSeveralProcessesWhole)
{
    std::vector<std::thread> processes;
    for (const char mark : {'a', 'b', 'c', 'd'})
        processes.emplace_back([mark] {
            // A shell that several threads start at once may fail to start; nothing is written then.
            for (int tries = 0; tries < 5 && run_scenario(std::string("writer_") + mark) != ""; ++tries)
                continue;
        });
    for (std::thread & each : processes)
        each.join();

    // Each process's lines are there in their order, nothing in between.
    std::map<char, int> next;
    std::string odd;
    std::istringstream lines(read_text(file));
    for (std::string line; std::getline(lines, line);) {
        const char mark = line.empty() ? '?' : line[0];
        const std::string expected =
            std::string(static_cast<std::size_t>(40 + mark % 4), mark) + std::to_string(next[mark]++);
        odd += line == expected ? "" : line + "\n";
    }
    EXPECT_EQ(odd, "");
    for (const char mark : {'a', 'b', 'c', 'd'})
        EXPECT_EQ(next[mark], lines_each) << mark;
}

// Time stamps

std::string stamp()
{
    trace::write_header(system_trace::wa(), "", "");
    return system_trace::wa().line;
}

std::string local_time()
{
    char text[100];
    const std::time_t now = std::time(nullptr);
    return {text, std::strftime(text, sizeof text, "%c", std::localtime(&now))};
}

/// A stamp and the local time of the same second, right after `change`.
std::pair<std::string, std::string> after(const std::function<void()> & change)
{
    std::time_t begun;
    std::pair<std::string, std::string> both;
    do {
        begun = std::time(nullptr);
        stamp();
        change();
        both = {stamp(), local_time()};
    } while (std::time(nullptr) != begun);
    return both;
}

TEST(TimeStamp, FollowsTheTimeZoneWithinASecond)
{
    for (const char * zone : {"EST5", "JST-9", "UTC0"}) {
        const auto [made, expected] = after([zone] {
            set_time_zone("UTC0");
            stamp();
            set_time_zone(zone);
        });
        EXPECT_EQ(made, expected) << zone;
    }
    set_time_zone(nullptr);
}

TEST(TimeStamp, FollowsTheLocaleWithinASecond)
{
    std::string found;
    for (const char * name : {"de_DE.UTF-8", "fr_FR.UTF-8", "en_US.UTF-8", "German_Germany.1252"})
        if (std::setlocale(LC_TIME, name))
            found = name;
    if (found.empty())
        GTEST_SKIP() << "no locale to change to";
    const auto [made, expected] = after([&found] {
        std::setlocale(LC_TIME, "C");
        stamp();
        std::setlocale(LC_TIME, found.c_str());
    });
    EXPECT_EQ(made, expected) << found;
    std::setlocale(LC_TIME, "C");
}

} // namespace
