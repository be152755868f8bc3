// Moving a file to a name that may be its own.
#include "support.h"

namespace {

struct own_name {
    const char * name;
    const char * source;
    std::string target;
};
void PrintTo(const own_name & row, std::ostream * out)
{
    *out << row.name;
}

class CopyToItself : public testing::TestWithParam<own_name> {};

TEST_P(CopyToItself, RemovesNothing)
{
    fs::create_directory("directory");
    write_file("File.txt", "text");
    std::error_code no_links;
    fs::create_symlink("File.txt", "link.txt", no_links);
    fs::create_symlink("link.txt", "link to a link.txt", no_links);
    fs::create_symlink(".", "here", no_links);
    const std::string target = replaced(GetParam().target, {{"DIR", test_directory().generic_string()}});
    if (!fs::exists(GetParam().source) || !fs::exists(target))
        GTEST_SKIP() << "no links here";
    kt_file file(pathname(GetParam().source));

    transcript lines(2);
    EXPECT_EQ(file.copy_to(pathname(target.c_str())), code::rename_failed);
    const std::string written = lines.take();

    EXPECT_EQ(read_text("File.txt"), "text");
    EXPECT_EQ(lines_with("MSG0016", written).empty(), false);
    EXPECT_EQ(lines_with("remove done", written),
              "T[W] kt_file::copy_to remove done with rc=-1, errno=" + std::to_string(EINVAL) + "\n");
}

const own_name own_names[] = {
    {"the same spelling", "File.txt", "File.txt"},
    {"the current directory before it", "File.txt", "./File.txt"},
    {"over another directory", "File.txt", "directory/../File.txt"},
    {"the full path", "File.txt", "DIR/File.txt"},
    {"a linked directory", "File.txt", "here/File.txt"},
    {"a source that is a link to it", "link.txt", "File.txt"},
    {"a source that is a link to a link to it", "link to a link.txt", "File.txt"},
};
INSTANTIATE_TEST_SUITE_P(Names, CopyToItself, testing::ValuesIn(own_names), name_of);

TEST(CopyTo, ReplacesAnotherHardLinkToTheFile)
{
    write_file("file.txt", "text");
    fs::create_hard_link("file.txt", "other.txt");
    EXPECT_EQ(kt_file(pathname("file.txt")).copy_to("other.txt"), code::success);
    EXPECT_EQ(read_text("other.txt"), "text");
    EXPECT_FALSE(fs::exists("file.txt"));
}

TEST(CopyTo, ReplacesALinkToTheFile)
{
    write_file("file.txt", "text");
    std::error_code no_links;
    fs::create_symlink("file.txt", "link.txt", no_links);
    EXPECT_EQ(kt_file(pathname("file.txt")).copy_to("link.txt"), code::success);
    EXPECT_EQ(read_text("link.txt"), "text");
    EXPECT_FALSE(fs::is_symlink("link.txt"));
}

TEST(CopyTo, ChangesCaseAlone)
{
    write_file("file.txt", "text");
    EXPECT_EQ(kt_file(pathname("file.txt")).copy_to("FILE.txt"), code::success);
    std::string names;
    for (const auto & entry : fs::directory_iterator("."))
        if (ustring(entry.path().filename().string().c_str()).to_lower() == ustring("file.txt"))
            names += entry.path().filename().string();
    EXPECT_EQ(names, "FILE.txt");
    EXPECT_EQ(read_text("FILE.txt"), "text");
}

} // namespace
