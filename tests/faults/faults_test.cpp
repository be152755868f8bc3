#include "support.h"

#include <cerrno>

#include "orvet/foundation/platform/files.h"

namespace {

int no_remove(const ustring &)
{
    errno = EACCES;
    return -1;
}

TEST(Seam, PutsAFunctionInThePlaceOfACall)
{
    write_file("text.txt", "text");
    kt_file file(pathname("text.txt"));

    platform::remove_file = no_remove;
    EXPECT_EQ(file.removef(), code::remove_failed);

    platform::remove_file = platform::native::remove_file;
    EXPECT_EQ(file.removef(), code::success);
}

} // namespace
