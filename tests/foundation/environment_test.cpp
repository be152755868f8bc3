#include "support.h"

namespace {
const std::string text = ", is not set or can not be acccessed\n", variable = "[F] The environment variable ",
                  no_ktxpath =
                      "MSGI0001 " + variable + "KTXPATH, containing the Ketrix installation path" + text,
                  no_ktxwork = "MSGI0009 " + variable + "KTXWORK, containing the Ketrix work path" + text,
                  no_brdcfg = "MSGI0002 [F] The Brodan product was not found running in the node where the "
                              "migration tool is running\n";

std::string wrong(const std::string & value)
{
    return "MSGI0003 [W] The environment variable ktxrmtf was set to the wrong value " + value +
           ". The default value no is used.\n";
}

TEST(Environment, GetFormsReadAtEachCallAndPlainFormsOnce)
{
    const std::tuple<const char *, const char *, std::string> cases[] = {{"YeS", "yes", ""},
                                                                         {"NO", "no", ""},
                                                                         {"Maybe", "no", wrong("Maybe")},
                                                                         {" yes", "no", wrong(" yes")},
                                                                         {nullptr, "no", ""}};
    for (const auto & [value, result, printed] : cases) {
        set_variable("ktxrmtf", value);
        EXPECT_EQ(printed_by([&] { EXPECT_STREQ(environment::get_remove_temp_files(), result); }), printed);
    }
    const auto numbers = [] {
        return std::to_string(environment::get_log_size()) + " " +
               std::to_string(environment::get_trace_size()) + " " +
               std::to_string(environment::get_log_level()) + " " +
               std::to_string(environment::get_trace_level()) + " " + environment::get_cf_prefix() + " " +
               std::to_string(environment::trace_level());
    };
    EXPECT_EQ(numbers(), "500000 500000 0 6 KTX 6");
    const std::pair<const char *, const char *> settings[] = {{"ktxlsize", "12k"},
                                                              {"ktxtsize", "many"},
                                                              {"ktxllev", "-1"},
                                                              {"ktxtlev", "99999999999"},
                                                              {"ktxcfp", "PRE"}};
    for (const auto & [name, value] : settings)
        set_variable(name, value);
    EXPECT_EQ(numbers(), "12 0 -1 2147483647 PRE 6");
    for (const auto & [name, value] : settings)
        set_variable(name, nullptr);
    EXPECT_EQ(text_of(environment::kt_bin_path().text()), test_directory().string() + native("/bin"));
}

const scenario unset_paths("unset_paths", [] {
    for (const char * name : {"KTXPATH", "KTXWORK", "brdcfg"})
        set_variable(name, nullptr);
    set_variable("ktxrmtf", "x");
    environment::get_kt_inst_path();
    for (int i = 0; i < 2; ++i)
        initializer();
    for (const pathname * path : {&environment::kt_inst_path(), &environment::brod_inst_path()})
        std::printf("%u", path->text().length());
});

const scenario at_the_end("at_the_end", [] {
    std::atexit([] {
        std::printf("%s%s", environment::kt_inst_path().mbcs_str(), input_parms::ip_base_cmd().mbcs_str());
    });
    environment::kt_inst_path();
    input_parms::ip_base_cmd() = " and a command, for whoever comes last";
});

TEST(Environment, UnsetPathsAreToldOnceByThePlainForms)
{
    EXPECT_EQ(run_scenario("unset_paths"),
              no_ktxpath + no_ktxpath + no_brdcfg + wrong("x") + no_ktxwork + "00");
    EXPECT_EQ(run_scenario("at_the_end"),
              test_directory().string() + " and a command, for whoever comes last");
}
} // namespace
