// A command line, a word a line.
#include "fuzz.h"
using ip = orvet::input_parms;

// clang-format off
constexpr std::pair<const char *, const ustring & (ip::*)() const> texts[] = {
    {"-trg", &ip::ip_trg_name}, {"-cmd", &ip::ip_cmd}, {"-key", &ip::ip_key}, {"-usr", &ip::ip_usr_name},
    {"-prf", &ip::ip_prf_name}, {"-gp", &ip::ip_grp_name}, {"-tool", &ip::ip_tool_name}, {"-srv", &ip::ip_srv_name},
    {"-pro", &ip::ip_pro_name}, {"-gfn", &ip::ip_gfn_name}, {"-resgf", &ip::ip_resgf_name},
    {"-ftok", &ip::ip_tokens_file},
};
// clang-format on

/// The code, and all options as they are then.
static std::string read(ip & parms, std::vector<std::string> & words)
{
    std::vector<char *> argv = {nullptr}; // the program's name is not read
    for (std::string & word : words)
        argv.push_back(word.data());
    value all(parms.get_ips(static_cast<int>(argv.size()), argv.data()));
    for (const char * const * name = orvet::ip_names; *name; ++name)
        all += parms.ip(*name) ? *name : "";
    for (const auto & [option, text] : texts)
        all += value((parms.*text)()) + ",";
    return all + value(parms.ip_top_root().text()) + value(parms.ip_log_level()) +
           value(parms.ip_obj_type()) + value(parms.ip_type());
}

void cmdline(std::string_view input)
{
    std::vector<std::string> words;
    for (const std::string & line : lines_of(input))
        words.emplace_back(line.c_str());
    const std::vector<std::string> given = words;
    ip parms, again;
    const std::string options = read(parms, words);
    show("code and options", options);
    expect_same("options in small letters mean the same", options, read(again, words));
    for (std::size_t i = 0; i < words.size(); ++i) {
        expect_same("only the case changes", text_of(given[i]).to_lower(), text_of(words[i]).to_lower());
        const auto & [option, text] = texts[i % std::size(texts)];
        std::vector<std::string> pair = {option, given[i]};
        read(again, pair);
        expect_same("a text is kept byte for byte", given[i], (again.*text)());
    }
    for (const auto & [mandatory, allowed] : orvet::ip_profiles)
        expect_same("validate finds what is missing", parms.missing(mandatory).size() == 0,
                    parms.validate(mandatory, allowed));
    show("usage", ip::usage(orvet::ip_profiles[words.size() % 19], "tool"));
}
