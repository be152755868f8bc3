#include "support.h"

namespace {

TEST(HeapdumpAddress, IsWrittenAsTheSystemsRuntimeDoes)
{
    printed_by([] { heapdump("heap.txt"); });
    std::istringstream words(lines_with(" block at ", read_text("heap.txt")));
    std::string address;
    for (int i = 0; i < 4; ++i)
        words >> address;
    if (address.empty())
        GTEST_SKIP() << "the heap can't be walked";
    const bool on_windows = fs::path::preferred_separator == '\\';
    EXPECT_EQ(address.find_first_not_of(on_windows ? "0123456789ABCDEF" : "0123456789abcdefx"),
              std::string::npos)
        << address;
    EXPECT_EQ(address.starts_with("0x"), !on_windows) << address;
}

} // namespace
