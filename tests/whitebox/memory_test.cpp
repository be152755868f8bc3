// Linked from the library's objects, so that its allocations run through the operators below on every system.
#include "support.h"

#include <cstdlib>
#include <functional>
#include <memory>
#include <new>

using namespace orvet;
using namespace orvet_test;
namespace {
long allocations = 0;
long failing = -1; // the number of the allocation that fails with all behind it; negative for none

/// Runs `action` with `n` allocations and no more.
template <class Action>
auto with_only(long n, const Action & action) {
    struct end {
        ~end() { failing = -1; }
    } const after;
    failing = allocations + n;
    return action();
}
} // namespace

void * operator new(std::size_t size, const std::nothrow_t &) noexcept {
    const long number = allocations++;
    return failing >= 0 && number >= failing ? nullptr : std::malloc(size);
}
void operator delete(void * room) noexcept { std::free(room); }
void operator delete(void * room, std::size_t) noexcept { std::free(room); }
void * operator new(std::size_t size) { return std::malloc(size); }

namespace {
const std::string longer = "a text longer than what is kept inside";

/// Runs `action`, which gives true for a success, with a shortage from each allocation on, until it has enough.
void with_each_shortage(const std::function<bool()> & action) {
    for (long n = 0; n < 10000; ++n) {
        const long before = allocations;
        const bool done = with_only(n, action);
        EXPECT_EQ(done, allocations - before <= n) << "allocation " << n;
        if (allocations - before <= n)
            return;
    }
    FAIL() << "never had enough";
}

long taken_by(const std::function<void()> & action) {
    const long before = allocations;
    action();
    return allocations - before;
}

TEST(Memory, IsTakenOncePerRecordAndNotPerLine) {
    struct counter : trace_stream {
        int & count;
        explicit counter(int & c) : count(c) {}
        int writeline(const char *) override { return ++count; }
    };
    int writes = 0;
    trace::set_stream(orvet::log::wa(), new counter(writes));
    EXPECT_EQ(taken_by([] { log_message(messages::MSG0018, "file", 1, 2); }), 0);
    EXPECT_EQ(writes, 1); // a line of a channel is one write, whatever it is made of
    trace::set_stream(orvet::log::wa(), nullptr);
    const auto domains = [](int count) {
        std::string text = "count = " + std::to_string(count) + "\n";
        for (int i = 0; i < count; ++i) text += "d" + std::to_string(i) + " = any,D" + std::to_string(i) + ",push,D0\n";
        write_file("scan.txt", text);
        kt_file file(pathname("scan.txt"));
        EXPECT_EQ(file.open("r"), 0);
        vector topv;
        ustring server;
        const long taken = taken_by([&] { EXPECT_EQ(file.load_top(server, topv), 0); });
        for (const bool warm : {false, true}) { // the second reading has the room of the first
            EXPECT_EQ(file.seek(0, SEEK_SET), 0);
            EXPECT_LE(taken_by([&] {
                          while (file.get_line(server)) continue;
                      }),
                      warm ? 0 : 20);
        }
        EXPECT_EQ(file.close(), 0);
        return taken;
    };
    // The domain, its section, row and path, what it depends on, its line and two of its texts.
    EXPECT_LE(domains(2000) - domains(1000), 8100);
}

TEST(Memory, ShortageIsNeverASuccess) {
    write_file("scan.txt", "count = 3\nhq = any,HQ1\nnorth and some more = any,NORTHERN DOMAIN,push,HQ1\n"
                           "south = any,STH,push,NORTHERN DOMAIN\n[hq]\ncount = 0\n[north and some more]\n"
                           "count = 1\nentry\n[south]\ncount = 0\n");
    kt_file file(pathname("scan.txt"));
    EXPECT_EQ(file.open("r"), 0);
    with_each_shortage([&] {
        vector topv;
        ustring server;
        EXPECT_EQ(file.seek(0, SEEK_SET), 0);
        return file.load_top(server, topv) == 0 && topv.size() == 3;
    });
    EXPECT_EQ(file.close(), 0);
    vector sections;
    sections.push_back(new sof_entry(longer.c_str(), sof_entry::target_sect));
    top_entry domain(longer.c_str(), "so is the path of it", sections);
    pair texts(longer.c_str(), "value");
    auth_profile_info profile;
    const ustring value(longer.c_str());
    with_each_shortage([&] {
        profile.set_usSend(value);
        EXPECT_EQ(profile.usSend() == "NO", profile.fip("SEND=") == 0);
        return profile.fip("SEND=") != 0;
    });
    for (codable * each : {static_cast<codable *>(&domain), static_cast<codable *>(&texts), static_cast<codable *>(&profile)})
        with_each_shortage([&] { return std::unique_ptr<codable>(each->clone()) != nullptr; });
    initializer();
    input_parms::ip_base_cmd() = "echo";
    with_each_shortage([&] { return brod_base_ls(value).exec_brod_cmd(1, 1) == 0; });
    const std::string generic = "some longer generic line\n" + std::string(40000, 'g') + "\n";
    const std::string old_text = "SERVER: a\nSERVER: b\n" + generic;
    std::filesystem::create_directory(longer);
    const std::string path = longer + "/brod.cfg";
    const auto edit = [&] {
        write_file(path, old_text);
        scan_cfg cfg(path.c_str());
        vector pairs;
        const bool loaded = cfg.load() == 0;
        EXPECT_EQ(cfg.generic_lines().size() + cfg.server_lines().size(), loaded ? 4U : 0U);
        cfg.fill_vector(pairs);
        const bool done = loaded && cfg.set_server(2) == 0;
        EXPECT_TRUE(read_text(path) == (done ? generic + "SERVER: b\nSERVER: a\n" : old_text));
        return done && pairs.size() == 2;
    };
    printed_by([&] { with_each_shortage(edit); });
}

TEST(Memory, InputFilesAreWholeOrRefused) {
    write_file("in.txt", "  USER=" + longer + "\nauthorization profile=" + longer + "\n[" + longer + longer);
    with_each_shortage([&] {
        file_input_parms input;
        const bool done = input.get_fips("in.txt", 1, "USER=", 3) == 0;
        EXPECT_EQ(input.arSections().size(), done ? 1U : 0U);
        return done;
    });
    for (const char * keys : {"server_name = mount_point=MOUNT_OPTIONS=", "SERVER_NAME=MOUNT_POINT=MOUNT_OPTIONS="})
        with_each_shortage([line = ustring((keys + longer).c_str())] {
            VXA_inst_info agent;
            const bool done = agent.set(line) == 0;
            EXPECT_EQ(agent.fip("SERVER_NAME=") + agent.fip("MOUNT_POINT=") != 0, done);
            EXPECT_EQ(agent.server_name().length() + agent.mount_options().length() != 0, done);
            return done;
        });
}
} // namespace
