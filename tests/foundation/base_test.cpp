#include "support.h"

using namespace orvet;
using namespace orvet_test;

namespace {

TEST(Ustring, AnyBytesComeBackAsTheyWere)
{
    const std::string samples[] = {
        "",
        "plain",
        "caf\xC3\xA9",               // UTF-8
        "caf\xE9",                   // Latin-1
        "\xF0\x9F\x99\x82 smile",    // outside the first plane
        "\xC0\xAF overlong",         //
        "\xED\xA0\x80 surrogate",    //
        "\xF4\x90\x80\x80 too high", //
        "cut short \xE2\x82",        //
        std::string("zero\0inside", 11),
        "\xFF\xFE\x80",
        "\xEF\xBB\xBFmark",
    };
    for (const std::string & sample : samples) {
        const ustring text = from_bytes(sample);
        EXPECT_EQ(text_of(text), sample);
        EXPECT_EQ(text_of(ustring(text).append("")), sample);
    }
}

} // namespace
