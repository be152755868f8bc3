#include "support.h"

namespace {
template <class... Texts>
std::string joined(const Texts &... texts)
{
    return (("," + text_of(texts)) + ...).substr(1);
}

std::string shown(const VXA_inst_info & agent)
{
    return joined(agent.op_system(), agent.server_name(), agent.gateway_port_number(), agent.agent_name(),
                  agent.agent_inst_path(), agent.mount_options());
}

std::string shown(codable * record)
{
    if (auto * const user = dynamic_cast<user_info *>(record))
        return joined(user->usUserName(), user->usProfileName());
    auto & profile = dynamic_cast<auth_profile_info &>(*record);
    return joined(profile.usProfileName(), profile.usManageAll(), profile.usPreparation(),
                  profile.usQueuesView());
}

/// The records, the slots that hold a value, and the place of the failure, as a tool sees them.
std::string shown(file_input_parms & input)
{
    std::string text = std::to_string(input.index()) + ":";
    for (int i = 0; i < 5; ++i)
        if (shown(input.input_info(i)) != shown(VXA_inst_info()))
            text += " " + std::to_string(i) + "<" + shown(input.input_info(i)) + ">";
    for (unsigned i = 0; i < input.arSections().size(); ++i)
        text += " <" + shown(input.arSections()[i]) + ">";
    if (input.error_line() || input.error_section() || input.error_text().length())
        text += " at " + std::to_string(input.error_line()) + "," + std::to_string(input.error_section()) +
                ":" + text_of(input.error_text());
    return text;
}

// clang-format off
/// What `get_fips` and the log say, in short, without the call lines and those of the file object and the records.
std::string brief(const std::string & transcript) {
    static const std::vector<std::pair<std::string, std::string>> words = {
        {"T[W] file_input_parms::get_fips New sections_separator <", "+"}, {"> found\n", ";"},
        {"T[I] file_input_parms::get_fips User and auth_profile = ", ""}, {"<-- \n", ";"},
        {"T[I] file_input_parms::get_fips profile_info = ", ""}, {"\nNO", " NO"}, {"\nYES", " YES"}, {"\n;", ";"},
        {"T[F] file_input_parms::get_fips Invalid input file\n", "quit;"},
        {"L MSG0135 [Il Input file in.txt reading started.\n", "started;"},
        {"L MSG0135 [I] Input file in.txt reading successfully completed.\n", "completed;"},
        {"L MSG0139 [I] Some error have been encountered reading and validating the file containing input "
         "information.\nT[F] file_input_parms::get_fips Error 102 from validate ", "refused "},
        {"L MSG0134 [Fl Keyword ", "invalid "}, {" is invalid in the currently read input file\n", ";"},
        {"L MSG0137 [F] The mandatory keywork ", "missing "}, {" was not supplied in the input file.\n", ";"},
        {"T[W] kt_file::close closing <in.txt> file\n", "closed"}};
    return replaced(without({"[C]", "kt_file(", "kt_file::open", "kt_file::seek", "kt_file::get", "_info::", "MSG0017"}, transcript), words);
}

const std::string least = "OPERATING_SYSTEM=WINDOWS_NT\nSERVER_NAME=s\nSERVER_REN_RGN=r\nGATEWAY_IP_ADDRESS=i\n"
                          "IMAGES_SERVER_NAME=n\nEXPORTED_DIR=/e\nMOUNT_POINT=/m\n";
const std::string whole = "<WINDOWS_NT,s,9494,$(TARGET),c:\\corvan\\vxa,>";
const std::string four = "TARGET=1\n" + least + "TARGET=2\n" + least + "TARGET=3\n" + least + "TARGET=4\n";
const std::string three_shown = " 1" + whole + " 2" + whole + " 3" + whole;
const std::string five_heads = "started;+TARGET=1;+TARGET=2;+TARGET=3;+TARGET=4;+TARGET=5;";

const struct {
    int file_type;
    std::string file;
    short code;
    std::string result, lines;
    const char * separator = file_type == 1 ? "TARGET=" : file_type == 2 ? "PROFILE NAME=" : "USER=";
} cases[] = {
    {1, "# agents\nTARGET=first\n" + least + "\ntarget=second\r\n" + least + " agent_name = $(HOSTNAME)\n"
     "GATEWAY_PORT_NUMBER= 950 \nAGENT_INST_PATH=d:\\agent\nMOUNT_OPTIONS=ro", 0,
     "3: 1" + whole + " 2<WINDOWS_NT,s,950,,d:\\agent,ro>", "started;+TARGET=first;+TARGET=second;completed;"},
    {1, "MOUNT_OPTIONS=early\nTARGET=1\n" + least + "TARGET =1\n", 0,
     "2: 0<,,9494,$(TARGET),c:\\corvan\\vxa,early> 1" + whole, "started;+TARGET=1;completed;"},
    {1, " \n#\n", 102, "1:", "started;refused VXA\n"},
    {1, four + least + "TARGET=5\n" + least, 18, "6:" + three_shown + " 4" + whole + " at 33,5:TARGET=5",
     five_heads + "T[F] file_input_parms::get_fips Too many operating systems\n"},
    {1, "TARGET=1\nMOUNT_OPTIONS=o\nTARGET=2\n", 102, "2: 1<,,9494,$(TARGET),c:\\corvan\\vxa,o> at 3,1:TARGET=2",
     "started;+TARGET=1;+TARGET=2;refused VXA\n"},
    {1, "TARGET=1\n  operating_system = win95 \n", 101, "2: at 2,1:  operating_system = win95 ",
     "started;+TARGET=1;L MSG0136 [El The value <win95> is invalid as operating system.\nquit;"},
    {2, "# profiles\nPROFILE NAME=operators\nMANAGE ALL TARGETS=YES\nPREPARATION=YES\nPREPARATION VIEW=YES\n"
     "PROFILE NAME=v\nQUEUES=YES\nQUEUES VIEW=maybe\n", 0, "1: <operators,YES,YES,> <v,NO,NO,maybe>",
     "started;+PROFILE NAME=operators;+PROFILE NAME=v;-->operators YES NO NO NO NO YES NO NO NO NO NO NO NO;"
     "-->v NO NO NO NO NO NO NO NO YES NO NO NO NO;completed;"},
    {3, "# users\nUSER=a\nAUTHORIZATION PROFILE=operators\n[head]\n  # note\nuser=User2 \nauthorization profile=x #\n", 0,
     "1: <a,operators> <User2,x #>", "started;+USER=a;+USER=User2;-->a<-- -->operators;"
     "-->User2<-- -->x #;completed;"},
    {3, "", 102, "1:", "started;missing USER=;refused \n"},
    {3, "USER=a\nAUTHORIZATION PROFILE=x\nUSER=b\n user=c\nAUTHORIZATION PROFILE=z\n", 102, "1: <a,x> at 4,2: user=c",
     "started;+USER=a;+USER=b;-->a<-- -->x;+USER=c;missing AUTHORIZATION PROFILE=;refused \n"},
    {3, "\t# z=1\n", 100, "1: at 1,0:\t# z=1", "started;invalid \t# Z=1;quit;"},
    {3, "group=a\nUSER=b\n", 100, "1: at 1,1:group=a", "started;+GROUP=a;invalid GROUP=a;quit;", "GROUP="},
    {3, "USER=a\nUSER=b\n", 102, "1: at 2,1:USER=b",
     "started;+USER=a;+USER=b;missing AUTHORIZATION PROFILE=;refused \n", ""},
    {3, "[USER=a\nUSER=a\nAUTHORIZATION PROFILE=x\n", 0, "1: <a,x>", "started;-->a<-- -->x;completed;", "[USER="},
    {4, "ANY\nUSER=a\nANY\nUSER=b\nANY\n", 102, "1: at 4,1:USER=b", "started;+USER=a;+USER=b;refused \n"},
    {0, "ANY\n", 102, "1:", "started;refused \n"}};
// clang-format on
TEST(InputFile, AWholeFileInRecordsAndTranscriptOut)
{
    for (const auto & each : cases) {
        write_file("in.txt", each.file);
        file_input_parms input;
        EXPECT_EQ(brief(told([&] { return input.get_fips("in.txt", 1, each.separator, each.file_type); })),
                  each.lines + "closed" + std::to_string(each.code))
            << each.file;
        EXPECT_EQ(shown(input), each.result) << each.file;
    }
}

TEST(InputFile, EveryLineStandsInItsPlace)
{
    file_input_parms input;
    write_file("in.txt", "target=1\nfoo=1\n");
    const auto read = [&] { return input.get_fips("in.txt", 1, "TARGET=", 1); };
    EXPECT_EQ(without({" kt_file", "VXA_inst_info"}, told(read)),
              R"(T[C] file_input_parms::get_fips >>>> ENTRY>>>>>
L MSG0135 [Il Input file in.txt reading started.
T[W] file_input_parms::get_fips New sections_separator <TARGET=1> found
T[C] file_input_parms::get_fips set input value. _index is 2
T[C] file_input_parms::get_fips set input value. _index is 2
L MSG0134 [Fl Keyword FOO is invalid in the currently read input file
T[F] file_input_parms::get_fips Invalid input file
T[C] file_input_parms::get_fips <><><><><> QUITTING
T[C] file_input_parms::get_fips return data = 100
T[C] file_input_parms::get_fips <<<<<<<<<< EXIT
100)");
}

TEST(InputFile, WithoutAFileTheObjectStaysAsItWas)
{
    std::filesystem::create_directory("folder");
    write_file("in.txt", "USER=a\nAUTHORIZATION PROFILE=x\n");
    write_file("bad.txt", "USER=a\nx\n");
    for (const char * name : {"in.txt", "missing.txt", "folder", ""}) {
        const bool asked_wrong = name == std::string("in.txt");
        file_input_parms input;
        EXPECT_EQ(shown(input), "0:");
        EXPECT_EQ(input.get_fips("bad.txt", 1, "USER=", 3), 100);
        EXPECT_EQ(shown(input), "1: at 2,1:x");
        EXPECT_EQ(input.get_fips("in.txt", 1, "USER=", 3), 0);
        EXPECT_EQ(
            brief(told([&] { return input.get_fips(name, asked_wrong ? 0 : 1, "USER=", 3); }, 1)),
            std::string("T[E] file_input_parms::get_fips ") +
                (asked_wrong ? "not implemented yet. Wrong call\n18" : "Error opening input file\n250"));
        EXPECT_EQ(shown(input), "1: <a,x>");
    }
}
} // namespace
