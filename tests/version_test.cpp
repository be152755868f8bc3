#include <string>

#include <gtest/gtest.h>

#include <orvet/version.h>

namespace {

TEST(Version, HasTheSameNumbersInEveryForm)
{
    const std::string parts = std::to_string(ORVET_VERSION_MAJOR) + "." +
                              std::to_string(ORVET_VERSION_MINOR) + "." + std::to_string(ORVET_VERSION_PATCH);
    EXPECT_EQ(ORVET_VERSION_STRING, parts);
    EXPECT_EQ(ORVET_VERSION / 10000, ORVET_VERSION_MAJOR);
    EXPECT_EQ(ORVET_VERSION / 100 % 100, ORVET_VERSION_MINOR);
    EXPECT_EQ(ORVET_VERSION % 100, ORVET_VERSION_PATCH);
    EXPECT_EQ(orvet::version(), parts);
}

} // namespace
