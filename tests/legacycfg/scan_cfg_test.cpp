#include "support.h"

#include <set>

namespace {

struct world {
    std::unique_ptr<scan_cfg> cfg;
};

std::string made(world & a, const std::string & name, const std::string & text)
{
    const fs::path path(name);
    if (path.has_parent_path())
        fs::create_directories(path.parent_path());
    write_file(name, replaced(text, {{"|", "\n"}, {"_", " "}}));
    a.cfg = std::make_unique<scan_cfg>(name.c_str());
    return text_of(a.cfg->cfg_file());
}

std::string pairs_of(const scan_cfg & cfg)
{
    vector pairs;
    cfg.fill_vector(pairs);
    std::string text;
    for (unsigned i = 0; i < pairs.size(); ++i) {
        const auto & each = static_cast<pair &>(*pairs[i]);
        text += "<" + text_of(each.first) + "> <" + text_of(each.second) + ">\n";
    }
    return text;
}

/// An outcome, and the files in "cfg" with their lines.
std::string with_files(const std::string & outcome)
{
    std::set<std::string> names;
    if (fs::exists("cfg"))
        for (const fs::directory_entry & entry : fs::directory_iterator("cfg"))
            names.insert("cfg/" + entry.path().filename().string());
    std::string text = outcome;
    for (const std::string & name : names) {
        const bool is_file = fs::is_regular_file(name);
        text += "\n" + name + (is_file ? ": " + replaced(read_text(name), {{"\n", "|"}}) : " is not a file");
    }
    return text;
}

std::string loaded(scan_cfg & cfg)
{
    int code = -1;
    const std::string printed = printed_by([&] { code = cfg.load(); });
    return result(code, cfg.error_text(), cfg.server_count(), cfg.target_name(), cfg.target_protocol()) +
           "\n" + printed;
}

const operation<world> operations[] = {
    {"file", [](auto & a, auto & w) { return made(a, w[1], w[2]); }},
    {"folder", [](auto &, auto & w) { return result(fs::create_directories(w[1])); }},
    {"remove", [](auto &, auto & w) { return result(static_cast<int>(fs::remove_all(w[1]))); }},
    {"load", [](auto & a, auto &) { return loaded(*a.cfg); }},
    {"show", [](auto & a, auto &) { return printed_by([&] { a.cfg->show(); }); }},
    {"show_all", [](auto & a, auto &) { return printed_by([&] { a.cfg->show_all(); }); }},
    {"pairs", [](auto & a, auto &) { return pairs_of(*a.cfg); }},
    {"set",
     [](auto & a, auto & w) {
         return with_files(result(a.cfg->set_server(std::stoi(w[1])), a.cfg->error_text()));
     }},
    {"recover", [](auto &, auto & w) { return with_files(result(scan_cfg::recover(w[1].c_str()))); }},
};

TEST(ScanCfg, ReadsShowsAndRewrites)
{
    expect_golden_cases("brod_cfg", [](const std::string &, const std::string & script) {
        fs::remove_all("cfg");
        world a;
        transcript lines;
        run_script(script, a, operations, lines);
        return lines.take();
    });
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

} // namespace
