// A command line, a word a line, and what becomes of it by the table of the options.
#include <cctype>
#include <map>
#include <set>

#include "fuzz.h"

namespace {

using orvet::input_parms;
using orvet::ustring;
using namespace fuzz;

const std::set<std::string> flags = {"-uvxp", "-force", "-gh", "-gt"};

struct rule {
    std::set<std::string> words;
    std::string otherwise;
    short refused; // the code for a word that is none of them
};

const std::map<std::string, rule> rules = {
    {"-osys", {{"UVX", "WINDOWS_NT"}, "", 16}},
    {"-tobj", {{"PROC", "PLAN", "SOFTW"}, "", 17}},
    {"-ret", {{"ok", "err"}, "err", 0}},
    {"-type", {{"GEN", "ZR7CID", "WINCID", "BRD2", "PROCEDURE", "PLAN", "UVXINSTP"}, "err", 0}},
};

const std::map<std::string, const ustring & (input_parms::*)() const> texts = {
    {"-tobj", &input_parms::ip_obj_type},    {"-ret", &input_parms::ip_ret_val},
    {"-type", &input_parms::ip_type},        {"-trg", &input_parms::ip_trg_name},
    {"-cmd", &input_parms::ip_cmd},          {"-key", &input_parms::ip_key},
    {"-usr", &input_parms::ip_usr_name},     {"-prf", &input_parms::ip_prf_name},
    {"-gp", &input_parms::ip_grp_name},      {"-tool", &input_parms::ip_tool_name},
    {"-srv", &input_parms::ip_srv_name},     {"-pro", &input_parms::ip_pro_name},
    {"-gfn", &input_parms::ip_gfn_name},     {"-resgf", &input_parms::ip_resgf_name},
    {"-ftok", &input_parms::ip_tokens_file},
};

const std::map<std::string, const orvet::pathname & (input_parms::*)() const> paths = {
    {"-top", &input_parms::ip_top_root},    {"-obj", &input_parms::ip_obj_file_name},
    {"-file", &input_parms::ip_input_file}, {"-dir", &input_parms::ip_input_dir},
    {"-odir", &input_parms::ip_out_dir},    {"-vxai", &input_parms::ip_vxa_images},
};

struct reading {
    short code = 0;
    std::vector<std::string> words;           // option words in small letters
    std::map<std::string, std::string> given; // what stands behind an option in the end
};

reading read(const std::vector<std::string> & words)
{
    reading all{0, words, {}};
    for (std::size_t i = 0; i < words.size(); ++i) {
        std::string & word = all.words[i];
        for (char & letter : word)
            letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
        const char * const * name = orvet::ip_names;
        while (*name && !word.starts_with(*name))
            ++name;
        if (!*name)
            return all.code = 1, all;
        if (flags.contains(*name)) {
            all.given[*name] = "";
            continue;
        }
        if (++i == words.size())
            return all.code = 15, all;
        const auto found = rules.find(*name);
        const bool taken = found == rules.end() || found->second.words.contains(words[i]);
        all.given[*name] = taken ? words[i] : found->second.otherwise;
        if (!taken && found->second.refused != 0)
            return all.code = found->second.refused, all;
    }
    return all;
}

void examine(const input_parms & ip, const reading & expected)
{
    const auto value = [&](const std::string & name) {
        const auto found = expected.given.find(name);
        return found == expected.given.end() ? "" : found->second;
    };
    const auto given = [&](const std::string & name) { return expected.given.count(name) != 0; };
    for (const char * const * name = orvet::ip_names; *name; ++name)
        require(ip.ip(*name) == given(*name));
    for (const auto & [name, text] : texts)
        require(bytes_of((ip.*text)()) == value(name));
    for (const auto & [name, path] : paths)
        require(bytes_of((ip.*path)().text()) == value(name));
    require(!given("-log") || ip.ip_log_level() == number(value("-log")));
    require(!given("-trc") || ip.ip_trace_level() == number(value("-trc")));
    require(!given("-osys") || bytes_of(input_parms::ip_op_sys()) == value("-osys"));
    require(!given("-rcmd") || bytes_of(input_parms::ip_base_cmd()) == value("-rcmd"));
    require(!given("-ini") || bytes_of(input_parms::ip_file_name().text()) == value("-ini"));
    require(ip.ip_uvxinstp() == given("-uvxp") && ip.ip_force() == given("-force"));
    require((!given("-gh") || input_parms::ip_h_global()) && (!given("-gt") || input_parms::ip_t_global()));
    for (const orvet::option_profile & profile : orvet::ip_profiles) {
        unsigned absent = 0;
        for (const char * const * name = profile.mandatory; *name; ++name)
            absent += !given(*name);
        require(ip.missing(profile.mandatory).size() == absent);
        require(ip.validate(profile.mandatory, profile.allowed) == (absent == 0));
    }
}

const target cmdline("cmdline", [](std::string_view input) {
    std::vector<std::string> words;
    for (const std::string & word : split(input, '\n'))
        words.emplace_back(word.c_str());
    const reading expected = read(words);
    std::string program = "tool";
    std::vector<char *> argv = {program.data()};
    for (std::string & word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);
    input_parms ip;
    require(ip.get_ips(static_cast<int>(argv.size() - 1), argv.data()) == expected.code);
    require(words == expected.words);
    examine(ip, expected);
});

} // namespace
