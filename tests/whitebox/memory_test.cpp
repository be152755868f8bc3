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
long failing = -1; // the number of the allocation that fails from now on; negative for none

/// Lets allocation `n` from now on, and all behind it, fail.
struct shortage {
    explicit shortage(long n) { failing = allocations + n; }
    ~shortage() { failing = -1; }
};

} // namespace

void * operator new(std::size_t size, const std::nothrow_t &) noexcept {
    const long number = allocations++;
    return failing >= 0 && number >= failing ? nullptr : std::malloc(size);
}

void operator delete(void * room) noexcept { std::free(room); }

void operator delete(void * room, std::size_t) noexcept { std::free(room); }

void * operator new(std::size_t size) { return std::malloc(size); }

namespace {

constexpr char sample[] = "count = 3\nhq = any,HQ1\nnorth and some more = any,NORTHERN DOMAIN,push,HQ1\n"
                          "south = any,STH,push,NORTHERN DOMAIN\n[hq]\ncount = 0\n[north and some more]\ncount = 1\n"
                          "entry\n[south]\ncount = 0\n";

TEST(Memory, ReadingLinesTakesNone) {
    std::string text;
    for (int i = 0; i < 20000; ++i)
        text += i % 10 == 0 ? "caf\xC3\xA9 and twenty more characters\n" : "forty characters of text, all in ASCII..\n";
    write_file("lines.txt", text);
    kt_file file(pathname("lines.txt"));
    EXPECT_EQ(file.open("r"), 0);
    ustring line;
    for (int i = 0; i < 200; ++i) EXPECT_TRUE(file.get_line(line));
    const long before = allocations;
    while (file.get_line(line)) continue;
    EXPECT_EQ(allocations, before);
    EXPECT_EQ(file.close(), 0);
}

TEST(Memory, ADomainTakesLittle) {
    const auto needed = [](int domains) {
        std::string text = "count = " + std::to_string(domains) + "\n";
        for (int i = 0; i < domains; ++i)
            text += "d" + std::to_string(i) + " = any,D" + std::to_string(i) + ",push,D0\n";
        write_file("scan.txt", text);
        kt_file file(pathname("scan.txt"));
        EXPECT_EQ(file.open("r"), 0);
        vector topv;
        ustring server;
        const long before = allocations;
        EXPECT_EQ(file.load_top(server, topv), 0);
        EXPECT_EQ(file.close(), 0);
        return allocations - before;
    };
    // The domain, its section, its vector's row, its path, and what it depends on, the line that it stood in,
    // and two of its texts.
    EXPECT_LE(needed(2000) - needed(1000), 8100);
}

/// Runs `action` with a shortage from each allocation on in turn, until one run has enough. `action` gives
/// true for a success.
void with_each_shortage(const std::function<bool()> & action) {
    for (long n = 0; n < 10000; ++n) {
        const long before = allocations;
        bool done;
        {
            const shortage none_left(n);
            done = action();
        }
        if (allocations - before <= n) {
            EXPECT_TRUE(done);
            return;
        }
        EXPECT_FALSE(done) << "allocation " << n << " failed without a word";
    }
    FAIL() << "never had enough";
}

TEST(Memory, ShortageIsNeverASuccess) {
    write_file("scan.txt", sample);
    kt_file file(pathname("scan.txt"));
    EXPECT_EQ(file.open("r"), 0);
    with_each_shortage([&] {
        vector topv;
        ustring server;
        EXPECT_EQ(file.seek(0, SEEK_SET), 0);
        return file.load_top(server, topv) == 0 && topv.size() == 3;
    });

    vector sections;
    sections.push_back(new sof_entry("[a head longer than what is kept inside]", sof_entry::target_sect));
    top_entry domain("a name longer than what is kept inside", "so is the path of it", sections);
    with_each_shortage([&] { return std::unique_ptr<codable>(domain.clone()) != nullptr; });
    pair texts("a key longer than what is kept inside", "value");
    with_each_shortage([&] { return std::unique_ptr<codable>(texts.clone()) != nullptr; });

    initializer();
    input_parms::ip_base_cmd() = "echo";
    with_each_shortage([name = ustring("A.NAME.LONGER.THAN.WHAT.IS.KEPT.INSIDE")] {
        return brod_base_ls(name).exec_brod_cmd(1, 1) == 0;
    });

    const ustring line("some longer text, key = some longer value");
    write_file("line.txt", text_of(line) + "\n");
    with_each_shortage([&] {
        kt_file source(pathname("line.txt"));
        if (source.open("r") != 0)
            return false;
        ustring key, value;
        const bool done = source.get_keyval(key, value) == 0 && text_of(value) == "some longer value";
        EXPECT_EQ(source.close(), 0);
        return done;
    });
    EXPECT_EQ(file.close(), 0);
}

TEST(Memory, InputFilesAreWholeOrRefused) {
    const std::string name(70, 'n');
    write_file("in.txt", "  USER=" + name + "\nauthorization profile=" + name + "\n[" + name + name);
    with_each_shortage([&] {
        file_input_parms input;
        const bool done = input.get_fips("in.txt", 1, "USER=", 3) == 0;
        EXPECT_EQ(input.arSections().size(), done ? 1U : 0U);
        return done;
    });
    const ustring line(("server_name = mount_point=MOUNT_OPTIONS=" + name).c_str());
    const ustring chain(("SERVER_NAME=MOUNT_POINT=MOUNT_OPTIONS=" + name).c_str());
    for (const ustring & each : {line, chain})
        with_each_shortage([&] {
            VXA_inst_info agent;
            const bool done = agent.set(each) == 0;
            EXPECT_EQ(agent.fip("SERVER_NAME=") + agent.fip("MOUNT_POINT=") != 0, done);
            EXPECT_EQ(agent.server_name().length() + agent.mount_options().length() != 0, done);
            return done;
        });
    auth_profile_info profile;
    with_each_shortage([&] {
        profile.set_usSend(line);
        const bool done = profile.fip("SEND=") != 0;
        EXPECT_EQ(profile.usSend() == "NO", !done);
        return done;
    });
    with_each_shortage([&] { return std::unique_ptr<codable>(profile.clone()) != nullptr; });
}

TEST(Memory, ASectionTakesItsRecordAlone) {
    const auto needed = [](int sections) {
        std::string text;
        for (int i = 0; i < sections; ++i)
            text += "USER=u" + std::to_string(i) + "\n  AUTHORIZATION PROFILE=p\n# forty characters of note\n";
        write_file("in.txt", text);
        file_input_parms input;
        const long before = allocations;
        EXPECT_EQ(input.get_fips("in.txt", 1, "USER=", 3), 0);
        return allocations - before;
    };
    EXPECT_LE(needed(2000) - needed(1000), 1050); // the record, and the first call opens the channels
}

TEST(Memory, WithoutAResultTheObjectStaysAsItWas) {
    const std::string before = "a text longer than what is kept inside";
    const ustring longer((before + before + before).c_str());
    const std::function<void(ustring &)> edits[] = {
        [&](ustring & text) { text.assign(longer); },
        [&](ustring & text) { text.append(longer); },
        [&](ustring & text) { text.insert(3, longer); },
        [&](ustring & text) { text.append(text); },
        [&](ustring & text) { usprintf(text, "%s and %s", longer, longer); },
    };
    for (const auto & edit : edits) {
        ustring text(before.c_str());
        longer.mbcs_str();
        {
            const shortage none_left(0);
            edit(text);
        }
        EXPECT_EQ(text_of(text), before);
    }
    pathname path(before.c_str());
    vector items;
    items.push_back(new ustring("x"));
    auto * const late = new ustring("y");
    {
        const shortage none_left(0);
        path += longer;
        for (int i = 0; i < 3; ++i) // the row has no room for all of them
            items.push_back(i == 2 ? late : nullptr);
        vector other(items);
        EXPECT_TRUE(other.size() == items.size() || other.size() == 0);
    }
    EXPECT_EQ(text_of(path.text()), before);
}

/// One write for a line of a channel, whatever it is made of.
TEST(Channels, WriteALineAtOnce) {
    struct counter : trace_stream {
        int & count;
        explicit counter(int & c) : count(c) {}
        int writeline(const char *) override { return ++count; }
    };
    int lines = 0;
    trace::set_stream(orvet::log::wa(), new counter(lines));
    const long before = allocations;
    log_message(messages::MSG0018, "file", 1, 2);
    EXPECT_EQ(lines, 1);
    EXPECT_EQ(allocations, before);
    trace::set_stream(orvet::log::wa(), nullptr);
}

} // namespace
