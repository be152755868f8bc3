#include "support.h"

using namespace orvet;
using namespace orvet_test;

namespace {

std::string shown(const VXA_inst_info & agent) {
    return text_of(agent.op_system()) + "," + text_of(agent.server_name()) + "," +
           text_of(agent.gateway_port_number()) + "," + text_of(agent.agent_name()) + "," +
           text_of(agent.agent_inst_path()) + "," + text_of(agent.mount_options());
}

std::string shown(codable * record) {
    if (auto * const user = dynamic_cast<user_info *>(record))
        return text_of(user->usUserName()) + "," + text_of(user->usProfileName());
    auto & profile = dynamic_cast<auth_profile_info &>(*record);
    return text_of(profile.usProfileName()) + "," + text_of(profile.usManageAll()) + "," +
           text_of(profile.usPreparation()) + "," + text_of(profile.usQueuesView());
}

/// The records and the place of the failure, as a tool sees them.
std::string shown(file_input_parms & input, int file_type) {
    std::string text = std::to_string(input.index()) + ":";
    for (int i = 0; i < 5 && file_type == 1; ++i) // slots that hold a value
        if (shown(input.input_info(i)) != shown(VXA_inst_info()))
            text += " " + std::to_string(i) + "<" + shown(input.input_info(i)) + ">";
    for (unsigned i = 0; i < input.arSections().size(); ++i) text += " <" + shown(input.arSections()[i]) + ">";
    if (input.error_line() || input.error_section() || input.error_text().length())
        text += " at " + std::to_string(input.error_line()) + ", section " + std::to_string(input.error_section()) +
                ": " + text_of(input.error_text());
    return text;
}

/// The lines of a transcript that `kept` says yes to.
template <class Kept>
std::string only(const std::string & lines, Kept kept) {
    std::string found;
    for (std::size_t at = 0, end; at < lines.size(); at = end) {
        end = lines.find('\n', at) + 1;
        const std::string line = lines.substr(at, end - at);
        const auto holds = [&](const char * part) { return line.find(part) != std::string::npos; };
        if (kept(holds))
            found += line;
    }
    return found;
}

/// What `get_fips` and the log say; the lines of the file object, of the records and the call lines left out.
std::string reader_lines(const std::string & lines) {
    return only(lines, [](auto holds) {
        return !holds("[C]") && !holds(" kt_file") && !holds("_info::") && !holds("MSG0017");
    });
}

const std::string started = "L MSG0135 [Il Input file in.txt reading started.\n";
const std::string completed = "L MSG0135 [I] Input file in.txt reading successfully completed.\n";
const std::string some_error = "L MSG0139 [I] Some error have been encountered reading and validating the file "
                               "containing input information.\n";
const std::string mine = "file_input_parms::get_fips ";
const std::string refused = some_error + "T[F] " + mine + "Error 102 from validate \n";
const std::string agent_refused = some_error + "T[F] " + mine + "Error 102 from validate VXA\n";
const std::string bad_file = "T[F] " + mine + "Invalid input file\n";
const std::string least = "OPERATING_SYSTEM=WINDOWS_NT\nSERVER_NAME=s\nSERVER_REN_RGN=r\nGATEWAY_IP_ADDRESS=i\n"
                          "IMAGES_SERVER_NAME=n\nEXPORTED_DIR=/e\nMOUNT_POINT=/m\n";
const std::string least_shown = "<WINDOWS_NT,s,9494,$(TARGET),c:\\corvan\\vxa,>";

std::string separator(const std::string & line) {
    return "T[W] " + mine + "New sections_separator <" + line + "> found\n";
}

std::string user(const std::string & name, const std::string & profile) {
    return "T[I] " + mine + "User and auth_profile = -->" + name + "<-- -->" + profile + "<-- \n";
}

std::string profile(const std::string & name, const std::string & all, const std::string & preparation,
                    const std::string & queues) {
    return "T[I] " + mine + "profile_info = -->" + name + "\n" + all + "\nNO\nNO\nNO\nNO\n" + preparation +
           "\nNO\nNO\n" + queues + "\nNO\nNO\nNO\nNO\n<-- \n";
}

std::string invalid(const std::string & keyword) {
    return "L MSG0134 [Fl Keyword " + keyword + " is invalid in the currently read input file\n";
}

std::string missing(const std::string & keyword) {
    return "L MSG0137 [F] The mandatory keywork " + keyword + " was not supplied in the input file.\n";
}

struct file_case {
    std::string file;
    int file_type;
    const char * separator;
    short code;
    std::string result;
    std::string lines;
};

// clang-format off

TEST(InputFile, AWholeFileInRecordsAndTranscriptOut)
{
    const std::string four = "TARGET=1\n" + least + "TARGET=2\n" + least + "TARGET=3\n" + least + "TARGET=4\n";
    const std::string heads = separator("TARGET=1") + separator("TARGET=2") + separator("TARGET=3") +
        separator("TARGET=4") + separator("TARGET=5");
    const std::string three_shown = " 1" + least_shown + " 2" + least_shown + " 3" + least_shown;
    const file_case cases[] = {
        {"# agents\nTARGET=first\n" + least + "\ntarget=second\r\n" + least + " agent_name = $(HOSTNAME)\n"
         "GATEWAY_PORT_NUMBER= 950 \nAGENT_INST_PATH=d:\\agent\nMOUNT_OPTIONS=ro", 1, "TARGET=", 0,
         "3: 1" + least_shown + " 2<WINDOWS_NT,s,950,,d:\\agent,ro>",
         started + separator("TARGET=first") + separator("TARGET=second") + completed},
        {least, 1, "TARGET=", 0, "1: 0" + least_shown, started + completed},
        {"MOUNT_OPTIONS=early\nTARGET=1\n" + least + "TARGET =1\n", 1, "TARGET=", 0,
         "2: 0<,,9494,$(TARGET),c:\\corvan\\vxa,early> 1" + least_shown,
         started + separator("TARGET=1") + completed},
        {" \n#\n", 1, "TARGET=", 102, "1:", started + agent_refused},
        {four + least + "TARGET=5\n" + least, 1, "TARGET=", 18,
         "6:" + three_shown + " 4" + least_shown + " at 33, section 5: TARGET=5",
         started + heads + "T[F] " + mine + "Too many operating systems\n"},
        {four + "OPERATING_SYSTEM=UVX\nTARGET=5\n", 1, "TARGET=", 102,
         "5:" + three_shown + " 4<UVX,,9494,$(TARGET),c:\\corvan\\vxa,> at 27, section 4: TARGET=5",
         started + heads + agent_refused},
        {"TARGET=1\n  operating_system = win95 \n", 1, "TARGET=", 101,
         "2: at 2, section 1:   operating_system = win95 ", started + separator("TARGET=1") +
         "L MSG0136 [El The value <win95> is invalid as operating system.\n" + bad_file},

        {"# profiles\nPROFILE NAME=operators\nMANAGE ALL TARGETS=YES\nPREPARATION=YES\nPREPARATION VIEW=YES\n"
         "PROFILE NAME=viewers\nQUEUES=YES\nQUEUES VIEW=maybe\n", 2, "PROFILE NAME=", 0,
         "1: <operators,YES,YES,> <viewers,NO,NO,maybe>",
         started + separator("PROFILE NAME=operators") + separator("PROFILE NAME=viewers") +
         profile("operators", "YES", "YES", "NO") + profile("viewers", "NO", "NO", "YES") + completed},
        {"", 2, "PROFILE NAME=", 0, "1: <,NO,NO,>", started + profile("", "NO", "NO", "NO") + completed},
        {"QUEUES VIEW=early\nPROFILE NAME=a\nPROFILE NAME=a\n", 2, "PROFILE NAME=", 0,
         "1: <a,NO,NO,early> <a,NO,NO,>", started + separator("PROFILE NAME=a") + separator("PROFILE NAME=a") +
         profile("a", "NO", "NO", "NO") + profile("a", "NO", "NO", "NO") + completed},

        {"# users\nUSER=user1\nAUTHORIZATION PROFILE=operators\n[head]\n  # note\nuser=User2 \n"
         "authorization profile=viewers # all\n", 3, "USER=", 0, "1: <user1,operators> <User2,viewers # all>",
         started + separator("USER=user1") + separator("USER=User2") + user("user1", "operators") +
         user("User2", "viewers # all") + completed},
        {"USER=caf\xE9\nAUTHORIZATION PROFILE=\xEF\xBB\xBF\xFF\n", 3, "USER=", 0, "1: <caf\xE9,\xEF\xBB\xBF\xFF>",
         started + separator("USER=caf\xE9") + user("caf\xE9", "\xEF\xBB\xBF\xFF") + completed},
        {"", 3, "USER=", 102, "1:", started + missing("USER=") + refused},
        {"USER=a\nAUTHORIZATION PROFILE=x\nUSER=b\n user=c\nAUTHORIZATION PROFILE=z\n", 3, "USER=", 102,
         "1: <a,x> at 4, section 2:  user=c", started + separator("USER=a") + separator("USER=b") +
         user("a", "x") + separator("USER=c") + missing("AUTHORIZATION PROFILE=") + refused},
        {"USER=a\n", 3, "USER=", 102, "1: at 0, section 1: ",
         started + separator("USER=a") + missing("AUTHORIZATION PROFILE=") + refused},
        {"\t# x=1\n", 3, "USER=", 100, "1: at 1, section 0: \t# x=1", started + invalid("\t# X=1") + bad_file},
        {"USER=a\nuser =b\n", 3, "USER=", 100, "1: at 2, section 1: user =b",
         started + separator("USER=a") + invalid("USER =b") + bad_file},
        {"group=a\nUSER=b\n", 3, "GROUP=", 100, "1: at 1, section 1: group=a",
         started + separator("GROUP=a") + invalid("GROUP=a") + bad_file},
        {"USER=a\nUSER=b\n", 3, "", 102, "1: at 2, section 1: USER=b", started + separator("USER=a") +
         separator("USER=b") + missing("AUTHORIZATION PROFILE=") + refused},
        {"[USER=a\nUSER=a\nAUTHORIZATION PROFILE=x\n", 3, "[USER=", 0, "1: <a,x>",
         started + user("a", "x") + completed},

        {"ANY\nUSER=a\nANY\nUSER=b\nANY\n", 4, "USER=", 102, "1: at 4, section 1: USER=b",
         started + separator("USER=a") + separator("USER=b") + refused},
        {"ANY\n", 0, "USER=", 102, "1:", started + refused},
    };
    for (const file_case & each : cases) {
        write_file("in.txt", each.file);
        file_input_parms input;
        transcript spoken;
        EXPECT_EQ(input.get_fips("in.txt", 1, each.separator, each.file_type), each.code) << each.file;
        EXPECT_EQ(reader_lines(spoken.take()), each.lines) << each.file;
        EXPECT_EQ(shown(input, each.file_type), each.result) << each.file;
    }
}

// clang-format on

const char * const whole_transcript = R"(T[C] file_input_parms::get_fips >>>> ENTRY>>>>>
T[C] kt_file(pathname) >>>> ENTRY>>>>>
T[C] kt_file::open >>>> ENTRY>>>>>
L MSG0135 [Il Input file in.txt reading started.
T[C] kt_file::get_line >>>> ENTRY>>>>>
T[W] file_input_parms::get_fips New sections_separator <TARGET=1> found
T[C] file_input_parms::get_fips set input value. _index is 2
T[C] VXA_inst_info::set >>>> ENTRY>>>>>
T[I] VXA_inst_info::set line after key.to_upper is <TARGET=1>
T[I] VXA_inst_info::set line after trip of blanks is <TARGET=1>
T[C] VXA_inst_info::set return data = 0
T[C] VXA_inst_info::set <<<<<<<<<< EXIT
T[C] kt_file::get_line >>>> ENTRY>>>>>
T[C] file_input_parms::get_fips set input value. _index is 2
T[C] VXA_inst_info::set >>>> ENTRY>>>>>
T[I] VXA_inst_info::set line after key.to_upper is <FOO=1>
T[I] VXA_inst_info::set line after trip of blanks is <FOO=1>
L MSG0134 [Fl Keyword FOO is invalid in the currently read input file
T[E] VXA_inst_info::set Invalid keyword <FOO> found
T[C] VXA_inst_info::set <><><><><> QUITTING
T[C] VXA_inst_info::set return data = 100
T[C] VXA_inst_info::set <<<<<<<<<< EXIT
T[F] file_input_parms::get_fips Invalid input file
T[C] kt_file::close >>>> ENTRY>>>>>
T[C] file_input_parms::get_fips <><><><><> QUITTING
T[C] file_input_parms::get_fips return data = 100
T[C] file_input_parms::get_fips <<<<<<<<<< EXIT
)";

TEST(InputFile, EveryLineStandsInItsPlace) {
    file_input_parms input;
    transcript spoken;
    write_file("in.txt", "target=1\nfoo=1\n");
    input.get_fips("in.txt", 1, "TARGET=", 1);
    const auto kept = [](auto holds) {
        return !holds(" kt_file") || (holds("ENTRY") && !holds("::seek") && !holds("::get_pos"));
    };
    EXPECT_EQ(only(spoken.take(), kept), whole_transcript);
}

TEST(InputFile, WithoutAFileTheObjectStaysAsItWas) {
    std::filesystem::create_directory("folder");
    write_file("in.txt", "USER=a\nAUTHORIZATION PROFILE=x\n");
    write_file("bad.txt", "USER=a\nx\n");
    const struct {
        const char * name;
        int sections;
        short code;
        const char * trace;
    } cases[] = {{"in.txt", 0, 18, "not implemented yet. Wrong call"},
                 {"missing.txt", 1, 250, "Error opening input file"},
                 {"folder", 1, 250, "Error opening input file"},
                 {"", 1, 250, "Error opening input file"}};
    for (const auto & each : cases) {
        file_input_parms input;
        EXPECT_EQ(input.get_fips("bad.txt", 1, "USER=", 3), 100);
        EXPECT_EQ(shown(input, 3), "1: at 2, section 1: x");
        EXPECT_EQ(input.get_fips("in.txt", 1, "USER=", 3), 0);
        transcript spoken(1);
        EXPECT_EQ(input.get_fips(each.name, each.sections, "USER=", 3), each.code) << each.name;
        EXPECT_EQ(reader_lines(spoken.take()), "T[E] " + mine + each.trace + "\n");
        EXPECT_EQ(shown(input, 3), "1: <a,x>");
        EXPECT_EQ(file_input_parms().index(), 0);
    }
}

TEST(InputFile, NothingIsTakenBackBetweenTwoCalls) {
    file_input_parms input;
    write_file("in.txt", "TARGET=1\n" + least + "MOUNT_OPTIONS=ro\n");
    EXPECT_EQ(input.get_fips("in.txt", 1, "TARGET=", 1), 0);
    write_file("in.txt", "TARGET=1\nSERVER_NAME=other\n");
    EXPECT_EQ(input.get_fips("in.txt", 1, "TARGET=", 1), 0);
    EXPECT_EQ(shown(input.input_info(1)), "WINDOWS_NT,other,9494,$(TARGET),c:\\corvan\\vxa,ro");
    write_file("in.txt", "USER=a\nAUTHORIZATION PROFILE=x\n");
    EXPECT_EQ(input.get_fips("in.txt", 1, nullptr, 3), 102);
    for (int i = 0; i < 2; ++i) EXPECT_EQ(input.get_fips("in.txt", 1, "USER=", 3), 0);
    EXPECT_EQ(shown(input, 3), "1: <a,x> <a,x>");
}

TEST(InputFile, SizeIsNoLimit) {
    const std::string name(1 << 20, 'n');
    std::string file =
        std::string("#") + name + "\nUSER=" + name + "\nAUTHORIZATION PROFILE=z" + std::string("\0ero", 4) + "\n";
    for (int i = 1; i < 100000; ++i)
        file += "USER=user" + std::to_string(i) + "\nAUTHORIZATION PROFILE=a profile of some length\n";
    write_file("in.txt", file);
    file_input_parms input;
    EXPECT_EQ(input.get_fips("in.txt", 1, "USER=", 3), 0);
    EXPECT_EQ(input.arSections().size(), 100000U);
    EXPECT_EQ(shown(input.arSections()[0]), name + "," + std::string("z\0ero", 5));
    EXPECT_EQ(shown(input.arSections()[99999]), "user99999,a profile of some length");
    write_file("in.txt", file + name);
    EXPECT_EQ(input.get_fips("in.txt", 1, "USER=", 3), 100);
    EXPECT_EQ(input.error_line(), 200002);
    EXPECT_EQ(input.error_section(), 100000);
    EXPECT_EQ(text_of(input.error_text()), name);
}

} // namespace
