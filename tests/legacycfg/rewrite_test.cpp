// What a rewrite of "brod.cfg" meets in its directory: leftovers, links, other users and other processes.
#include "support.h"

#include <chrono>
#include <random>
#include <set>
#include <thread>

namespace {

constexpr char old_text[] = "SERVER: a\nSERVER: b\n";
constexpr char new_text[] = "SERVER: b\nSERVER: a\n";

/// "brod.cfg" with two servers and an older backup, loaded, beside a file of somebody else.
class Rewrite : public testing::Test {
protected:
    void SetUp() override
    {
        write_file("brod.cfg", old_text);
        write_file("brod.bak", "older");
        write_file("foreign", "foreign");
        ASSERT_EQ(cfg.load(), code::success);
    }
    scan_cfg cfg{"brod.cfg"};
};

struct obstacle {
    const char * name;
    bool (*plant)(); // false on a system that has no such thing
    int code;
    const char * left; // of "brod.tmp"; null if it must be gone
};

bool link_to(const char * target, const char * name = "brod.tmp")
{
    std::error_code failed;
    fs::create_symlink(target, name, failed);
    return !failed;
}

const obstacle obstacles[] = {
    {"a leftover file", [] { return write_file("brod.tmp", "left"), true; }, 0, nullptr},
    {"a leftover that nobody may write",
     [] {
         if (fs::path::preferred_separator != '/')
             return false; // it can't be removed there
         write_file("brod.tmp", "left");
         fs::permissions("brod.tmp", fs::perms::owner_read);
         return true;
     },
     0, nullptr},
    {"a hard link to a file", [] { return fs::create_hard_link("foreign", "brod.tmp"), true; }, 0, nullptr},
    {"a link to a file", [] { return link_to("foreign"); }, 0, nullptr},
    {"a link to nothing", [] { return link_to("nothing"); }, 0, nullptr},
    {"a link to itself", [] { return link_to("brod.tmp"); }, 0, nullptr},
    {"a pipe", [] { return make_pipe("brod.tmp"); }, 251, "brod.tmp"},
    {"a link to a pipe", [] { return make_pipe("pipe") && link_to("pipe"); }, 251, "brod.tmp"},
    {"a link to a device", [] { return fs::exists("/dev/full") && link_to("/dev/full"); }, 251, "brod.tmp"},
    {"a directory", [] { return fs::create_directory("brod.tmp"); }, 250, "brod.tmp"},
    {"a link to a directory", [] { return link_to("brodan"); }, 250, "brod.tmp"},
};

class RewriteObstacle : public Rewrite, public testing::WithParamInterface<obstacle> {};

TEST_P(RewriteObstacle, IsRemovedOrLeftUntouched)
{
    if (!GetParam().plant())
        GTEST_SKIP() << "not on this system";
    const fs::file_type before = fs::symlink_status("brod.tmp").type();

    EXPECT_EQ(cfg.set_server(2), GetParam().code);

    EXPECT_EQ(read_text("brod.cfg"), GetParam().code == 0 ? new_text : old_text);
    EXPECT_EQ(read_text("brod.bak"), GetParam().code == 0 ? old_text : "older");
    EXPECT_EQ(read_text("foreign"), "foreign");
    EXPECT_EQ(fs::symlink_status("brod.tmp").type(), GetParam().left ? before : fs::file_type::not_found);
    fs::remove("brod.tmp");
}
INSTANTIATE_TEST_SUITE_P(Tmp, RewriteObstacle, testing::ValuesIn(obstacles), name_of);

TEST_F(Rewrite, ReplacesABackupThatIsAHardLinkToTheFile)
{
    fs::remove("brod.bak");
    fs::create_hard_link("brod.cfg", "brod.bak");
    EXPECT_EQ(cfg.set_server(2), code::success);
    EXPECT_EQ(read_text("brod.cfg"), new_text);
    EXPECT_EQ(read_text("brod.bak"), old_text);
}

TEST_F(Rewrite, ReplacesABackupThatIsALinkToTheFile)
{
    fs::remove("brod.bak");
    if (!link_to("brod.cfg", "brod.bak"))
        GTEST_SKIP() << "no links here";
    EXPECT_EQ(cfg.set_server(2), code::success);
    EXPECT_EQ(read_text("brod.cfg"), new_text);
    EXPECT_EQ(read_text("brod.bak"), old_text);
}

TEST_F(Rewrite, RefusesAFileThatIsALinkToItsNeighbour)
{
    for (const char * neighbour : {"brod.bak", "brod.tmp"}) {
        SCOPED_TRACE(neighbour);
        fs::remove("brod.cfg");
        write_file(neighbour, old_text);
        if (!link_to("between", "brod.cfg") || !link_to(neighbour, "between"))
            GTEST_SKIP() << "no links here";
        EXPECT_EQ(cfg.set_server(2), code::open_failed);
        EXPECT_EQ(read_text(neighbour), old_text);
        fs::remove("between");
    }
}

TEST_F(Rewrite, KeepsTheNewTextForItsOwnerIfTheFileIsGone)
{
    fs::remove("brod.cfg");
    EXPECT_EQ(cfg.set_server(2), code::replace_failed);
    EXPECT_EQ(text_of(cfg.error_text()), "error backing up [brod.cfg] file");
    EXPECT_EQ(read_text("brod.tmp"), new_text);
    if (fs::path::preferred_separator == '/') {
        EXPECT_EQ(fs::status("brod.tmp").permissions(), fs::perms::owner_read | fs::perms::owner_write);
    }
}

TEST_F(Rewrite, FailsIfTheFileCannotBeExamined)
{
    fs::remove("brod.cfg");
    if (!link_to("brod.cfg", "brod.cfg"))
        GTEST_SKIP() << "no links here";
    EXPECT_EQ(cfg.set_server(2), code::write_failed);
    EXPECT_EQ(read_text("brod.bak"), "older");
}

TEST_F(Rewrite, RecoversWithAndWithoutALeftover)
{
    for (const bool leftover : {false, true}) {
        SCOPED_TRACE(leftover);
        write_file("brod.bak", old_text);
        fs::remove("brod.cfg");
        if (leftover)
            write_file("brod.tmp", "left");
        EXPECT_EQ(scan_cfg::recover("brod.cfg"), code::success);
        EXPECT_EQ(read_text("brod.cfg"), old_text);
        EXPECT_EQ(read_text("brod.tmp"), leftover ? "left" : "(no file)");
    }
}

// Two processes

constexpr int servers = 6000;
constexpr int rewrites = 300;

/// Rewrites until so many rewrites gave 0. Prints what must not happen.
void keep_rewriting()
{
    std::mt19937 random(static_cast<unsigned>(process_number()));
    const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(5);
    for (int done = 0; done < rewrites;) {
        if (std::chrono::steady_clock::now() > end) {
            std::printf("only %d rewrites\n", done);
            return;
        }
        scan_cfg cfg("brod.cfg");
        const int loaded = cfg.load(); // 250 between the renames of the other process, with a line
        if (loaded == code::success && cfg.server_count() != servers)
            std::printf("%d servers\n", cfg.server_count());
        if (loaded == code::success &&
            cfg.set_server(2 + static_cast<int>(random() % (servers - 1))) == code::success)
            ++done;
    }
}
const scenario first_rewriter("first_rewriter", keep_rewriting);
const scenario second_rewriter("second_rewriter", keep_rewriting);

TEST(RewriteByTwoProcesses, LosesNoServer)
{
    std::string text;
    std::multiset<std::string> expected;
    for (int i = 0; i < servers; ++i) {
        expected.insert("SERVER: host" + std::to_string(i) + ".example");
        text += "SERVER: host" + std::to_string(i) + ".example\n";
    }
    write_file("brod.cfg", text);
    std::string said[2];
    std::thread other([&] { said[1] = run_scenario("second_rewriter"); });
    said[0] = run_scenario("first_rewriter");
    other.join();

    const std::string not_loaded = "unable to open file [brod.cfg]";
    EXPECT_EQ(lines_without(not_loaded, said[0]), "");
    EXPECT_EQ(lines_without(not_loaded, said[1]), "");
    std::multiset<std::string> left;
    std::istringstream lines(read_text("brod.cfg"));
    for (std::string line; std::getline(lines, line);)
        left.insert(line);
    EXPECT_EQ(left.size(), expected.size());
    EXPECT_TRUE(left == expected);
}

} // namespace
