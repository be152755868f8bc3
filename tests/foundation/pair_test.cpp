// A pair beside objects of other classes: each comparison compiles, and finds them different.
#include "support.h"

namespace {

template <class Other>
class PairBeside : public testing::Test {
};
using others = testing::Types<ustring, keyval, pathname>;
TYPED_TEST_SUITE(PairBeside, others);

TYPED_TEST(PairBeside, IsAnotherClass)
{
    pair one("key", "value");
    TypeParam other("key");
    EXPECT_FALSE(one == other);
    EXPECT_FALSE(other == one);
    EXPECT_TRUE(one != other);
    EXPECT_TRUE(other != one);
}

} // namespace
