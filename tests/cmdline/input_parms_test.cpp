#include "support.h"

#include <sstream>
#include <tuple>

using namespace orvet;
using namespace orvet_test;
namespace {
std::string marks(const input_parms & ip) {
    std::string set;
    for (int i = 0; ip_names[i]; ++i)
        if (ip.ip(ip_names[i]))
            set += (set.empty() ? "" : " ") + std::string(ip_names[i]);
    return set;
}

/// Gives the words of a line, "''" for an empty one, to a record; then "code | marks | printed".
std::string outcome(input_parms & ip, const std::string & line, std::string * words_afterwards = nullptr) {
    std::vector<std::string> words;
    std::istringstream in(line);
    for (std::string word; in >> word;) words.push_back(word == "''" ? "" : word);
    std::vector<char *> argv;
    for (std::string & word : words) argv.push_back(word.data());
    short code = -1;
    const std::string printed = printed_by([&] { code = ip.get_ips(static_cast<int>(argv.size()), argv.data()); });
    if (words_afterwards)
        for (const std::string & word : words) *words_afterwards += word + " ";
    return std::to_string(code) + " | " + marks(ip) + " | " + printed;
}

class InputParms : public testing::Test {
protected:
    // The class-level values outlive every object, and so every test.
    ~InputParms() override {
        input_parms::ip_op_sys() = "UVX";
        input_parms::ip_base_cmd() = "";
        input_parms::ip_file_name() = "";
        input_parms::ip_h_global() = 1;
        input_parms::ip_t_global() = 0;
    }
};

TEST_F(InputParms, EveryValueReachesItsOwnField) {
    using ip = input_parms;
    const std::pair<const char *, const ustring & (input_parms::*)() const> texts[] = {
        {"-trg", &ip::ip_trg_name}, {"-cmd", &ip::ip_cmd},      {"-key", &ip::ip_key},          {"-usr", &ip::ip_usr_name},
        {"-prf", &ip::ip_prf_name}, {"-gp", &ip::ip_grp_name},  {"-tool", &ip::ip_tool_name},   {"-srv", &ip::ip_srv_name},
        {"-pro", &ip::ip_pro_name}, {"-gfn", &ip::ip_gfn_name}, {"-resgf", &ip::ip_resgf_name}, {"-ftok", &ip::ip_tokens_file}};
    const std::pair<const char *, const pathname & (input_parms::*)() const> paths[] = {
        {"-top", &ip::ip_top_root},  {"-obj", &ip::ip_obj_file_name}, {"-file", &ip::ip_input_file},
        {"-dir", &ip::ip_input_dir}, {"-odir", &ip::ip_out_dir},      {"-vxai", &ip::ip_vxa_images}};
    input_parms all;
    std::string line = "tool -rcmd Base -ini File";
    for (const auto & [option, get] : texts) line += std::string(" ") + option + " Value\xE9" + option;
    for (const auto & [option, get] : paths) line += std::string(" ") + option + " Value\xE9" + option;
    outcome(all, line);
    for (const auto & [option, get] : texts) EXPECT_EQ(text_of((all.*get)()), std::string("Value\xE9") + option);
    for (const auto & [option, get] : paths) EXPECT_EQ(text_of((all.*get)().text()), std::string("Value\xE9") + option);
    EXPECT_EQ(text_of(ip::ip_base_cmd()) + text_of(ip::ip_file_name().text()), "BaseFile");
}

TEST_F(InputParms, ReadsCommandLines) {
    const char * const cases[][2] = {
        {"", "0 |  | "},
        {"-log", "0 |  | "},
        {"tool -LOG 3 -trcfoo 2 -forced", "0 | -log -trc -force | "},
        {"tool -log 1 -log 3x -trc 2", "0 | -log -trc | "},
        {"tool -uvxp -gh -gt -force", "0 | -uvxp -force -gh -gt | "},
        {"tool -USRX", "15 |  | MSGI0005 [F] No value specified for option -usrx.\n"},
        {"tool -force -key", "15 | -force | MSGI0005 [F] No value specified for option -key.\n"},
        {"tool File", "1 |  | MSGI0004 [F] The option file is not supported.\n"},
        {"tool -tool x ''", "1 | -tool | MSGI0004 [F] The option  is not supported.\n"},
        {"tool -lo", "1 |  | MSGI0004 [F] The option -lo is not supported.\n"},
        {"tool -osys uvx -log 3", "16 | -osys | MSGI0006 [F] The oprating system specified (uvx) is invalid.\n"},
        {"tool -tobj PROCEDURE -log 3", "17 | -tobj | MSGI0006 [F] The object type specified (PROCEDURE) is invalid.\n"},
        {"tool -ret OK -log 3 -trc 2", "0 | -log -trc -ret | MSGI0010 [F] The value specified for the -ret option "
                                       "is incorrect. The err value is used as default.\n"},
        {"tool -type plan -log 3 -trc 2", "0 | -log -trc -type | MSGI0011 [F] The value specified for the "
                                          "-type option is incorrect. Allowed values "
                                          "are GEN, ZR7CID, WINCID, BRD2, PROCEDURE and PLAN.\n"}};
    for (const auto & [line, expected] : cases) {
        input_parms ip;
        EXPECT_EQ(outcome(ip, line), expected) << line;
        const int levels = ip.ip_log_level() * 10 + ip.ip_trace_level();
        EXPECT_EQ(levels, ip.ip("-trc") ? 32 : levels) << line;
    }
    EXPECT_EQ(text_of(input_parms::ip_op_sys()), ""); // wiped, not back at its default
    EXPECT_EQ(input_parms::ip_t_global(), 1);
    input_parms ip;
    std::string words;
    outcome(ip, "Tool -LOG -TRC -INI Mixed/Case -FORCE", &words);
    EXPECT_EQ(words, "Tool -log -TRC -ini Mixed/Case -force "); // option words are lowered where they stand
    EXPECT_EQ(ip.ip_log_level(), 0);                            // from the text "-TRC"
}

TEST_F(InputParms, KeywordsAreOneOfASet) {
    for (const std::string line :
         {"-osys UVX", "-osys WINDOWS_NT", "-tobj PROC", "-tobj PLAN", "-tobj SOFTW", "-ret ok", "-ret err", "-type GEN",
          "-type ZR7CID", "-type WINCID", "-type BRD2", "-type PROCEDURE", "-type PLAN", "-type UVXINSTP"}) {
        input_parms ip;
        EXPECT_EQ(outcome(ip, "tool " + line), "0 | " + line.substr(0, line.find(' ')) + " | ");
        const std::string values = text_of(ip.ip_obj_type()) + text_of(ip.ip_ret_val()) + text_of(ip.ip_type());
        EXPECT_EQ(line[1] == 'o' ? text_of(ip.ip_op_sys()) : values, line.substr(line.find(' ') + 1));
    }
    input_parms ip;
    printed_by([&] {
        ip.set_ip_obj_type("PROC ");
        ip.set_ip_ret_val("");
        ip.set_ip_type("TYPE");
    });
    EXPECT_EQ(text_of(ip.ip_obj_type()) + "|" + text_of(ip.ip_ret_val()) + "|" + text_of(ip.ip_type()), "|err|err");
}

TEST_F(InputParms, ValidatesAgainstTwoLists) {
    using list = std::vector<const char *>;
    const auto missing = [](const std::string & name) {
        return "MSGI0007 [F] The mandatory input parameter " + name + " was not supplied.\n";
    };
    const auto foreign = [](const std::string & name) {
        return "MSGI0008 [W] The option " + name + " specified at call time is not allowed.\n";
    };
    const std::tuple<list, list, list, int, std::string> cases[] = {
        {{}, {}, {}, 1, ""},
        {{"-log", "-ini"}, {"-ini"}, {"-log"}, 1, ""},
        {{"-trc", "-log"}, {}, {}, 1, foreign("-log") + foreign("-trc")},
        {{"-log"}, {"-ini", "-tool"}, {}, 0, missing("-ini")},
        {{"-ini"}, {"-ini", "-tool"}, {}, 0, missing("-tool")},
        {{"-ini"}, {"-nosuch", "-INI", "-ini"}, {}, 1, ""}};
    for (auto [given, must, may, result, printed] : cases) {
        input_parms ip;
        for (const char * const name : given) ip.set_ip(name);
        must.push_back(nullptr);
        may.push_back(nullptr);
        const char * const * const m = must.data(); // a lambda can't capture what is bound
        const char * const * const a = may.data();
        int valid = -1;
        EXPECT_EQ(printed_by([&] { valid = ip.validate(m, a); }), printed);
        EXPECT_EQ(valid, result);
    }
}

TEST_F(InputParms, TellsUsageAndAllThatIsMissing) {
    EXPECT_EQ(text_of(input_parms::usage(ip_profiles[16], "ktxplan")),
              "usage: ktxplan -tool TEXT -dir PATH -srv TEXT -top PATH [options]\noptions:\n    -log NUMBER\n"
              "    -trc NUMBER\n    -file PATH\n    -ret ok|err\n    -gfn TEXT\n"
              "    -type GEN|ZR7CID|WINCID|BRD2|PROCEDURE|PLAN|UVXINSTP\n    -osys UVX|WINDOWS_NT\n    -rcmd "
              "TEXT\n");
    const char * const mandatory[] = {"-force", "-nosuch", "-ini", "-tool", nullptr};
    EXPECT_EQ(text_of(input_parms::usage({mandatory, mandatory + 4}, "t")), "usage: t -force -nosuch -ini PATH -tool TEXT\n");
    input_parms ip;
    ip.set_ip_file_name("");
    const vector missing = ip.missing(mandatory);
    EXPECT_EQ(missing.size(), 2U);
    EXPECT_EQ(text_of(static_cast<const ustring &>(*missing[1])), "-tool");
}

const scenario set_up("set_up", [] {
    const auto state = [] {
        std::printf("%ld %ld %d %d\n", trace::max_size(orvet::log::wa()), trace::max_size(system_trace::wa()),
                    trace::level(orvet::log::wa()), trace::level(system_trace::wa()));
    };
    set_variable("ktxlsize", "7");
    set_variable("ktxtsize", "8");
    set_variable("ktxllev", "3");
    set_variable("ktxtlev", "-4");
    input_parms ip;
    setloglevel(ip);
    state();
    ip.set_ip_log_level("6");
    ip.set_ip_trace_level("6");
    set_variable("ostrel_trace_level", "4");
    setloglevel(ip);
    state();
});

TEST(SetUp, AppliesSizesAndLevels) { EXPECT_EQ(run_scenario("set_up"), "7 8 3 -4\n7 8 4 4\n"); }
} // namespace
