#include "support.h"

using namespace orvet;
using namespace orvet_test;
namespace fs = std::filesystem;

namespace {

void lay_out(const std::string & path, const char * text) {
    fs::remove_all("cfg");
    fs::create_directory("cfg");
    write_file("cfg/brod.bak", "older");
    if (text)
        write_file(path, text);
}

/// What stands under the three names.
std::string files() {
    std::string all;
    for (const char * path : {"cfg/brod.cfg", "cfg/brod.bak", "cfg/brod.tmp"})
        all += (fs::is_directory(path) ? "(directory)" : read_text(path)) + "|";
    return all;
}

TEST(ScanCfg, ListsWhatItRead) {
    lay_out("cfg/brod.cfg", "  protocol :no\r\n\nWorkstation Name: WS \x85 one  \n   \nserver:  alpha x \n"
                            "PROTOCOL:first\nprotocol:  TCP\nSERVER:beta\nname only\n  SERVERS: \t1:2");
    scan_cfg cfg("cfg/brod.cfg");
    ASSERT_EQ(cfg.load(), 0);
    for (int round = 0; round < 2; ++round)
        EXPECT_EQ(printed_by([&] { cfg.show(); }), "Target_Name \t:WS \x85 one\nTarget_Prot \t:TCP\n"
                                                   "Server1 \t:alpha x\nServer2 \t:beta\n");
    EXPECT_EQ(printed_by([&] { cfg.show_all(); }),
              "\n\n** Full Brod_cfg listing **\nServerline ( 1) :server:  alpha x\nServerline ( 2) :SERVER:beta\n"
              "Generic line ( 1) :protocol :no\nGeneric line ( 2) :Workstation Name: WS \x85 one\n"
              "Generic line ( 3) :PROTOCOL:first\nGeneric line ( 4) :protocol:  TCP\n"
              "Generic line ( 5) :name only\nGeneric line ( 6) :SERVERS: \t1:2\n");
    vector found;
    cfg.fill_vector(found);
    std::string pairs;
    for (unsigned i = 0; i < found.size(); ++i) {
        const auto & each = static_cast<pair &>(*found[i]);
        pairs += text_of(each.first) + "=" + text_of(each.second) + "|";
    }
    EXPECT_EQ(pairs, "protocol=no|PROTOCOL=first|protocol=TCP|name only=name only|SERVERS=\t1:2|");
    write_file("cfg/brod.cfg", "SERVER: gamma\nWORKSTATION NAME: PROTOCOL: x");
    ASSERT_EQ(cfg.load(), 0); // adds
    EXPECT_EQ(cfg.server_count(), 3);
    EXPECT_EQ(text_of(cfg.target_name()) + "/" + text_of(cfg.target_protocol()), "PROTOCOL: x/TCP");
}

// clang-format off
const struct {
    const char * path;
    const char * text;  // under that path; null for no file
    void (*disturb)();  // between load and set_server
    int load, n, set;
    const char * error; // of the first that fails
    const char * after;
} cases[] = {
    {"cfg/brod.cfg", "x\n", [] {}, 0, 1, 0, "", "x\n|older|(no file)|"},
    {"cfg/brod.cfg", "x\n", [] {}, 0, 2, 1, "invalid server number [2]: valid range is [1..0]", "x\n|older|(no file)|"},
    {"cfg/brod.cfg", "", [] {}, 0, 0, 1, "invalid server number [0]: valid range is [1..0]", "|older|(no file)|"},
    {"cfg/brod.cfg", "SERVER: a \n \nserver: b\n x\nWorkstation name: w", [] {}, 0, 2, 0, "",
     "x\nWorkstation name: w\nserver: b\nSERVER: a\n|SERVER: a \n \nserver: b\n x\nWorkstation name: w|(no file)|"},
    {"cfg/brod.cfg", "server:a\nserver:b\nserver:c", [] {}, 0, 3, 0, "", "server:c\nserver:a\nserver:b\n|server:c\nserver:a\nserver:b\n|(no file)|"},
    {"cfg/brod.cfg", "server:a\nserver:b", [] { fs::create_directory("cfg/brod.tmp"); }, 0, 2, 250, "unable to open tempfile [cfg/brod.tmp]", "server:a\nserver:b|older|(directory)|"},
    {"cfg/brod.cfg", "server:a\nserver:b", [] { fs::remove("cfg/brod.bak"); fs::create_directories("cfg/brod.bak/x"); }, 0, 2, 261, "error backing up [cfg/brod.cfg] file", "server:a\nserver:b|(directory)|server:b\nserver:a\n|"},
    {"cfg/brod.cfg", "server:a\nserver:b", [] { fs::remove("cfg/brod.cfg"); }, 0, 2, 261, "error backing up [cfg/brod.cfg] file", "(no file)|(no file)|server:b\nserver:a\n|"},
    {"cfg/brod.cfg", "server:a\nserver:b", [] { fs::remove_all("cfg"); }, 0, 2, 250, "unable to open tempfile [cfg/brod.tmp]", "(no file)|(no file)|(no file)|"},
    // Its neighbours would be the file itself, or can't be named.
    {"cfg/brod.tmp", "server:a\nserver:b", [] {}, 0, 2, 250, "unable to open tempfile [cfg/brod.tmp]", "(no file)|older|server:a\nserver:b|"},
    {"cfg/brod.bak", "server:a\nserver:b", [] {}, 0, 2, 250, "unable to open tempfile [cfg/brod.tmp]", "(no file)|server:a\nserver:b|(no file)|"},
    {"cfg/abc", "server:a\nserver:b", [] {}, 0, 2, 250, "unable to open tempfile [brod.tmp]", "(no file)|older|(no file)|"},
    // No file, a directory, and what opens but can't be read.
    {"cfg/%s%d.cfg", nullptr, [] {}, 250, 2, 1, "unable to open file [cfg/%s%d.cfg]", "(no file)|older|(no file)|"},
    {"cfg", nullptr, [] {}, 250, 2, 1, "unable to open file [cfg]", "(no file)|older|(no file)|"},
    {"/proc/self/mem", nullptr, [] {}, 250, 2, 1, "unable to open file [/proc/self/mem]", "(no file)|older|(no file)|"},
};
// clang-format on

TEST(ScanCfg, MakesAServerTheFirstOrTellsWhyNot) {
    for (const auto & each : cases) {
        SCOPED_TRACE(std::string(each.path) + "\n" + each.after);
        lay_out(each.path, each.text);
        scan_cfg cfg(each.path);
        const std::string printed = printed_by([&] { EXPECT_EQ(cfg.load(), each.load); });
        EXPECT_EQ(printed, each.load == 0 ? "" : each.error + std::string("\n"));
        EXPECT_EQ(text_of(cfg.error_text()), each.load == 0 ? "" : each.error);
        each.disturb();
        for (int round = 0; round <= (each.set == 0 && each.n == 3);
             ++round) // numbers stay as loaded, so twice is once
            EXPECT_EQ(cfg.set_server(each.n), each.set);
        EXPECT_EQ(text_of(cfg.error_text()),
                  each.load == 0 ? each.error : "invalid server number [2]: valid range is [1..0]");
        EXPECT_EQ(files(), each.after);
    }
}

TEST(ScanCfg, KeepsEveryByteOfALineAndThePermissions) {
    std::string generic = std::string("zero \0 inside\n", 14) + "\ttab\t\nreturn \r inside\nLatin-1 \xE4\xFF\n";
    generic += "UTF-8 \xC3\xA4 \xF0\x9F\x99\x82\n";
    generic += std::string(1 << 20, '\xE4') + "\n";
    for (int i = 0; i < 100000; ++i) generic += "line " + std::to_string(i) + "\n";
    write_file("brod.cfg", "SERVER: a\n" + generic + "SERVER: b\n");
    fs::permissions("brod.cfg", fs::perms::owner_read | fs::perms::owner_write);
    const fs::perms permissions = fs::status("brod.cfg").permissions();
    scan_cfg cfg("brod.cfg");
    ASSERT_EQ(cfg.load(), 0);
    EXPECT_EQ(cfg.set_server(2), 0);
    EXPECT_TRUE(read_text("brod.cfg") == generic + "SERVER: b\nSERVER: a\n");
    EXPECT_EQ(fs::status("brod.cfg").permissions(), permissions);
    EXPECT_NE(printed_by([&] { cfg.show_all(); }).find(std::string(1 << 20, '\xE4') + "\n"), std::string::npos);
}

TEST(ScanCfg, KeepsTheFileOnAFullDiskAndPutsUpWithADeviceThatKnowsNoSync) {
    if (!fs::exists("/dev/full"))
        GTEST_SKIP();
    for (const bool full : {true, false}) {
        lay_out("cfg/brod.cfg", "SERVER: a\nSERVER: b\n");
        fs::create_symlink(full ? "/dev/full" : "/dev/null", "cfg/brod.tmp");
        scan_cfg cfg("cfg/brod.cfg");
        ASSERT_EQ(cfg.load(), 0);
        EXPECT_EQ(cfg.set_server(2), full ? 251 : 0);
        EXPECT_EQ(read_file(full ? "cfg/brod.cfg" : "cfg/brod.bak"), "SERVER: a\nSERVER: b\n");
        EXPECT_EQ(text_of(cfg.error_text()), full ? "i/o error writing file [cfg/brod.tmp]" : "");
    }
}

} // namespace
