#include "support.h"

namespace {

void print_settings(const char * when)
{
    std::printf("-- %s: at each call, once\n", when);
    std::printf("KTXPATH %s, ", environment::get_kt_inst_path());
    std::printf("%s\n", environment::kt_inst_path().mbcs_str());
    std::printf("brdcfg %s, ", environment::get_brod_inst_path());
    std::printf("%s\n", environment::brod_inst_path().mbcs_str());
    std::printf("KTXWORK %s, ", environment::get_kt_work_path());
    std::printf("%s\n", environment::kt_work_path().mbcs_str());
    std::printf("bin %s\n", environment::kt_bin_path().mbcs_str());
    std::printf("ktxcfp %s, %s\n", environment::get_cf_prefix(), environment::cf_prefix().mbcs_str());
    std::printf("ktxrmtf %s, ", environment::get_remove_temp_files());
    std::printf("%s\n", environment::remove_temp_files().mbcs_str());
    std::printf("ktxlsize %ld, %ld\n", environment::get_log_size(), environment::log_size());
    std::printf("ktxtsize %ld, %ld\n", environment::get_trace_size(), environment::trace_size());
    std::printf("ktxllev %d, %d\n", environment::get_log_level(), environment::log_level());
    std::printf("ktxtlev %d, %d\n", environment::get_trace_level(), environment::trace_level());
}

void set_all(std::vector<const char *> values)
{
    values.resize(9);
    for (const char * name : {"KTXPATH", "brdcfg", "KTXWORK", "ktxcfp", "ktxrmtf", "ktxlsize", "ktxtsize",
                              "ktxllev", "ktxtlev"}) {
        set_variable(name, values.front());
        values.erase(values.begin());
    }
}

const scenario settings("settings", [] {
    set_all({"path", "brodan", "work", "PRE", "YeS", "12k", "34", "-1", "99999999999"});
    print_settings("set");
    set_all({});
    print_settings("unset later");
});

const scenario no_settings("no_settings", [] {
    set_all({});
    print_settings("unset");
    set_all({"path", "brodan", "work", "PRE", "yes", "12", "34", "1", "none"});
    print_settings("set later");
});

TEST(Environment, PlainFormsKeepWhatTheyReadFirst)
{
    expect_golden("environment_set", run_scenario("settings"));
}

TEST(Environment, UnsetVariablesHaveDefaultsAndMessages)
{
    expect_golden("environment_unset", run_scenario("no_settings"));
}

const std::string wrong = "MSGI0003 [W] The environment variable ktxrmtf was set to the wrong value ";

const example<std::string, std::string> removal_wishes[] = {
    {"yes, in any case", "YeS", "yes"},
    {"no, in any case", "NO", "no"},
    {"another word", "Maybe", wrong + "Maybe. The default value no is used.\nno"},
    {"a blank before the word", " yes", wrong + " yes. The default value no is used.\nno"},
    {"more after the word", "yess", wrong + "yess. The default value no is used.\nno"},
    {"a part of the word", "ye", wrong + "ye. The default value no is used.\nno"},
};

TEST(Environment, RemovalIsYesOrNoAndReportsAnythingElse)
{
    expect_each(removal_wishes, [](const std::string & value) {
        set_variable("ktxrmtf", value.c_str());
        return printed_by([] { std::printf("%s", environment::get_remove_temp_files()); });
    });
}

const scenario last_settings("last_settings", [] {
    std::atexit([] {
        std::printf("%s, %s", environment::cf_prefix().mbcs_str(), input_parms::ip_base_cmd().mbcs_str());
    });
    environment::cf_prefix();
    input_parms::ip_base_cmd() = "a command";
});

TEST(Environment, SettingsOutliveTheEndOfMain)
{
    EXPECT_EQ(run_scenario("last_settings"), "KTX, a command");
}

} // namespace
