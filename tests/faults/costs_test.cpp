#include "faults.h"

#include <cstdio>
#include <cstdlib>

#include "orvet/foundation/platform/files.h"
#include "support.h"

namespace {

TEST(Costs, AChannelLineIsOneWriteAndNoAllocation)
{
    fault f(fault::calls); // none: calls are counted alone
    trace::set_level(log::wa(), 0);
    trace::set_stream(log::wa(), new stdio_trace_stream("lines.txt"));
    log_message(messages::MSG0018, "file", 1, 2); // makes what a process makes once
    f.work([] { log_message(messages::MSG0018, "file", 1, 2); });
    EXPECT_EQ(f.times("append_line"), 1);
    EXPECT_EQ(f.times("allocation"), 0);
}

TEST(Costs, ALineThatWasRoomForNeedsNoAllocation)
{
    std::string text;
    for (int i = 0; i < 10000; ++i)
        text += "a line of a file, a longer one than a text holds itself\n";
    write_file("text.txt", text);
    fault f(fault::calls); // none: calls are counted alone
    kt_file file(pathname("text.txt"));
    ASSERT_EQ(file.open("r"), code::success);
    ustring line;
    ASSERT_NE(file.get_line(line), 0);
    f.work([&] {
        while (file.get_line(line))
            continue;
    });
    EXPECT_EQ(f.times("allocation"), 0);
    EXPECT_LE(f.times("read"), 20);
    EXPECT_EQ(file.close(), 0);
}

TEST(Costs, ADomainIsAFewAllocations)
{
    constexpr int domains = 2000;
    std::string text = "count = " + std::to_string(domains) + "\n";
    for (int i = 0; i < domains; ++i) {
        const std::string number = std::to_string(i);
        text += "d" + number + " = any,D" + number + ",push,D0\n";
    }
    write_file("domains.txt", text);
    fault f(fault::calls); // none: calls are counted alone
    kt_file file(pathname("domains.txt"));
    ASSERT_EQ(file.open("r"), code::success);
    vector topv;
    ustring server;
    short rc = -1;
    f.work([&] { rc = file.load_top(server, topv); });
    ASSERT_EQ(rc, code::success);
    EXPECT_LE(f.times("allocation"), 6 * domains);
    EXPECT_EQ(file.close(), 0);
}

const scenario first_use("first_use", [] {
    const bool is_apart = std::freopen("errors.txt", "w", stderr) != nullptr;
    fault f(fault::allocations, fault::once, std::atoi(std::getenv("step")));
    f.work([] {
        initializer();
        log_message(messages::MSG0001);
    });
    const bool is_placed = environment::kt_inst_path().text() == ustring(std::getenv("KTXPATH"));
    std::printf("%s: %s", f.name().c_str(), is_apart && is_placed ? "placed" : "lost");
});

TEST(FirstUse, WithoutMemoryIsMadeUpForByTheNext)
{
    std::string output;
    for (int step = 1; output.find("no fault") == std::string::npos; ++step) {
        set_variable("step", std::to_string(step).c_str());
        output = run_scenario("first_use");
        EXPECT_NE(output.find(": placed"), std::string::npos) << output;
    }
}

TEST(Log, LeavesTheCallAloneIfItCannotWrite)
{
    fault f(fault::calls, fault::from_then_on, 1);
    trace::set_level(log::wa(), 0);
    trace::set_stream(log::wa(), new stdio_trace_stream("lines.txt"));
    kt_file missing(pathname("not there"));
    short rc = code::success;
    printed_as_error_by([&] { f.work([&] { rc = missing.seek(0, SEEK_SET); }); });
    EXPECT_EQ(rc, code::not_open);
    EXPECT_EQ(f.name(), "append_line, 1st call, from then on");
}

const scenario without_stdin("without_stdin", [] {
    std::fclose(stdin);
    std::FILE * const stream = platform::open_stream("text.txt", "w");
    std::printf(fileno(stream) > 2 ? "above" : "in their place");
});

TEST(Streams, AreAboveTheStandardOnes)
{
    if (native("/") == "\\")
        GTEST_SKIP() << "a closed standard stream keeps its number here";
    EXPECT_EQ(run_scenario("without_stdin"), "above");
}

} // namespace
