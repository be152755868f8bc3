#include "support.h"

namespace {

/// The text of each of the three files, or what is there in its place.
std::string files()
{
    std::string text;
    for (const std::string name : {"brod.cfg", "brod.bak", "brod.tmp"}) {
        const std::string path = "cfg/" + name;
        if (fs::is_regular_file(path))
            text += name + ":\n" + read_text(path);
        else if (fs::exists(path))
            text += name + " is not a file\n";
    }
    return text;
}

void make_server_first(transcript & lines, scan_cfg & cfg, int n)
{
    lines.step("set_server " + std::to_string(n), [&] { return cfg.set_server(n); });
    lines.note("error <" + text_of(cfg.error_text()) + ">");
    lines.note(files());
}

TEST(ScanCfg, ReadsShowsAndRewrites)
{
    expect_golden_cases("brod_cfg", [](const std::string &, const std::string & text) {
        fs::remove_all("cfg");
        fs::create_directory("cfg");
        write_file("cfg/brod.cfg", text);
        scan_cfg cfg("cfg/brod.cfg");
        transcript lines;
        lines.step("load", [&] { return cfg.load(); });
        lines.note(printed_by([&] { cfg.show(); }) + printed_by([&] { cfg.show_all(); }));
        vector pairs;
        cfg.fill_vector(pairs);
        for (unsigned i = 0; i < pairs.size(); ++i) {
            const auto & each = static_cast<pair &>(*pairs[i]);
            lines.note("<" + text_of(each.first) + "> <" + text_of(each.second) + ">");
        }
        for (int n = 0; n <= cfg.server_count() + 1; ++n)
            make_server_first(lines, cfg, n);
        return lines.take();
    });
}

const struct {
    const char * name;
    const char * path;
    void (*disturb)();
} disturbances[] = {
    {"nothing", "cfg/brod.cfg", [] {}},
    {"a directory in place of the temporary file", "cfg/brod.cfg",
     [] { fs::create_directory("cfg/brod.tmp"); }},
    {"a directory in place of the backup", "cfg/brod.cfg", [] { fs::create_directories("cfg/brod.bak/x"); }},
    {"the directory is gone", "cfg/brod.cfg", [] { fs::remove_all("cfg"); }},
    {"a path that is too short", "cfg/abc", [] {}},
    {"the temporary file is the file itself", "cfg/brod.tmp", [] {}},
    {"the backup is the file itself", "cfg/brod.bak", [] {}},
};

TEST(ScanCfg, LosesNothingToWhatIsInTheWay)
{
    transcript lines;
    for (const auto & row : disturbances) {
        fs::remove_all("cfg");
        fs::create_directory("cfg");
        write_file(row.path, "server:a\nserver:b\n");
        scan_cfg cfg(row.path);
        lines.note("== " + std::string(row.name));
        EXPECT_EQ(cfg.load(), 0);
        row.disturb();
        make_server_first(lines, cfg, 2);
        make_server_first(lines, cfg, 1);
    }
    expect_golden("brod_cfg_disturbed", lines.take());
}

TEST(ScanCfg, LosesNothingOfAFileThatAnotherHolds)
{
    for (const char * name : {"cfg/brod.cfg", "cfg/brod.bak", "cfg/brod.tmp"}) {
        SCOPED_TRACE(name);
        fs::remove_all("cfg");
        fs::create_directory("cfg");
        write_file("cfg/brod.cfg", "server:a\nserver:b\n");
        write_file("cfg/brod.bak", "older\n");
        scan_cfg cfg("cfg/brod.cfg");
        EXPECT_EQ(cfg.load(), 0);
        auto holder = hold_file(name);
        if (!holder)
            GTEST_SKIP() << "no file can be held here";
        EXPECT_NE(cfg.set_server(2), 0);
        holder.reset();
        EXPECT_EQ(read_text("cfg/brod.cfg"), "server:a\nserver:b\n");
    }
}

TEST(ScanCfg, ReportsAFileThatCannotBeOpened)
{
    fs::create_directory("folder");
    for (const std::string path : {"missing%s.cfg", "folder"}) {
        scan_cfg cfg(path.c_str());
        int code = 0;
        EXPECT_EQ(printed_by([&] { code = cfg.load(); }), "unable to open file [" + path + "]\n");
        EXPECT_EQ(code, 250);
        EXPECT_EQ(text_of(cfg.error_text()), "unable to open file [" + path + "]");
    }
}

TEST(ScanCfg, AddsWhatASecondLoadReads)
{
    write_file("brod.cfg", "server: a\nPROTOCOL: x\nrest\n");
    scan_cfg cfg("brod.cfg");
    EXPECT_EQ(text_of(cfg.cfg_file()), "brod.cfg");
    EXPECT_EQ(cfg.load(), 0);
    EXPECT_EQ(cfg.set_server(2), 1);
    write_file("brod.cfg", "server: b\nWORKSTATION NAME: y\n");
    EXPECT_EQ(cfg.load(), 0);
    EXPECT_EQ(text_of(cfg.error_text()), "");
    EXPECT_EQ(cfg.server_count(), 2);
    EXPECT_EQ(cfg.server_lines().size(), 2U);
    EXPECT_EQ(cfg.generic_lines().size(), 3U);
    EXPECT_EQ(text_of(cfg.target_name()), "y");
    EXPECT_EQ(text_of(cfg.target_protocol()), "x");
    EXPECT_EQ(cfg.cfg_stream(), nullptr);
    EXPECT_EQ(cfg.set_server(2), 0); // a name of the least length
    EXPECT_EQ(read_text("brod.cfg"), "PROTOCOL: x\nrest\nWORKSTATION NAME: y\nserver: b\nserver: a\n");
}

TEST(ScanCfg, KeepsEveryByteOfALine)
{
    const std::string generic =
        std::string("zero \0 inside\n", 14) + "\xE4\xFF \xC3\xA4\n" + std::string(1 << 20, '\xE4') + "\n";
    write_file("brod.cfg", "SERVER: a\n" + generic + "SERVER: b\n");
    scan_cfg cfg("brod.cfg");
    EXPECT_EQ(cfg.load(), 0);
    EXPECT_EQ(cfg.set_server(2), 0);
    EXPECT_TRUE(read_text("brod.cfg") == generic + "SERVER: b\nSERVER: a\n");
    EXPECT_TRUE(read_text("brod.bak") == "SERVER: a\n" + generic + "SERVER: b\n");
    EXPECT_NE(printed_by([&] { cfg.show_all(); }).find(std::string(1 << 20, '\xE4') + "\n"),
              std::string::npos);
}

TEST(ScanCfg, KeepsThePermissions)
{
    for (const bool has_list : {false, true}) {
        write_file("brod.cfg", "server:a\nserver:b\n");
        fs::permissions("brod.cfg", fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_exec);
        const std::string list = access_list("brod.cfg", has_list);
        const fs::perms permissions = fs::status("brod.cfg").permissions();
        scan_cfg cfg("brod.cfg");
        EXPECT_EQ(cfg.load(), 0);
        EXPECT_EQ(cfg.set_server(2), 0);
        EXPECT_EQ(fs::status("brod.cfg").permissions(), permissions);
        EXPECT_EQ(access_list("brod.cfg", false), list);
    }
}

TEST(ScanCfg, RecoversTheBackupOfAMissingFile)
{
    EXPECT_EQ(scan_cfg::recover("brod.cfg"), 250);
    write_file("brod.bak", "older");
    EXPECT_EQ(scan_cfg::recover("brod.cfg"), 0);
    EXPECT_EQ(read_file("brod.cfg"), "older");
    EXPECT_EQ(read_file("brod.bak"), "(no file)");
    write_file("brod.bak", "other");
    EXPECT_EQ(scan_cfg::recover("brod.cfg"), 0);
    EXPECT_EQ(read_file("brod.cfg"), "older");
    fs::create_directories("cfg/brod.bak");
    EXPECT_EQ(scan_cfg::recover("cfg/brod.cfg"), 250);
}

} // namespace
