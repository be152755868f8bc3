// The order of the calls of a rewrite, and what may happen between two of them.
#include "support.h"

#include <cerrno>
#include <type_traits>

#include "orvet/foundation/platform/files.h"
#include "orvet/foundation/platform/rewrite.h"

namespace {

using platform::held_entry;
namespace native = platform::native;

constexpr char old_text[] = "SERVER: a\nSERVER: b\n";
constexpr char new_text[] = "SERVER: b\nSERVER: a\n";

std::string calls;
std::function<void()> between_renames;

constexpr fs::perms owner_alone = fs::perms::owner_read | fs::perms::owner_write;

fs::perms permissions_of(const char * file)
{
    return fs::status(file).permissions();
}

class RewriteCalls : public testing::Test {
protected:
    void SetUp() override
    {
        write_file("brod.cfg", old_text);
        ASSERT_EQ(cfg.load(), code::success);
        calls.clear();
    }
    void TearDown() override
    {
        for (const std::function<void()> & each : restore)
            each();
    }
    /// Puts a function in the place of a platform call until the test ends.
    template <class Call>
    void put(Call & call, std::type_identity_t<Call> stand_in)
    {
        restore.push_back([&call, before = call] { call = before; });
        call = stand_in;
    }
    std::vector<std::function<void()>> restore;
    scan_cfg cfg{"brod.cfg"};
};

TEST_F(RewriteCalls, ComeInTheirOrder)
{
    put(platform::create_held, [](const ustring & path) {
        calls += "create ";
        return native::create_held(path);
    });
    put(platform::copy_owner, [](const ustring & from, std::FILE * stream) {
        calls += "owner ";
        return native::copy_owner(from, stream);
    });
    put(platform::copy_permissions, [](const ustring & from, std::FILE * stream) {
        calls += "permissions ";
        return native::copy_permissions(from, stream);
    });
    put(platform::write, [](std::FILE * stream, const void * bytes, std::size_t size) {
        calls += "write ";
        return native::write(stream, bytes, size);
    });
    put(platform::sync_stream, [](std::FILE * stream) {
        calls += "sync ";
        return native::sync_stream(stream);
    });
    put(platform::close_stream, [](std::FILE * stream) {
        calls += "close ";
        return native::close_stream(stream);
    });
    put(platform::remove_file, [](const ustring & path) {
        calls += "remove " + text_of(path) + " ";
        return native::remove_file(path);
    });
    put(platform::rename_file, [](const ustring & from, const ustring & to) {
        // What is renamed by its name is the old file; the new one goes by its handle on some systems.
        if (text_of(from) == "brod.cfg")
            calls += "rename " + text_of(to) + " ";
        return native::rename_file(from, to);
    });
    put(platform::rename_held, [](held_entry held, const ustring & from, const ustring & to) {
        calls += "rename " + text_of(to) + " ";
        return native::rename_held(held, from, to);
    });
    put(platform::sync_directory, [](const ustring & path) {
        calls += "sync directory ";
        return native::sync_directory(path);
    });
    put(platform::release_held, [](held_entry held) {
        calls += "release";
        native::release_held(held);
    });
    EXPECT_EQ(cfg.set_server(2), code::success);
    EXPECT_EQ(calls,
              "create owner permissions write sync close remove brod.bak rename brod.bak rename brod.cfg "
              "sync directory release");
}

TEST_F(RewriteCalls, GiveTheNewFileToNobodyElseBeforeItsPermissionsAreSet)
{
    if (fs::path::preferred_separator != '/')
        GTEST_SKIP() << "directories decide here";
    fs::permissions("brod.cfg", fs::perms::owner_all | fs::perms::group_read);
    put(platform::copy_owner, [](const ustring & from, std::FILE * stream) {
        EXPECT_EQ(permissions_of("brod.tmp"), owner_alone);
        return native::copy_owner(from, stream);
    });
    put(platform::write, [](std::FILE * stream, const void * bytes, std::size_t size) {
        EXPECT_EQ(permissions_of("brod.tmp"), permissions_of("brod.cfg"));
        return native::write(stream, bytes, size);
    });
    EXPECT_EQ(cfg.set_server(2), code::success);
}

struct lost_group {
    const char * name;
    unsigned before;
    unsigned after;
};
class RewriteLostGroup : public RewriteCalls, public testing::WithParamInterface<lost_group> {};

TEST_P(RewriteLostGroup, GivesItsMembersNoMoreThanTheyHad)
{
    if (!give_to_another_group("brod.cfg"))
        GTEST_SKIP() << "not allowed, or no groups here";
    fs::permissions("brod.cfg", static_cast<fs::perms>(GetParam().before));
    put(platform::copy_owner, [](const ustring &, std::FILE *) { return 0; }); // the system refuses it
    EXPECT_EQ(cfg.set_server(2), code::success);
    EXPECT_EQ(permissions_of("brod.cfg"), static_cast<fs::perms>(GetParam().after));
}
INSTANTIATE_TEST_SUITE_P(Permissions, RewriteLostGroup,
                         testing::Values(lost_group{"the group alone", 0640, 0600},
                                         lost_group{"the group and all others", 0644, 0604},
                                         lost_group{"all others but the group", 0604, 0600}),
                         name_of);

TEST_F(RewriteCalls, NeverWriteThroughALinkPlantedAfterALeftoverWasRemoved)
{
    write_file("foreign", "foreign");
    write_file("brod.tmp", "left");
    put(platform::remove_held, [](held_entry held, const ustring & path) {
        const int result = native::remove_held(held, path);
        std::error_code no_links;
        fs::create_symlink("foreign", "brod.tmp", no_links);
        return result;
    });
    const int rc = cfg.set_server(2);
    const bool planted = fs::is_symlink("brod.tmp");
    EXPECT_EQ(rc, planted ? code::open_failed : code::success);
    EXPECT_EQ(read_text("foreign"), "foreign");
    EXPECT_FALSE(fs::is_symlink("brod.cfg"));
}

TEST_F(RewriteCalls, PutNoForeignFileInThePlaceOfTheNewText)
{
    write_file("foreign", "foreign");
    static bool replaced;
    put(platform::sync_stream, [](std::FILE *) {
        std::error_code held;
        replaced = fs::remove("brod.tmp", held);
        if (replaced)
            fs::create_symlink("foreign", "brod.tmp");
        return 0;
    });
    const int rc = cfg.set_server(2);
    EXPECT_EQ(rc, replaced ? code::write_failed : code::success);
    EXPECT_EQ(read_text("brod.cfg"), replaced ? old_text : new_text);
}

/// Runs the action of the test before the new file takes its place.
int rename_after_action(held_entry held, const ustring & from, const ustring & to)
{
    between_renames();
    return native::rename_held(held, from, to);
}

TEST_F(RewriteCalls, KeepASecondRewriteOut)
{
    scan_cfg second("brod.cfg");
    ASSERT_EQ(second.load(), code::success);
    between_renames = [&] { EXPECT_EQ(second.set_server(2), code::open_failed); };
    put(platform::rename_held, rename_after_action);
    EXPECT_EQ(cfg.set_server(2), code::success);
    EXPECT_EQ(read_text("brod.cfg"), new_text);
    EXPECT_EQ(read_text("brod.bak"), old_text);
    between_renames = [] {};
    EXPECT_EQ(second.set_server(2), code::success); // the hold has ended
}

TEST_F(RewriteCalls, KeepARecoveryOut)
{
    between_renames = [&] { EXPECT_EQ(scan_cfg::recover("brod.cfg"), code::open_failed); };
    put(platform::rename_held, rename_after_action);
    EXPECT_EQ(cfg.set_server(2), code::success);
    EXPECT_EQ(read_text("brod.cfg"), new_text);
}

TEST_F(RewriteCalls, LeaveAMomentWithoutTheFile)
{
    between_renames = [] {
        scan_cfg reader("brod.cfg");
        EXPECT_EQ(printed_by([&] { EXPECT_EQ(reader.load(), code::open_failed); }),
                  "unable to open file [brod.cfg]\n");
    };
    put(platform::rename_held, rename_after_action);
    EXPECT_EQ(cfg.set_server(2), code::success);
}

TEST_F(RewriteCalls, SucceedIfTheDirectoryCannotBeSynced)
{
    put(platform::sync_directory, [](const ustring &) { return -1; });
    EXPECT_EQ(cfg.set_server(2), code::success);
}

TEST_F(RewriteCalls, FailIfThePermissionsCannotBeRead)
{
    put(platform::copy_permissions, [](const ustring &, std::FILE *) {
        errno = EIO;
        return -1;
    });
    EXPECT_EQ(cfg.set_server(2), code::write_failed);
    EXPECT_EQ(read_text("brod.cfg"), old_text);
    EXPECT_EQ(read_text("brod.tmp"), "");
}

const scenario killed_rewriter("killed_rewriter", [] {
    platform::sync_stream = [](std::FILE *) -> int { die(); };
    scan_cfg cfg("brod.cfg");
    cfg.load();
    static_cast<void>(cfg.set_server(2));
});

TEST_F(RewriteCalls, TakeTheLeftoverOfADeadProcessForWhatItIs)
{
    run_scenario("killed_rewriter");
    ASSERT_EQ(read_text("brod.tmp"), new_text);
    EXPECT_EQ(cfg.set_server(2), code::success);
    EXPECT_EQ(read_text("brod.cfg"), new_text);
}

} // namespace
