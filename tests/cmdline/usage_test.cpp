#include "support.h"

namespace {
const char * const mandatory[] = {"-ini", "-force", nullptr};
const char * const allowed[] = {"-type", "-log", nullptr};
const char * const none[] = {nullptr};

TEST(Usage, ShowsWhatOptionsAreFor)
{
    const option_description descriptions[] = {
        {"-log", "level of the log"}, {"-type", "kind of listing"}, {"-ini", "the scan result file"}, {}};
    EXPECT_EQ(text_of(input_parms::usage({mandatory, allowed}, "tool", descriptions)),
              "usage: tool -ini PATH -force [options]\n"
              "required:\n"
              "    -ini PATH           the scan result file\n"
              "    -force\n"
              "options:\n"
              "    -type GEN|ZR7CID|WINCID|BRD2|PROCEDURE|PLAN|UVXINSTP\n"
              "                        kind of listing\n"
              "    -log NUMBER         level of the log\n");
}

TEST(Usage, LeavesEmptyListsOut)
{
    const option_description descriptions[] = {{}};
    EXPECT_EQ(text_of(input_parms::usage({none, none}, "tool", descriptions)), "usage: tool\n");
}

TEST(Options, AWordIsNotPartOfTheListOfWords)
{
    input_parms ip;
    printed_by([&] {
        ip.set_ip_ret_val("ok|err");
        ip.set_ip_obj_type("PROC|PLAN");
        ip.set_ip_type("");
    });
    EXPECT_EQ(text_of(ip.ip_ret_val()), "err");
    EXPECT_EQ(text_of(ip.ip_obj_type()), "");
    EXPECT_EQ(text_of(ip.ip_type()), "err");
}
} // namespace
