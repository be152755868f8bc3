#include "support.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <ctime>

using namespace orvet;
using namespace orvet_test;

namespace {

/// Keeps whole lines, time stamps included.
struct keeper : trace_stream {
    static inline std::string lines;
    static inline int writes = 0;
    int writeline(const char * line) override {
        lines += line;
        ++writes;
        return static_cast<int>(std::strlen(line));
    }
};

std::string now() {
    const std::time_t time = std::time(nullptr);
    char text[100];
    std::strftime(text, sizeof text, "%c", std::localtime(&time));
    return text;
}

class Trace : public testing::Test {
protected:
    Trace() {
        trace::set_stream(wa, new keeper);
        wa.current_size = 0;
        keeper::lines.clear();
        keeper::writes = 0;
    }
    ~Trace() override { trace::set_stream(wa, nullptr); }
    work_area & wa = system_trace::wa();
};

TEST_F(Trace, LinesHaveTheirLayout) {
    std::string before, after;
    do { // a second may end in between
        keeper::lines.clear();
        wa.current_size = 0;
        before = now();
        trace::write_header(wa, " [C] ", "kt_file::close");
        trace::write_text(wa, trace::internal_write_text("%s", ">>>> ENTRY>>>>>"));
        after = now();
    } while (before != after);
    EXPECT_EQ(keeper::lines, before + " [C] kt_file::close >>>> ENTRY>>>>>\n");
    EXPECT_EQ(wa.current_size, static_cast<long>(keeper::lines.size()));

    keeper::lines.clear();
    trace::write_header(wa, " ", "");
    trace::write_text(wa, "100%d", 5);
    EXPECT_EQ(keeper::lines.substr(before.size()), "  100%d\n");
    keeper::lines.clear();
    trace::write_header(wa, " ", "");
    trace::write_text(wa, "");
    EXPECT_EQ(keeper::lines.substr(before.size()), "  \n");
}

TEST_F(Trace, WhatDoesNotFitIsCutAtACharacter) {
    for (std::size_t shift = 0; shift < 4; ++shift) {
        std::string text(shift, 'x');
        while (text.size() < 3000) text += "\xF0\x9F\x99\x82\xE2\x82\xAC"; // four bytes and three
        keeper::lines.clear();
        trace::write_header(wa, " [I] ", shift == 3 ? text.c_str() : "name");
        trace::write_text(wa, trace::internal_write_text("%s", text.c_str()));
        EXPECT_GE(keeper::lines.size(), 1023U - 3);
        EXPECT_LE(keeper::lines.size(), 1023U);
        EXPECT_EQ(keeper::lines.back(), '\n');
        const std::string line = keeper::lines.substr(0, keeper::lines.size() - 1);
        const ustring decoded(line.c_str());
        EXPECT_TRUE(std::none_of(decoded.data(), decoded.data() + decoded.length(),
                                 [](char16_t unit) { return unit >= 0xDC80 && unit <= 0xDCFF; }));
        call_trace("long").info("%s%s", text.c_str(), "end");
    }
}

TEST_F(Trace, FormatsAsPrintf) {
    EXPECT_STREQ(trace::internal_write_text("%d %5.2f|%-4s|%x%%l", -1, 2.5, "ab", 255U),
                 "-1  2.50|ab  |ff%l");
    EXPECT_STREQ(trace::internal_write_text("offset %l from %ld, %l", 70000L, -3L, 9L),
                 "offset 70000 from -3, 9");
    EXPECT_EQ(std::strlen(trace::internal_write_text("%2000d", 1)), 1023U);
}

TEST_F(Trace, SilenceCanBeOverridden) {
    const struct {
        const char * variable;
        int wish;
        int level;
    } cases[] = {{nullptr, 6, 6}, {"0", 6, 0}, {"x", 6, 0},      {"3", 6, 3},
                 {"3", 5, 5},     {"3", 0, 0}, {nullptr, -7, -7}};
    for (work_area * area : {&system_trace::wa(), &orvet::log::wa()})
        for (const auto & each : cases) {
            set_variable("ostrel_trace_level", each.variable);
            trace::set_level(*area, each.wish);
            EXPECT_EQ(trace::level(*area), each.level);
        }
    set_variable("ostrel_trace_level", nullptr);
    trace::set_level(system_trace::wa(), 6);
    trace::set_level(orvet::log::wa(), 6);
}

TEST_F(Trace, ErrorTexts) {
    EXPECT_STREQ(trace::system_error_to_string(wa, 999999), "System error 999999\n");
    EXPECT_LT(std::strlen(trace::system_error_to_string(wa, 2)), 128U);
    EXPECT_EQ(std::string(trace::system_error_to_string(wa, 2)).find("System error"), std::string::npos);
}

TEST_F(Trace, GatesLetThroughBySeverity) {
    const std::string all = "CIWEF";
    for (int level = -1; level <= 6; ++level) {
        transcript lines(level, 5);
        const call_trace trace("f");
        trace.info("");
        trace.warning("");
        trace.error("");
        trace.fatal("");
        log_message(messages::MSG0001);
        std::string seen;
        const std::string text = lines.take();
        for (const char letter : all)
            if (text.find(std::string("[") + letter + "]") != std::string::npos)
                seen += letter;
        EXPECT_EQ(seen, all.substr(static_cast<std::size_t>(std::clamp(level, 0, 5)))) << level;
        EXPECT_EQ(text.find("MSG"), std::string::npos);
    }
}

TEST_F(Trace, TypedArgumentsFitTheirConversions) {
    transcript lines;
    const call_trace trace("f");
    lines.take();
    trace.info("%s %s %s %d %d %l %ld", ustring("u"), pathname("p"), std::string("s").c_str(), short{-5},
               9999999999LL, 70000L, -1L);
    trace.info("%hd %hu %u %x %c 100%% %5d|%-4s|%.2s", 70000, 65537U, 4000000000U, 255, 'A', 42, "ab",
               "abcd");
    trace.info("%s|%d", static_cast<const char *>(nullptr), true);
    EXPECT_EQ(lines.take(), "T[I] f u p s -5 2147483647 70000 -1\n"
                            "T[I] f 4464 1 4000000000 ff A 100%    42|ab  |ab\n"
                            "T[I] f |1\n");
    EXPECT_EQ(trace.fail(short{252}), 252);
    trace.leave(100000U);
    trace.leave(-1);
    EXPECT_EQ(lines.take(), "T[C] f <><><><><> QUITTING\nT[C] f return data = 252\nT[C] f <<<<<<<<<< EXIT\n"
                            "T[C] f return data = 34464\nT[C] f <<<<<<<<<< EXIT\n"
                            "T[C] f return data = -1\nT[C] f <<<<<<<<<< EXIT\n");
    EXPECT_EQ(printed_by([] { console_message(messages::MSGI0004, "-x"); }),
              "MSGI0004 [F] The option -x is not supported.\n");
}

// The private switch of files, reached as the language allows an explicit instantiation to.
void (*change_trace_file)(work_area &);
template <void (*Switch)(work_area &)>
struct opened {
    static inline const bool done = (change_trace_file = Switch, true);
};
template struct opened<&trace::change_trace_file>;

const scenario channel_files("channel_files", [] {
    const bool open = system_trace::passes(severity::fatal) || trace::level(system_trace::wa()) != 6;
    log_message(messages::MSG0020, "x");
    log_message(messages::MSG0020, "y");
    trace::set_level(system_trace::wa(), 0);
    call_trace("f").leave();
    change_trace_file(system_trace::wa());
    std::printf("%d %s %ld %ld\n", open, system_trace::wa().file_name->mbcs_str(),
                system_trace::wa().current_size, trace::max_size(orvet::log::wa()));
    call_trace("g").leave();
    change_trace_file(system_trace::wa());
    std::printf("%s\n", system_trace::wa().file_name->mbcs_str());
    for (int i = 0; i < 2; ++i) {
        orvet::log closing;
        (void)closing;
        log_message(messages::MSG0001); // dropped once the channel is closed
    }
});

TEST(Channels, FilesGrowFromRunToRun) {
    for (const char * name : {"ktx1.trc", "ktx2.trc", "ktx1.log"}) std::filesystem::remove(name);
    EXPECT_EQ(run_scenario("channel_files"), "0 ktx2.trc 0 500000\nktx1.trc\n");
    EXPECT_EQ(run_scenario("channel_files"), "0 ktx2.trc 0 500000\nktx1.trc\n");
    const auto texts = [](const char * name, const char * mark) {
        std::string found;
        const std::string all = read_text(name);
        for (std::size_t at = 0; (at = all.find(mark, at)) != std::string::npos; at = all.find('\n', at))
            found += all.substr(at, all.find('\n', at) + 1 - at);
        return found;
    };
    const std::string log =
        "  MSG0020 [F] Error closing the file x\n  MSG0020 [F] Error closing the file y\n"
        "  MSG0001 [F] A read/write operation has been attempted toa file that is not open\n";
    EXPECT_EQ(texts("ktx1.log", "  MSG"), log + log);
    const std::string entry = " >>>> ENTRY>>>>>\n [C] ";
    EXPECT_EQ(texts("ktx1.trc", " [C]"),
              " [C] f" + entry + "f <<<<<<<<<< EXIT\n [C] f" + entry + "f <<<<<<<<<< EXIT\n");
    EXPECT_EQ(texts("ktx2.trc", " [C]"),
              " [C] g" + entry + "g <<<<<<<<<< EXIT\n [C] g" + entry + "g <<<<<<<<<< EXIT\n");
}

const scenario no_directory("no_directory", [] {
    set_variable("KTXPATH", "not/there");
    std::freopen("stderr.txt", "w", stderr);
    log_message(messages::MSG0001);
    orvet::log closing;
});

TEST(Channels, FallBackToStandardError) {
    EXPECT_EQ(run_scenario("no_directory"), "");
    const std::string text = read_text("stderr.txt");
    EXPECT_EQ(
        text.find("Could not open trace file ->not/there" + native("/") + "ktx1.log<-, logging on stderr\n"),
        0U)
        << text;
    EXPECT_NE(text.find("  MSG0001 [F]"), std::string::npos);
}

const scenario no_path("no_path", [] {
    set_variable("KTXPATH", nullptr);
    log_message(messages::MSG0001);
    system_trace::wa();
    std::printf("%d\n", kt_chkfile("ktx1.log"));
});

TEST(Channels, LieInTheCurrentDirectoryWithoutAPath) {
    EXPECT_EQ(run_scenario("no_path").find("MSGI0001"), 0U);
    EXPECT_EQ(run_scenario("no_path").find("MSGI0001", 1), std::string::npos);
    EXPECT_NE(run_scenario("no_path").find("\n1\n"), std::string::npos);
}

} // namespace
