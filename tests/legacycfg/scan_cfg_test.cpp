#include "support.h"

namespace fs = std::filesystem;

namespace {
// clang-format off
constexpr char file[] = "cfg/brod.cfg", two[] = "server:a\nserver:b", changed[] = "server:b\nserver:a\n";
constexpr char no_temporary[] = "unable to open tempfile [cfg/brod.tmp]",
               no_backup[] = "error backing up [cfg/brod.cfg] file";
constexpr char no_number[] = "invalid server number [2]: valid range is [1..0]",
               no_second[] = "invalid server number [2]: valid range is [1..1]";
constexpr char three[] = "SERVER: a \n \nserver: b\n x\nserver:c", last_first[] = "x\nserver:c\nSERVER: a\nserver: b\n";

std::error_code gone; // of a system without links
const struct {
    const char * path, * text; // null for no file
    int n, set;
    const char * error; // of `load` where there is no file, else of `set_server`
    std::string after;
    void (*disturb)() = [] {};    // between load and set_server
    const char * device = nullptr; // that brod.tmp is a link to
    const char * held = nullptr;   // by somebody else, where that keeps others out
} cases[] = {
    {file, "x\n", 1, 0, "", "x\n|older|-|"},
    {file, "SERVER:\n", 2, 1, no_second, "SERVER:\n|older|-|"},
    {file, "", 0, 1, "invalid server number [0]: valid range is [1..0]", "|older|-|"},
    {file, three, 3, 0, "", last_first + ("|" + std::string(last_first)) + "|-|"},
    {file, two, 2, 0, "", "new|old|-|"},
    {file, two, 2, 250, no_temporary, "old|older|other|", [] { fs::create_directory("cfg/brod.tmp"); }},
    {file, two, 2, 250, no_temporary, "old|older|old|", [] { fs::create_hard_link("cfg/brod.cfg", "cfg/brod.tmp"); }},
    {file, two, 2, 0, "", "new|old|-|", [] { fs::remove("cfg/brod.bak"), fs::create_symlink("brod.bak", "cfg/brod.tmp", gone); }},
    {file, two, 2, 261, no_backup, "old|other|new|",
     [] { fs::remove("cfg/brod.bak"), fs::create_directories("cfg/brod.bak/x"); }},
    {file, two, 2, 261, no_backup, "old|-|new|", [] {}, nullptr, "cfg/brod.cfg"},
    {file, two, 2, 261, no_backup, "old|older|new|", [] {}, nullptr, "cfg/brod.bak"},
    {file, two, 2, 250, no_temporary, "old|older||", [] {}, nullptr, "cfg/brod.tmp"},
    {file, two, 2, 261, no_backup, "-|-|new|", [] { fs::remove("cfg/brod.cfg"); }},
    {file, two, 2, 250, no_temporary, "-|-|-|", [] { fs::remove_all("cfg"); }},
    {file, two, 2, 251, "i/o error writing file [cfg/brod.tmp]", "old|older|other|", [] {}, "/dev/full"},
    {file, two, 2, 251, "i/o error writing file [cfg/brod.tmp]", "old|older|other|", [] {}, "/dev/null"}, // takes all, has none
    // Its neighbours would be the file itself, or can't be named.
    {"cfg/brod.tmp", two, 2, 250, no_temporary, "-|older|old|"},
    {"cfg/brod.bak", two, 2, 250, no_temporary, "-|old|-|"},
    {"cfg/abc", two, 2, 250, "unable to open tempfile [brod.tmp]", "-|older|-|"},
    // No file, a directory, and what opens but can't be read.
    {"cfg/%s%d.cfg", nullptr, 2, 1, "unable to open file [cfg/%s%d.cfg]", "-|older|-|"},
    {"cfg", nullptr, 2, 1, "unable to open file [cfg]", "-|older|-|"},
    {"/proc/self/mem", nullptr, 2, 1, "unable to open file [/proc/self/mem]", "-|older|-|"}};
// clang-format on
/// What stands under the three names.
std::string files()
{
    std::string all;
    for (const char * path : {"cfg/brod.cfg", "cfg/brod.bak", "cfg/brod.tmp"}) {
        const std::string text = fs::is_regular_file(path) ? read_text(path)
                                 : fs::exists(path)        ? "other"
                                                           : "-";
        all += (text == two ? "old" : text == changed ? "new" : text) + "|";
    }
    return all;
}

TEST(ScanCfg, MakesAServerTheFirstOrTellsWhyNot)
{
    for (const auto & each : cases) {
        if (each.device && !fs::exists(each.device))
            continue;
        SCOPED_TRACE(each.path + ("\n" + each.after));
        fs::remove_all("cfg");
        fs::create_directory("cfg");
        write_file("cfg/brod.bak", "older");
        const bool loads = each.text;
        if (loads)
            write_file(each.path, each.text);
        scan_cfg cfg(each.path);
        int code = -1;
        EXPECT_EQ(printed_by([&] { code = cfg.load(); }), loads ? "" : each.error + std::string("\n"));
        EXPECT_EQ(std::to_string(code) + text_of(cfg.error_text()),
                  loads ? "0" : "250" + std::string(each.error));
        each.disturb();
        if (each.device)
            fs::create_symlink(each.device, "cfg/brod.tmp");
        auto holder = each.held ? hold_file(each.held) : nullptr;
        if (each.held && !holder)
            continue;
        for (int round = each.n == 3; round >= 0; --round) // numbers stay as loaded, so twice is once
            EXPECT_EQ(cfg.set_server(each.n), each.set);
        EXPECT_EQ(text_of(cfg.error_text()), loads ? each.error : no_number);
        holder.reset();
        EXPECT_EQ(files(), each.after);
        EXPECT_EQ(sum({cfg.set_server(1), cfg.error_text().length()}), 0);
    }
    fs::remove_all("cfg");
    fs::create_directories("cfg/brod.bak");
    EXPECT_EQ(scan_cfg::recover("cfg/brod.cfg"), 250); // a directory is no backup
}

/// A disk that is full at each byte around the ends of the text and of the buffers on its way.
TEST(ScanCfg, LosesNothingOnAFullDisk)
{
    std::string generic;
    for (int i = 0; i < 3500; ++i)
        generic += "line " + std::to_string(10000 + i) + " of it\n";
    const std::string text = "server:a\nserver:b\n" + generic, edited = generic + changed;
    const long whole = static_cast<long>(text.size());
    fs::remove_all("cfg");
    fs::create_directory("cfg");
    for (const long edge : {3L, 4096L, 32768L, 65536L, whole})
        for (long room = edge - 3; room <= edge + 3; ++room) {
            write_file(file, text);
            write_file("cfg/brod.bak", "older");
            scan_cfg cfg(file);
            kt_file copy(pathname("copy.txt"));
            EXPECT_EQ(sum({cfg.load(), copy.open("w")}), 0);
            if (!limit_files(room))
                GTEST_SKIP() << "no such limit here";
            const int rc = cfg.set_server(2),
                      written = copy.write(text.c_str(), static_cast<unsigned>(whole)), closed = copy.close();
            limit_files(-1);
            EXPECT_EQ(rc, room < whole ? 251 : 0) << room;
            EXPECT_EQ(written != 0 || closed != 0, room < whole) << room;
            EXPECT_TRUE(read_text(file) == (rc != 0 ? text : edited) &&
                        read_text("cfg/brod.bak") == (rc != 0 ? "older" : text))
                << room;
        }
}

TEST(ScanCfg, ListsWhatItRead)
{
    write_file("brod.cfg", "  protocol :no\r\n\nWorkstation Name: WS \x85 one  \n   \nserver:  alpha x \n"
                           "PROTOCOL:first\nprotocol:  TCP\nSERVER:beta\nname only\n  SERVERS: \t1:2");
    scan_cfg cfg("brod.cfg");
    ASSERT_EQ(cfg.load(), 0);
    EXPECT_EQ(printed_by([&] { cfg.show(); }),
              "Target_Name \t:WS \x85 one\nTarget_Prot \t:TCP\nServer1 \t:alpha x\nServer2 \t:beta\n");
    EXPECT_EQ(
        printed_by([&] { cfg.show_all(); }),
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
    write_file("brod.cfg", "SERVER: gamma\nWORKSTATION NAME: PROTOCOL: x");
    EXPECT_EQ(cfg.set_server(9), 1);
    ASSERT_EQ(cfg.load(), 0); // adds
    EXPECT_EQ(text_of(cfg.error_text()), "");
    EXPECT_EQ(sum({cfg.server_count(), cfg.set_server(3)}), 3); // with a name of the least length
    EXPECT_EQ(text_of(cfg.target_name()) + "/" + text_of(cfg.target_protocol()), "PROTOCOL: x/TCP");
}

TEST(ScanCfg, KeepsEveryByteOfALineAndThePermissions)
{
    const std::string long_line = std::string(1 << 20, '\xE4') + "\n";
    const std::string generic =
        std::string("zero \0 inside\n", 14) + "Latin-1 \xE4\xFF, UTF-8 \xC3\xA4\n" + long_line;
    write_file("1brod.cfg", "SERVER: a\n" + generic + "SERVER: b\n");
    fs::permissions("1brod.cfg", fs::perms::owner_read | fs::perms::owner_write);
    scan_cfg cfg("1brod.cfg");
    EXPECT_EQ(cfg.load(), 0);
    for (const bool listed : {false, true}) {
        const std::string list = access_list("1brod.cfg", listed);
        const fs::perms permissions = fs::status("1brod.cfg").permissions();
        EXPECT_EQ(cfg.set_server(2), 0);
        EXPECT_TRUE(read_text("1brod.cfg") == generic + "SERVER: b\nSERVER: a\n" && fs::exists("1brod.bak"));
        EXPECT_EQ(fs::status("1brod.cfg").permissions(), permissions);
        EXPECT_EQ(access_list("1brod.cfg", false), list);
    }
    EXPECT_NE(printed_by([&] { cfg.show_all(); }).find(long_line), std::string::npos);
}
} // namespace
