#include "support.h"

#include <sstream>

namespace {
std::string names(const char * const * list)
{
    std::string all;
    for (; *list; ++list)
        all += std::string(" ") + *list;
    return all;
}

std::string marks(const input_parms & ip)
{
    std::vector<const char *> set;
    std::copy_if(ip_names, ip_names + 30, std::back_inserter(set),
                 [&](auto name) { return ip.ip(name) != 0; });
    set.push_back(nullptr);
    return names(set.data());
}

/// Gives the words of a line, "''" for an empty one, to a record; then "code | marks | printed".
std::string outcome(input_parms & ip, const std::string & line)
{
    std::vector<std::string> words;
    std::istringstream in(line);
    for (std::string word; in >> word;)
        words.push_back(word == "''" ? "" : word);
    std::vector<char *> argv;
    for (std::string & word : words)
        argv.push_back(word.data());
    short code = -1;
    const std::string printed =
        printed_by([&] { code = ip.get_ips(static_cast<int>(argv.size()), argv.data()); });
    return std::to_string(code) + " |" + marks(ip) + " | " + printed;
}

class InputParms : public testing::Test {
protected:
    // The class-level values outlive every object, and so every test.
    ~InputParms() override
    {
        input_parms::ip_op_sys() = "UVX";
        input_parms::ip_base_cmd() = "";
        input_parms::ip_file_name() = "";
        input_parms::ip_h_global() = 1;
        input_parms::ip_t_global() = 0;
    }
};

// Which value reaches which field stands beside a model, with the other inputs that are generated.
TEST_F(InputParms, ValuesOfTheClassAreSeenByEveryObject)
{
    using ip = input_parms;
    input_parms other;
    {
        input_parms given;
        outcome(given, "tool -rcmd Base -ini File");
    }
    EXPECT_EQ(text_of(other.ip_base_cmd()) + text_of(other.ip_file_name().text()) + marks(other), "BaseFile");
    ip::ip_h_global() = 0;
    for (const auto & [option, expected] :
         {std::pair("-gt", 100), {"-force", 110}, {"-gh", 1110}, {"-uvxp", 1111}}) {
        outcome(other, std::string("tool ") + option);
        EXPECT_EQ(ip::ip_h_global() * 1000 + ip::ip_t_global() * 100 + other.ip_force() * 10 +
                      other.ip_uvxinstp(),
                  expected);
    }
}

TEST_F(InputParms, ReadsCommandLines)
{
    const char * const cases[][2] = {
        {"", "0 | | "},
        {"-log", "0 | | "},
        {"tool -LOG 3 -trcfoo 2 -forced", "0 | -log -trc -force | "},
        {"tool -log 1 -log 3x -trc 2", "0 | -log -trc | "},
        {"tool -uvxp -gh -gt -force", "0 | -uvxp -force -gh -gt | "},
        {"tool -USRX", "15 | | MSGI0005 [F] No value specified for option -usrx.\n"},
        {"tool -force -key", "15 | -force | MSGI0005 [F] No value specified for option -key.\n"},
        {"tool File", "1 | | MSGI0004 [F] The option file is not supported.\n"},
        {"tool -tool x ''", "1 | -tool | MSGI0004 [F] The option  is not supported.\n"},
        {"tool -lo", "1 | | MSGI0004 [F] The option -lo is not supported.\n"},
        {"tool -osys uvx -log 3",
         "16 | -osys | MSGI0006 [F] The oprating system specified (uvx) is invalid.\n"},
        {"tool -tobj PROCEDURE -log 3",
         "17 | -tobj | MSGI0006 [F] The object type specified (PROCEDURE) is invalid.\n"},
        {"tool -ret OK -log 3 -trc 2",
         "0 | -log -trc -ret | MSGI0010 [F] The value specified for the -ret option "
         "is incorrect. The err value is used as default.\n"},
        {"tool -type plan -log 3 -trc 2",
         "0 | -log -trc -type | MSGI0011 [F] The value specified for the -type option is "
         "incorrect. Allowed values are GEN, ZR7CID, WINCID, BRD2, PROCEDURE and PLAN.\n"}};
    for (const auto & [line, expected] : cases) {
        input_parms ip;
        EXPECT_EQ(outcome(ip, line), expected) << line;
        const int levels = ip.ip_log_level() * 10 + ip.ip_trace_level();
        EXPECT_EQ(levels, ip.ip("-trc") ? 32 : levels) << line;
    }
    EXPECT_EQ(text_of(input_parms::ip_op_sys()), ""); // wiped, not back at its default
    input_parms ip;
    char words[][8] = {"Tool", "-LOG", "-TRC", "-INI", "Mix/Ed"},
         *argv[] = {words[0], words[1], words[2], words[3], words[4]};
    EXPECT_EQ(sum({ip.get_ips(5, argv), ip.ip_log_level()}), 0); // from the text "-TRC"
    EXPECT_EQ(std::string(argv[0]) + argv[1] + argv[2] + argv[3] + argv[4],
              "Tool-log-TRC-iniMix/Ed"); // lowered where they stand
}

// The words that are taken stand beside a model, with the other inputs that are generated.
TEST_F(InputParms, KeywordsAreOneOfASet)
{
    input_parms ip;
    printed_by([&] {
        ip.set_ip_obj_type("PROC "), ip.set_ip_ret_val(""), ip.set_ip_type("TYPE"),
            ip.set_ip_log_level(nullptr);
    });
    EXPECT_EQ(text_of(ip.ip_obj_type()) + "|" + text_of(ip.ip_ret_val()) + "|" + text_of(ip.ip_type()),
              "|err|err");
}

TEST_F(InputParms, ValidatesAgainstTwoLists)
{
    const std::string missing = "MSGI0007 [F] The mandatory input parameter ",
                      foreign = "MSGI0008 [W] The option ",
                      not_allowed = " specified at call time is not allowed.\n";
    using list = std::vector<const char *>;
    const std::tuple<list, list, list, std::string> cases[] = {
        {{"-nosuch", "-logs"}, {nullptr}, {nullptr}, ""},
        {{"-log", "-ini"}, {"-ini", nullptr}, {"-log", nullptr}, ""},
        {{"-trc", "-log"},
         {nullptr},
         {nullptr},
         foreign + "-log" + not_allowed + foreign + "-trc" + not_allowed},
        {{"-log"}, {"-ini", "-tool", nullptr}, {nullptr}, missing + "-ini was not supplied.\n"},
        {{"-ini"}, {"-ini", "-tool", nullptr}, {nullptr}, missing + "-tool was not supplied.\n"},
        {{"-ini"}, {"-nosuch", "-INI", "-ini", nullptr}, {nullptr}, ""}};
    for (const auto & each : cases) {
        input_parms ip;
        for (const char * const name : std::get<0>(each))
            ip.set_ip(name);
        int valid = -1;
        const auto validate = [&] {
            valid = ip.validate(std::get<1>(each).data(), std::get<2>(each).data());
        };
        EXPECT_EQ(printed_by(validate), std::get<3>(each));
        EXPECT_EQ(valid, std::get<3>(each).find(missing) != 0);
    }
}

TEST_F(InputParms, TellsUsageAndAllThatIsMissing)
{
    const char * const mandatory[] = {"-force", "-nosuch", "-ini", "-tool", nullptr};
    EXPECT_EQ(
        text_of(input_parms::usage({ip_names, mandatory + 1}, "t")),
        "usage: t -log NUMBER -trc NUMBER -osys UVX|WINDOWS_NT -ini PATH -rcmd TEXT -tobj PROC|PLAN|SOFTW "
        "-uvxp -trg TEXT "
        "-top PATH -force -cmd TEXT -key TEXT -gh -gt -usr TEXT -prf TEXT -gp TEXT -tool TEXT -obj PATH "
        "-file PATH "
        "-srv TEXT -dir PATH -pro TEXT -gfn TEXT -resgf TEXT -ret ok|err "
        "-type GEN|ZR7CID|WINCID|BRD2|PROCEDURE|PLAN|UVXINSTP -ftok TEXT -odir PATH -vxai PATH [options]\n"
        "options:\n    -nosuch\n    -ini PATH\n    -tool TEXT\n");
    EXPECT_EQ(text_of(input_parms::usage({mandatory, mandatory + 4}, "t")),
              "usage: t -force -nosuch -ini PATH -tool TEXT\n");
    input_parms ip;
    ip.set_ip_file_name("");
    const vector missing = ip.missing(mandatory);
    EXPECT_TRUE(missing.size() == 2 && static_cast<const ustring &>(*missing[1]) == "-tool");
}

// clang-format off
TEST_F(InputParms, ProfilesAreThoseOfTheTools) {
    const std::string tool = " -ini -tool |", top = " -ini -top -tool |", levels = " -log -trc", cmd = levels + " -osys -rcmd";
    const std::string profiles[] = {
        tool + cmd + " -tobj -uvxp -obj", tool + cmd + " -trg -gh -obj", top + levels, top + levels,
        tool + levels + " -gt -osys -rcmd -obj", top + levels + " -force -gt",
        " -file -dir -gfn |" + levels + " -vxai -osys -rcmd", tool + cmd + " -usr -obj", tool + cmd + " -prf -obj",
        tool + cmd + " -gp -obj", " -ini -tool -obj |" + cmd, top + levels, top + levels, top + levels, top + levels,
        " -tool -dir -file -top |" + cmd,
        " -tool -dir -srv -top |" + levels + " -file -ret -gfn -type -osys -rcmd",
        " -gfn -dir -ftok -odir -type |" + levels + " -file",
        " -cmd -ini | -obj -tool -file -dir" + cmd + " -srv"};
    for (int i = 0; i < 19; ++i)
        EXPECT_EQ(names(ip_profiles[i].mandatory) + " |" + names(ip_profiles[i].allowed), profiles[i]) << i + 1;
}
// clang-format on

const scenario set_up("set_up", [] {
    const auto state = [] {
        std::printf("%ld %ld %d %d\n", trace::max_size(orvet::log::wa()), trace::max_size(system_trace::wa()),
                    trace::level(orvet::log::wa()), trace::level(system_trace::wa()));
    };
    const std::tuple<const char *, const char *> settings[] = {
        {"KTXWORK", nullptr}, {"ktxlsize", "7"}, {"ktxtsize", "8"}, {"ktxllev", "3"}, {"ktxtlev", "-4"}};
    for (const auto & [name, value] : settings)
        set_variable(name, value);
    input_parms ip;
    setloglevel(ip);
    state();
    ip.set_ip_log_level("6");
    ip.set_ip_trace_level("6");
    set_variable("ostrel_trace_level", "4");
    setloglevel(ip);
    state();
    std::printf("%s %d %d\n", ip.ip_op_sys().mbcs_str(), ip.ip_h_global(), ip.ip_t_global());
});

TEST(SetUp, AppliesSizesAndLevels)
{
    const std::string said = run_scenario("set_up");
    EXPECT_EQ(said.find("MSGI0009 [F]"), 0U);
    EXPECT_EQ(said.substr(said.find('\n')), "\n7 8 3 -4\n7 8 4 4\nUVX 1 0\n");
}
} // namespace
