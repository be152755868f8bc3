#include "support.h"

#include <string_view>

namespace {
/// Every field of a record as a table of keywords, values and marks.
template <class Record>
std::string table_of(const Record & record)
{
    std::string table;
    for (const char * const keyword : Record::keywords())
        table += keyword + text_of(record.value(keyword)) + (record.fip(keyword) ? " given\n" : "\n");
    return table;
}

TEST(RecordFields, AreReachedByTheirKeywords)
{
    user_info user;
    user.set_usProfileName("operators");
    EXPECT_EQ(table_of(user), "USER=\nAUTHORIZATION PROFILE=operators given\n");
}

TEST(RecordFields, OfAnAgentHaveTheirDefaultsAndLeaveTheTargetOut)
{
    EXPECT_EQ(
        table_of(VXA_inst_info()),
        "OPERATING_SYSTEM=\nSERVER_NAME=\nSERVER_REN_RGN=\nGATEWAY_IP_ADDRESS=\nGATEWAY_PORT_NUMBER=9494\n"
        "AGENT_NAME=$(TARGET)\nAGENT_PORT_NUMBER=9495\nAGENT_INST_PATH=c:\\corvan\\vxa\n"
        "IMAGES_SERVER_NAME=\nEXPORTED_DIR=\nMOUNT_POINT=\nMOUNT_OPTIONS=\nEXPORT_OPTIONS=\n");
}

TEST(RecordFields, OfAnotherRecordOrNoneAreEmpty)
{
    auth_profile_info profile;
    profile.set_usSend("YES");
    for (const char * const stranger : {"USER=", "SEND", "send=", "", static_cast<const char *>(nullptr)})
        EXPECT_EQ(text_of(profile.value(stranger)), "");
    EXPECT_EQ(text_of(profile.value("SEND=")), "YES");
}

struct failure {
    const char * name;
    int file_type;
    const char * separator;
    const char * file;
    int line;
    const char * text;
    const char * keyword;
    const char * value;
};

void PrintTo(const failure & each, std::ostream * out)
{
    *out << each.name;
}

const char least_agent[] = "SERVER_NAME=s\nSERVER_REN_RGN=r\nGATEWAY_IP_ADDRESS=i\nIMAGES_SERVER_NAME=n\n"
                           "EXPORTED_DIR=/e\nMOUNT_POINT=/m\n";
const std::string unix_agent = std::string("#\n target=one\nOPERATING_SYSTEM=UVX 5\n") + least_agent;

const failure failures[] = {
    {"a section that ends at the next one", 3, "USER=", "USER=a\nAUTHORIZATION PROFILE=p\n user=b \nUSER=c\n",
     3, " user=b ", "AUTHORIZATION PROFILE=", ""},
    {"a section that ends with the file", 3, "USER=", "\nUSER=a\n", 2, "USER=a",
     "AUTHORIZATION PROFILE=", ""},
    {"a file without a separator line", 3, "USER=", "AUTHORIZATION PROFILE=p\n", 0, "", "USER=", ""},
    {"an agent without its server", 1, "TARGET=", "TARGET=1\nOPERATING_SYSTEM=WIN95\n", 1, "TARGET=1",
     "SERVER_NAME=", ""},
    {"an agent without a system", 1, "TARGET=", "TARGET=1\n", 1, "TARGET=1", "OPERATING_SYSTEM=", ""},
    {"an agent's system that can't be installed", 1, "TARGET=", unix_agent.c_str(), 2, " target=one",
     "OPERATING_SYSTEM=", "UVX 5"},
    {"an agent's unknown system", 1, "TARGET=", "TARGET=1\noperating_system = OS9 \n", 2,
     "operating_system = OS9 ", "OPERATING_SYSTEM=", "OS9"},
    {"a line that is refused", 3, "USER=", "USER=a\nGROUP=g\n", 2, "GROUP=g", "", ""},
};

class FailurePlace : public testing::TestWithParam<failure> {};

TEST_P(FailurePlace, NamesLineKeywordAndValue)
{
    const failure & expected = GetParam();
    write_file("in.txt", expected.file);
    file_input_parms input;
    ASSERT_NE(input.get_fips("in.txt", 1, expected.separator, expected.file_type), 0);
    EXPECT_EQ(input.error_line(), expected.line);
    EXPECT_EQ(text_of(input.error_text()), expected.text);
    EXPECT_STREQ(input.error_keyword(), expected.keyword);
    EXPECT_EQ(text_of(input.error_value()), expected.value);
}
INSTANTIATE_TEST_SUITE_P(InputFile, FailurePlace, testing::ValuesIn(failures));

TEST(InputFile, ForgetsTheFormerFailure)
{
    write_file("bad.txt", "USER=a\n");
    write_file("good.txt", "USER=a\nAUTHORIZATION PROFILE=p\n");
    file_input_parms input;
    ASSERT_EQ(input.get_fips("bad.txt", 1, "USER=", input.user_file), code::invalid_section);
    ASSERT_EQ(input.get_fips("good.txt", 1, "USER=", input.user_file), code::success);
    EXPECT_EQ(input.error_line(), 0);
    EXPECT_STREQ(input.error_keyword(), "");
}

TEST(InputFile, IsNamedByAnyText)
{
    write_file("in.txt", "USER=a\nAUTHORIZATION PROFILE=p\n");
    file_input_parms input;
    EXPECT_EQ(input.get_fips("in.txt", 1, "USER=", 3), 0);
    EXPECT_EQ(input.get_fips(pathname("in.txt"), 1, "USER=", 3), 0);
    EXPECT_EQ(input.get_fips(ustring("in.txt"), 1, "USER=", 3), 0);
    const file_input_parms & read = input;
    ASSERT_EQ(read.arSections().size(), 3U);
    EXPECT_EQ(text_of(static_cast<user_info &>(*read.arSections()[2]).usUserName()), "a");
    EXPECT_EQ(text_of(read.input_info(0).gateway_port_number()), "9494");
}

TEST(InputFile, IsClosedWithoutALine)
{
    write_file("in.txt", "USER=a\nx\n");
    file_input_parms input;
    transcript lines;
    ASSERT_EQ(input.get_fips("in.txt", 1, "USER=", 3), code::invalid_keyword);
    EXPECT_EQ(lines.take().find("kt_file::close"), std::string::npos);
    EXPECT_EQ(std::filesystem::remove("in.txt"), true); // on Windows an open file stays
}
} // namespace
