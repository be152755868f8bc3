#include "support.h"

namespace {

template <auto Get>
std::string value_of(const input_parms & ip)
{
    const auto & value = (ip.*Get)();
    if constexpr (std::is_integral_v<std::decay_t<decltype(value)>>)
        return std::to_string(value);
    else
        return value.mbcs_str();
}

const struct {
    const char * option;
    std::string (*value)(const input_parms & ip);
} fields[] = {
    {"-log", value_of<&input_parms::ip_log_level>},
    {"-trc", value_of<&input_parms::ip_trace_level>},
    {"-osys", [](const input_parms &) { return text_of(input_parms::ip_op_sys()); }},
    {"-ini", [](const input_parms &) { return text_of(input_parms::ip_file_name().text()); }},
    {"-rcmd", [](const input_parms &) { return text_of(input_parms::ip_base_cmd()); }},
    {"-tobj", value_of<&input_parms::ip_obj_type>},
    {"-uvxp", value_of<&input_parms::ip_uvxinstp>},
    {"-trg", value_of<&input_parms::ip_trg_name>},
    {"-top", value_of<&input_parms::ip_top_root>},
    {"-force", value_of<&input_parms::ip_force>},
    {"-cmd", value_of<&input_parms::ip_cmd>},
    {"-key", value_of<&input_parms::ip_key>},
    {"-gh", [](const input_parms &) { return std::to_string(input_parms::ip_h_global()); }},
    {"-gt", [](const input_parms &) { return std::to_string(input_parms::ip_t_global()); }},
    {"-usr", value_of<&input_parms::ip_usr_name>},
    {"-prf", value_of<&input_parms::ip_prf_name>},
    {"-gp", value_of<&input_parms::ip_grp_name>},
    {"-tool", value_of<&input_parms::ip_tool_name>},
    {"-obj", value_of<&input_parms::ip_obj_file_name>},
    {"-file", value_of<&input_parms::ip_input_file>},
    {"-srv", value_of<&input_parms::ip_srv_name>},
    {"-dir", value_of<&input_parms::ip_input_dir>},
    {"-pro", value_of<&input_parms::ip_pro_name>},
    {"-gfn", value_of<&input_parms::ip_gfn_name>},
    {"-resgf", value_of<&input_parms::ip_resgf_name>},
    {"-ret", value_of<&input_parms::ip_ret_val>},
    {"-type", value_of<&input_parms::ip_type>},
    {"-ftok", value_of<&input_parms::ip_tokens_file>},
    {"-odir", value_of<&input_parms::ip_out_dir>},
    {"-vxai", value_of<&input_parms::ip_vxa_images>},
};

/// The class-level values outlive every object: each record begins with those of the process's start, but for
/// the flag that "-gh" sets.
struct fresh_parms : input_parms {
    fresh_parms()
    {
        ip_op_sys() = "UVX";
        ip_base_cmd() = "";
        ip_file_name() = "";
        ip_h_global() = 0;
        ip_t_global() = 0;
        for (const auto & field : fields)
            values.push_back(field.value(*this));
    }

    /// Each option that is marked or whose value has changed.
    std::string changes() const
    {
        std::string text;
        for (std::size_t i = 0; i < std::size(fields); ++i) {
            const std::string value = fields[i].value(*this);
            const bool is_marked = ip(fields[i].option) != 0;
            if (is_marked || value != values[i])
                text += fields[i].option + (" <" + value + (is_marked ? ">\n" : "> unmarked\n"));
        }
        return text;
    }

    std::vector<std::string> values;
};

/// The lists of a text, one a line, each closed by a null entry.
struct name_lists {
    explicit name_lists(const std::string & text) : words(words_of(replaced(text, {{"\n", " | "}})))
    {
        for (const std::string & word : words)
            names.push_back(word == "|" ? nullptr : word.c_str());
    }
    const char * const * operator[](int n) const
    {
        const char * const * list = names.data();
        for (; n > 0; ++list)
            n -= *list == nullptr;
        return list;
    }

    std::vector<std::string> words;
    std::vector<const char *> names;
};

std::string text_of(const char * const * list)
{
    std::string text;
    for (; *list; ++list)
        text += std::string(" ") + *list;
    return text;
}

TEST(InputParms, ReadsCommandLines)
{
    expect_golden_cases("command_lines", [](const std::string &, const std::string & line) {
        fresh_parms ip;
        std::vector<std::string> words = words_of(line);
        std::vector<char *> argv;
        for (std::string & word : words)
            argv.push_back(word.data());
        short code = -1;
        const auto parse = [&] { code = ip.get_ips(static_cast<int>(argv.size()), argv.data()); };
        const std::string printed = printed_by(parse);
        argv.push_back(nullptr);
        return "code " + std::to_string(code) + text_of(argv.data()) + "\n" + printed + ip.changes();
    });
}

TEST(InputParms, ValidatesMarksAgainstTwoLists)
{
    expect_golden_cases("command_validation", [](const std::string &, const std::string & text) {
        const name_lists lists(text);
        fresh_parms ip;
        for (const char * const * name = lists[0]; *name; ++name)
            ip.set_ip(*name);
        const vector missing = ip.missing(lists[1]);
        std::string result = "missing";
        for (unsigned i = 0; i < missing.size(); ++i)
            result += " " + orvet_test::text_of(static_cast<ustring &>(*missing[i]));
        const auto validate = [&] { std::printf("= %d\n", ip.validate(lists[1], lists[2])); };
        return result + "\n" + printed_by(validate) + ip.changes();
    });
}

TEST(InputParms, ValuesOfTheClassOutliveTheirObject)
{
    {
        fresh_parms given;
        given.set_ip_base_cmd("base");
        given.set_ip_t_global();
    }
    const input_parms other;
    EXPECT_STREQ(other.ip_base_cmd().mbcs_str(), "base");
    EXPECT_EQ(other.ip_t_global(), 1);
    EXPECT_EQ(other.ip("-rcmd"), 0);
}

TEST(InputParms, NullIsTheEmptyText)
{
    fresh_parms ip;
    ip.set_ip_trg_name("before");
    ip.set_ip_trg_name(nullptr);
    ip.set_ip_top_root(nullptr);
    ip.set_ip_log_level(nullptr);
    EXPECT_EQ(ip.changes(), "-log <0>\n-trg <>\n-top <>\n");
}

TEST(OptionProfiles, AreThoseOfTheTools)
{
    std::string text = "names" + text_of(ip_names) + "\n";
    for (const option_profile & profile : ip_profiles)
        text += "mandatory" + text_of(profile.mandatory) + ", allowed" + text_of(profile.allowed) + "\n";
    expect_golden("option_profiles", text);
}

TEST(Usage, ShowsEachOptionsValue)
{
    const char * const strange[] = {"-force", "-nosuch", nullptr};
    const ustring text = input_parms::usage({strange, ip_names}, "tool");
    const ustring bare = input_parms::usage({strange + 1, strange + 2}, "tool");
    expect_golden("usage", orvet_test::text_of(text) + orvet_test::text_of(bare));
}

const scenario set_up("set_up", [] {
    const auto print_state = [] {
        std::printf("log %ld %d, ", trace::max_size(orvet::log::wa()), trace::level(orvet::log::wa()));
        std::printf("trace %ld %d\n", trace::max_size(system_trace::wa()), trace::level(system_trace::wa()));
    };
    for (const char * name : {"KTXPATH", "brdcfg", "KTXWORK"})
        set_variable(name, nullptr);
    set_variable("ktxrmtf", "x");
    set_variable("ktxlsize", "7");
    set_variable("ktxtsize", "8");
    set_variable("ktxllev", "3");
    set_variable("ktxtlev", "-4");
    input_parms ip;
    std::printf("%s %d %d\n", ip.ip_op_sys().mbcs_str(), ip.ip_h_global(), ip.ip_t_global());
    std::printf("%d %d\n", ip.ip_log_level(), ip.ip_trace_level());
    setloglevel(ip);
    print_state();
    ip.set_ip_log_level("6");
    ip.set_ip_trace_level("6x");
    set_variable("ostrel_trace_level", "4");
    setloglevel(ip);
    print_state();
});

TEST(SetUp, AppliesSizesAndLevelsAndReportsSettingsOnce)
{
    expect_golden("set_up", run_scenario("set_up"));
}

} // namespace
