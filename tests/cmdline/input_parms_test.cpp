#include "support.h"

#include <array>
#include <cstring>

using namespace orvet;
using namespace orvet_test;

namespace {

/// A command line in writable strings, as a process gets it.
class command_line {
public:
    explicit command_line(const std::vector<std::string> & words) : words_(words)
    {
        for (std::string & word : words_)
            argv_.push_back(word.data());
        argv_.push_back(nullptr);
    }
    int argc() const { return static_cast<int>(words_.size()); }
    char ** argv() { return argv_.data(); }
    std::string word(std::size_t i) const { return words_[i].c_str(); }

private:
    std::vector<std::string> words_;
    std::vector<char *> argv_;
};

std::string marks(const input_parms & ip)
{
    std::string set;
    for (int i = 0; ip_names[i]; ++i)
        if (ip.ip(ip_names[i]))
            set += (set.empty() ? "" : " ") + std::string(ip_names[i]);
    return set;
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

TEST_F(InputParms, StartsWithItsDefaults)
{
    const input_parms ip;
    EXPECT_EQ(marks(ip), "");
    EXPECT_EQ(ip.ip_log_level(), 0);
    EXPECT_EQ(ip.ip_trace_level(), 6);
    EXPECT_EQ(ip.ip_force() + ip.ip_uvxinstp(), 0);
    EXPECT_EQ(text_of(ip.ip_ret_val()) + text_of(ip.ip_type()) + text_of(ip.ip_top_root().text()), "");
    EXPECT_EQ(text_of(input_parms::ip_op_sys()), "UVX");
    EXPECT_EQ(input_parms::ip_h_global(), 1);
    EXPECT_EQ(input_parms::ip_t_global(), 0);
    EXPECT_EQ(text_of(input_parms::ip_base_cmd()) + text_of(input_parms::ip_file_name().text()), "");
    EXPECT_EQ(ip.ip("-nosuch"), 0);
}

constexpr const char * text_options[] = {"-rcmd", "-trg", "-cmd",  "-key", "-usr",   "-prf",  "-gp",
                                         "-tool", "-srv", "-pro",  "-gfn", "-resgf", "-ftok", "-ini",
                                         "-top",  "-obj", "-file", "-dir", "-odir",  "-vxai"};

std::string value_of(const input_parms & ip, const std::string & option)
{
    const ustring & text = option == "-rcmd"    ? ip.ip_base_cmd()
                           : option == "-trg"   ? ip.ip_trg_name()
                           : option == "-cmd"   ? ip.ip_cmd()
                           : option == "-key"   ? ip.ip_key()
                           : option == "-usr"   ? ip.ip_usr_name()
                           : option == "-prf"   ? ip.ip_prf_name()
                           : option == "-gp"    ? ip.ip_grp_name()
                           : option == "-tool"  ? ip.ip_tool_name()
                           : option == "-srv"   ? ip.ip_srv_name()
                           : option == "-pro"   ? ip.ip_pro_name()
                           : option == "-gfn"   ? ip.ip_gfn_name()
                           : option == "-resgf" ? ip.ip_resgf_name()
                           : option == "-ftok"  ? ip.ip_tokens_file()
                           : option == "-ini"   ? ip.ip_file_name().text()
                           : option == "-top"   ? ip.ip_top_root().text()
                           : option == "-obj"   ? ip.ip_obj_file_name().text()
                           : option == "-file"  ? ip.ip_input_file().text()
                           : option == "-dir"   ? ip.ip_input_dir().text()
                           : option == "-odir"  ? ip.ip_out_dir().text()
                                                : ip.ip_vxa_images().text();
    return text_of(text);
}

TEST_F(InputParms, EveryTextOptionReachesItsOwnField)
{
    for (const std::string option : text_options) {
        input_parms ip;
        command_line line({"tool", option, "Value \xE9" + option});
        EXPECT_EQ(ip.get_ips(line.argc(), line.argv()), 0);
        EXPECT_EQ(marks(ip), option);
        for (const char * const other : text_options) {
            const bool kept =
                other == option || other == std::string("-rcmd") || other == std::string("-ini");
            EXPECT_TRUE(kept || value_of(ip, other).empty()) << option << " in " << other;
        }
        EXPECT_EQ(value_of(ip, option), "Value \xE9" + option);
    }
}

TEST_F(InputParms, ReadsCommandLines)
{
    const struct {
        std::vector<std::string> words;
        short code;
        const char * printed;
        const char * marks;
    } cases[] = {
        {{}, 0, "", ""},
        {{"-log"}, 0, "", ""},
        {{"tool", "-LOG", "3", "-trcfoo", "2", "-forced"}, 0, "", "-log -trc -force"},
        {{"tool", "-log", "1", "-log", "3", "-trc", "2"}, 0, "", "-log -trc"},
        {{"tool", "-log", "3x", "-trc", "2", "-uvxp", "-gh", "-gt"}, 0, "", "-log -trc -uvxp -gh -gt"},
        {{"tool", "-USRX"}, 15, "MSGI0005 [F] No value specified for option -usrx.\n", ""},
        {{"tool", "-force", "-key"}, 15, "MSGI0005 [F] No value specified for option -key.\n", "-force"},
        {{"tool", "File"}, 1, "MSGI0004 [F] The option file is not supported.\n", ""},
        {{"tool", "-tool", "x", ""}, 1, "MSGI0004 [F] The option  is not supported.\n", "-tool"},
        {{"tool", "-tobj", "PROC", "-lo"}, 1, "MSGI0004 [F] The option -lo is not supported.\n", "-tobj"},
        {{"tool", "-osys", "uvx", "-log", "3"},
         16,
         "MSGI0006 [F] The oprating system specified (uvx) is invalid.\n",
         "-osys"},
        {{"tool", "-tobj", "PROCEDURE", "-log", "3"},
         17,
         "MSGI0006 [F] The object type specified (PROCEDURE) is invalid.\n",
         "-tobj"},
        {{"tool", "-ret", "OK", "-log", "3", "-trc", "2"},
         0,
         "MSGI0010 [F] The value specified for the -ret option is incorrect. The err value is used as "
         "default.\n",
         "-log -trc -ret"},
        {{"tool", "-type", "plan", "-log", "3", "-trc", "2"},
         0,
         "MSGI0011 [F] The value specified for the -type option is incorrect. Allowed values are GEN, "
         "ZR7CID, "
         "WINCID, BRD2, PROCEDURE and PLAN.\n",
         "-log -trc -type"},
    };
    for (const auto & each : cases) {
        input_parms ip;
        command_line line(each.words);
        short code = -1;
        EXPECT_EQ(printed_by([&] { code = ip.get_ips(line.argc(), line.argv()); }), each.printed);
        EXPECT_EQ(code, each.code) << each.printed;
        EXPECT_EQ(marks(ip), each.marks);
        if (ip.ip("-trc")) {
            EXPECT_EQ(ip.ip_log_level(), 3);
            EXPECT_EQ(ip.ip_trace_level(), 2);
        }
    }
    EXPECT_EQ(text_of(input_parms::ip_op_sys()), ""); // wiped, not back at its default
    EXPECT_EQ(input_parms::ip_t_global(), 1);
}

TEST_F(InputParms, OptionWordsAreLoweredWhereTheyStand)
{
    input_parms ip;
    command_line line({"Tool", "-LOG", "-TRC", "-INI", "Mixed/Case", "-FORCE"});
    EXPECT_EQ(ip.get_ips(line.argc(), line.argv()), 0);
    EXPECT_EQ(line.word(0) + line.word(1) + line.word(2) + line.word(3) + line.word(4) + line.word(5),
              "Tool-log-TRC-iniMixed/Case-force");
    EXPECT_EQ(ip.ip_log_level(), 0); // from the text "-TRC"
    EXPECT_EQ(text_of(input_parms::ip_file_name().text()), "Mixed/Case");
}

TEST_F(InputParms, KeywordsAreOneOfASet)
{
    const struct {
        void (input_parms::*set)(const char *);
        std::vector<std::string> accepted;
        const char * otherwise;
        const ustring & (*get)(const input_parms &);
    } cases[] = {
        {&input_parms::set_ip_op_sys,
         {"UVX", "WINDOWS_NT"},
         "",
         [](const input_parms &) -> const ustring & { return input_parms::ip_op_sys(); }},
        {&input_parms::set_ip_obj_type,
         {"PROC", "PLAN", "SOFTW"},
         "",
         [](const input_parms & ip) -> const ustring & { return ip.ip_obj_type(); }},
        {&input_parms::set_ip_ret_val,
         {"ok", "err"},
         "err",
         [](const input_parms & ip) -> const ustring & { return ip.ip_ret_val(); }},
        {&input_parms::set_ip_type,
         {"GEN", "ZR7CID", "WINCID", "BRD2", "PROCEDURE", "PLAN", "UVXINSTP"},
         "err",
         [](const input_parms & ip) -> const ustring & { return ip.ip_type(); }},
    };
    for (const auto & each : cases) {
        input_parms ip;
        for (const std::string & word : each.accepted) {
            EXPECT_EQ(printed_by([&] { (ip.*each.set)(word.c_str()); }), "");
            EXPECT_EQ(text_of(each.get(ip)), word);
        }
        for (const std::string & word : {each.accepted[0] + "x", each.accepted[0].substr(1), std::string()})
            EXPECT_NE(printed_by([&] { (ip.*each.set)(word.c_str()); }), "") << word;
        EXPECT_EQ(text_of(each.get(ip)), each.otherwise);
    }
}

TEST_F(InputParms, ClassLevelValuesAreSharedAndMarksAreNot)
{
    input_parms first, second;
    first.set_ip_base_cmd("dummy dir");
    first.set_ip_log_level("abc");
    first.set_ip("-NOSUCH");
    first.set_ip("-log2");
    EXPECT_EQ(text_of(second.ip_base_cmd()), "dummy dir");
    EXPECT_EQ(marks(first), "-log -rcmd");
    EXPECT_EQ(marks(second), "");
    EXPECT_EQ(first.ip_log_level(), 0);
}

TEST_F(InputParms, ValidatesAgainstTwoLists)
{
    using list = std::vector<const char *>;
    const struct {
        std::vector<const char *> given;
        list mandatory, allowed;
        int result;
        const char * printed;
    } cases[] = {
        {{}, {}, {}, 1, ""},
        {{"-log", "-ini"}, {"-ini"}, {"-log"}, 1, ""},
        {{"-trc", "-log"},
         {},
         {},
         1,
         "MSGI0008 [W] The option -log specified at call time is not allowed.\n"
         "MSGI0008 [W] The option -trc specified at call time is not allowed.\n"},
        {{"-log"},
         {"-ini", "-tool"},
         {},
         0,
         "MSGI0007 [F] The mandatory input parameter -ini was not supplied.\n"},
        {{"-ini"},
         {"-ini", "-tool"},
         {},
         0,
         "MSGI0007 [F] The mandatory input parameter -tool was not supplied.\n"},
        {{"-ini"}, {"-nosuch", "-INI", "-ini"}, {}, 1, ""},
    };
    for (auto each : cases) {
        input_parms ip;
        for (const char * const name : each.given)
            ip.set_ip(name);
        each.mandatory.push_back(nullptr);
        each.allowed.push_back(nullptr);
        EXPECT_EQ(printed_by([&] {
                      EXPECT_EQ(ip.validate(each.mandatory.data(), each.allowed.data()), each.result);
                  }),
                  each.printed);
    }
}

/// A profile as "mandatory | allowed".
std::string text_of(const option_profile & profile)
{
    std::string text;
    for (const char * const * name = profile.mandatory; *name; ++name)
        text += *name;
    text += "|";
    for (const char * const * name = profile.allowed; *name; ++name)
        text += *name;
    return text;
}

TEST(OptionTable, HasTheProfilesOfTheTools)
{
    const char * const expected[] = {
        "-ini-tool|-log-trc-osys-rcmd-tobj-uvxp-obj",
        "-ini-tool|-log-trc-osys-rcmd-trg-gh-obj",
        "-ini-top-tool|-log-trc",
        "-ini-top-tool|-log-trc",
        "-ini-tool|-log-trc-gt-osys-rcmd-obj",
        "-ini-top-tool|-log-trc-force-gt",
        "-file-dir-gfn|-log-trc-vxai-osys-rcmd",
        "-ini-tool|-log-trc-osys-rcmd-usr-obj",
        "-ini-tool|-log-trc-osys-rcmd-prf-obj",
        "-ini-tool|-log-trc-osys-rcmd-gp-obj",
        "-ini-tool-obj|-log-trc-osys-rcmd",
        "-ini-top-tool|-log-trc",
        "-ini-top-tool|-log-trc",
        "-ini-top-tool|-log-trc",
        "-ini-top-tool|-log-trc",
        "-tool-dir-file-top|-log-trc-osys-rcmd",
        "-tool-dir-srv-top|-log-trc-file-ret-gfn-type-osys-rcmd",
        "-gfn-dir-ftok-odir-type|-log-trc-file",
        "-cmd-ini|-obj-tool-file-dir-log-trc-osys-rcmd-srv",
    };
    for (std::size_t i = 0; i < 19; ++i)
        EXPECT_EQ(text_of(ip_profiles[i]), expected[i]) << "profile " << i + 1;
}

TEST(SetUp, AppliesSizesAndLevels)
{
    transcript lines(0, 0); // restores the channels
    input_parms ip;
    ip.set_ip_log_level("1");
    ip.set_ip_trace_level("2");
    setloglevel(ip);
    EXPECT_EQ(trace::level(orvet::log::wa()), 1);
    EXPECT_EQ(trace::level(system_trace::wa()), 2);
    EXPECT_EQ(trace::max_size(orvet::log::wa()), 500000);
    log_message(messages::MSG0001);
    EXPECT_EQ(lines.take(), "");

    ip.set_ip_log_level("6");
    ip.set_ip_trace_level("6");
    set_variable("ostrel_trace_level", "4");
    setloglevel(ip);
    set_variable("ostrel_trace_level", nullptr);
    EXPECT_EQ(trace::level(orvet::log::wa()), 4);
    EXPECT_EQ(trace::level(system_trace::wa()), 4);
}

const scenario channel_sizes("channel_sizes", [] {
    set_variable("ktxlsize", "7");
    set_variable("ktxtsize", "8");
    set_variable("ktxllev", "3");
    set_variable("ktxtlev", "-4");
    input_parms ip;
    setloglevel(ip);
    std::printf("%ld %ld %d %d\n", trace::max_size(orvet::log::wa()), trace::max_size(system_trace::wa()),
                trace::level(orvet::log::wa()), trace::level(system_trace::wa()));
});

TEST(SetUp, TakesTheEnvironmentsDefaults)
{
    EXPECT_EQ(run_scenario("channel_sizes"), "7 8 3 -4\n");
}

} // namespace
