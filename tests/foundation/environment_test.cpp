#include "support.h"

using namespace orvet;
using namespace orvet_test;

namespace {

constexpr char no_ktxpath[] = "MSGI0001 [F] The environment variable KTXPATH, containing the Ketrix "
                              "installation path, is not set or can not "
                              "be acccessed\n";
constexpr char no_brdcfg[] = "MSGI0002 [F] The Brodan product was not found running in the node where the "
                             "migration tool is running\n";
constexpr char no_ktxwork[] = "MSGI0009 [F] The environment variable KTXWORK, containing the Ketrix work "
                              "path, is not set or can not be "
                              "acccessed\n";

TEST(Environment, GetFormsReadAtEachCall) {
    const struct {
        const char * value;
        const char * result;
        const char * printed;
    } cases[] = {
        {nullptr, "no", ""},
        {"YeS", "yes", ""},
        {"NO", "no", ""},
        {"Maybe", "no",
         "MSGI0003 [W] The environment variable ktxrmtf was set to the wrong value Maybe. The default value "
         "no is "
         "used.\n"},
        {" yes", "no",
         "MSGI0003 [W] The environment variable ktxrmtf was set to the wrong value  yes. The default value "
         "no is "
         "used.\n"},
    };
    for (const auto & each : cases) {
        set_variable("ktxrmtf", each.value);
        EXPECT_EQ(printed_by([&] { EXPECT_STREQ(environment::get_remove_temp_files(), each.result); }),
                  each.printed);
    }
    set_variable("ktxrmtf", nullptr);

    set_variable("ktxlsize", "12k");
    set_variable("ktxtsize", "many");
    set_variable("ktxllev", "-1");
    set_variable("ktxtlev", "99999999999999999999");
    set_variable("ktxcfp", "PRE");
    EXPECT_EQ(environment::get_log_size(), 12);
    EXPECT_EQ(environment::get_trace_size(), 0);
    EXPECT_EQ(environment::get_log_level(), -1);
    EXPECT_EQ(environment::get_trace_level(), 2147483647);
    EXPECT_STREQ(environment::get_cf_prefix(), "PRE");
    for (const char * name : {"ktxlsize", "ktxtsize", "ktxllev", "ktxtlev", "ktxcfp"})
        set_variable(name, nullptr);
    EXPECT_EQ(environment::get_log_size(), 500000);
    EXPECT_EQ(environment::get_trace_size(), 500000);
    EXPECT_EQ(environment::get_log_level(), 0);
    EXPECT_EQ(environment::get_trace_level(), 6);
    EXPECT_STREQ(environment::get_cf_prefix(), "KTX");
}

TEST(Environment, PlainFormsReadOnce) {
    EXPECT_EQ(text_of(environment::kt_bin_path().text()), native(test_directory().string() + "/bin"));
    EXPECT_EQ(environment::trace_level(), 6);
    set_variable("ktxtlev", "2");
    EXPECT_EQ(environment::trace_level(), 6);
    EXPECT_EQ(environment::get_trace_level(), 2);
    set_variable("ktxtlev", nullptr);
}

void clear_paths() {
    for (const char * name : {"KTXPATH", "KTXWORK", "brdcfg"}) set_variable(name, nullptr);
}

const scenario unset_paths("unset_paths", [] {
    clear_paths();
    environment::get_kt_inst_path();
    environment::get_kt_inst_path();
    for (int i = 0; i < 2; ++i)
        if (environment::kt_inst_path().text().length() != 0 ||
            environment::brod_inst_path().text().length() != 0)
            std::printf("not empty\n");
});

const scenario set_up_twice("set_up_twice", [] {
    clear_paths();
    set_variable("ktxrmtf", "x");
    initializer();
    initializer();
});

TEST(Environment, UnsetPathsAreToldOnceByThePlainForms) {
    EXPECT_EQ(run_scenario("unset_paths"), std::string(no_ktxpath) + no_ktxpath + no_ktxpath + no_brdcfg);
    EXPECT_EQ(run_scenario("set_up_twice"), std::string(no_ktxpath) + no_brdcfg +
                                                "MSGI0003 [W] The environment variable ktxrmtf was set to "
                                                "the wrong value x. The default value no "
                                                "is used.\n" +
                                                no_ktxwork);
}

} // namespace
