#include "records.h"

namespace {

/// What reading has left in an object.
std::string state_of(file_input_parms & input)
{
    std::ostringstream text;
    text << "index " << input.index() << ", line " << input.error_line() << " <"
         << text_of(input.error_text()) << "> of section " << input.error_section() << "\n";
    for (int i = 0; i < 5; ++i)
        if (const std::string agent = differences(input.input_info(i)); agent != "marked\n")
            text << "-- agent " << i << "\n" << agent;
    for (unsigned i = 0; i < input.arSections().size(); ++i) {
        if (auto * const user = dynamic_cast<user_info *>(input.arSections()[i]))
            text << "-- user\n" << differences(*user);
        if (auto * const profile = dynamic_cast<auth_profile_info *>(input.arSections()[i]))
            text << "-- profile\n" << differences(*profile);
    }
    return text.str();
}

/// The lines that are not of the file itself.
std::string own_lines(transcript & lines)
{
    return lines_without("] kt_file", lines.take());
}

/// A case is named "TYPE LEVEL SEPARATOR, NAME": the kind of file and the trace's level.
TEST(FileInputParms, ReadsFiles)
{
    expect_golden_cases("input_files", [](const std::string & name, const std::string & text) {
        write_file("in.txt", text);
        const std::string separator = name.substr(4, name.find(',') - 4);
        file_input_parms input;
        transcript lines(name[2] - '0');
        lines.step("get_fips", [&] { return input.get_fips("in.txt", 1, separator.c_str(), name[0] - '0'); });
        return own_lines(lines) + state_of(input);
    });
}

TEST(FileInputParms, KeepsItsRecordsWithoutAFileAndForgetsThePlace)
{
    write_file("users.txt", "USER=a\nAUTHORIZATION PROFILE=x\nUSER=b\nAUTHORIZATION PROFILE=y\nfoo\n");
    file_input_parms input;
    EXPECT_EQ(state_of(input), "index 0, line 0 <> of section 0\n");
    transcript lines(1);
    const auto read = [&](const std::string & name, const char * file, int sections) {
        lines.step(name, [&] { return input.get_fips(file, sections, "USER=", 3); });
        lines.note(state_of(input));
    };
    read("a bad line", "users.txt", 1);
    read("no sections", "users.txt", 0);
    read("a bad line again, after the first record", "users.txt", 1);
    read("no such file", "missing.txt", 1);
    expect_golden("input_file_again", own_lines(lines));
}

TEST(FileInputParms, AcceptsTheTextOfItsPlaceAsSeparator)
{
    write_file("agents.txt", "USER=\n");
    write_file("users.txt", "USER=a\nAUTHORIZATION PROFILE=x\nUSER=b\nAUTHORIZATION PROFILE=x\n");
    file_input_parms input;
    EXPECT_EQ(input.get_fips("agents.txt", 1, "TARGET=", 1), 100);
    EXPECT_EQ(input.get_fips("users.txt", 1, input.error_text().mbcs_str(), 3), 0);
    EXPECT_EQ(input.arSections().size(), 2U);
}

} // namespace
