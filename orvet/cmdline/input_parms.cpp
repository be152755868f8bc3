#include "orvet/cmdline/input_parms.h"

#include <cctype>
#include <utility>

#include "orvet/foundation/base/memory.h"
#include "orvet/foundation/base/name_list.h"
#include "orvet/foundation/base/number.h"
#include "orvet/foundation/call_trace.h"
#include "orvet/foundation/environment.h"
#include "orvet/foundation/messages.h"

namespace orvet {

namespace {

constexpr int option_count = 30;

enum : short {
    taken = 0,
    unknown_option = 1,
    value_missing = 15,
    bad_op_sys = 16,
    bad_obj_type = 17,
};

/// What a keyword option accepts, and what becomes of any other value.
struct keyword_rule {
    const char * const * words;
    void (*complain)(const char * value);
    const char * otherwise;
};

constexpr const char * op_sys_words[] = {"UVX", "WINDOWS_NT", nullptr};
constexpr const char * obj_type_words[] = {"PROC", "PLAN", "SOFTW", nullptr};
constexpr const char * ret_val_words[] = {"ok", "err", nullptr};
constexpr const char * type_words[] = {"GEN",       "ZR7CID", "WINCID",   "BRD2",
                                       "PROCEDURE", "PLAN",   "UVXINSTP", nullptr};

constexpr keyword_rule op_sys_rule{
    op_sys_words, [](const char * value) { console_message(messages::MSGI0006_osys, value); }, ""};
constexpr keyword_rule obj_type_rule{
    obj_type_words, [](const char * value) { console_message(messages::MSGI0006_tobj, value); }, ""};
constexpr keyword_rule ret_val_rule{ret_val_words, [](const char *) { console_message(messages::MSGI0010); },
                                    "err"};
constexpr keyword_rule type_rule{type_words, [](const char *) { console_message(messages::MSGI0011); },
                                 "err"};

// A setter's kind is the type of its field. False when memory is short, with the field as it was.

bool store(int & field, const char * value)
{
    field = to_int(value ? value : "");
    return true;
}

bool store(ustring & field, const char * value)
{
    memory_watch watch;
    ustring text(value);
    if (!watch.failed())
        field = std::move(text);
    return !watch.failed();
}

bool store(pathname & field, const char * value)
{
    memory_watch watch;
    pathname path(value);
    if (!watch.failed())
        field = std::move(path);
    return !watch.failed();
}

/// Does to a value that has been stored what its rule says.
void hold(ustring & field, const keyword_rule & rule)
{
    for (const char * const * word = rule.words; *word; ++word)
        if (field == *word)
            return;
    const detail::line_memory apart;
    rule.complain(field.mbcs_str());
    field = rule.otherwise;
}

/// What is to be known of an option: what stands for its value in a usage text, or the words that it accepts;
/// one of the two setters; and the code when that leaves an empty field.
struct option_row {
    const char * value;
    void (input_parms::*take_value)(const char *);
    void (input_parms::*take_flag)() = nullptr;
    const char * const * words = nullptr;
    short (*check)(const input_parms &) = nullptr;
};

short check_op_sys(const input_parms &)
{
    return input_parms::ip_op_sys().length() == 0 ? bad_op_sys : taken;
}

short check_obj_type(const input_parms & ip)
{
    return ip.ip_obj_type().length() == 0 ? bad_obj_type : taken;
}

/// One row for each of `ip_names`, in the same order.
constexpr option_row rows[option_count] = {
    {"NUMBER", &input_parms::set_ip_log_level},
    {"NUMBER", &input_parms::set_ip_trace_level},
    {nullptr, &input_parms::set_ip_op_sys, nullptr, op_sys_words, check_op_sys},
    {"PATH", &input_parms::set_ip_file_name},
    {"TEXT", &input_parms::set_ip_base_cmd},
    {nullptr, &input_parms::set_ip_obj_type, nullptr, obj_type_words, check_obj_type},
    {nullptr, nullptr, &input_parms::set_ip_uvxinstp},
    {"TEXT", &input_parms::set_ip_trg_name},
    {"PATH", &input_parms::set_ip_top_root},
    {nullptr, nullptr, &input_parms::set_ip_force},
    {"TEXT", &input_parms::set_ip_cmd},
    {"TEXT", &input_parms::set_ip_key},
    {nullptr, nullptr, &input_parms::set_ip_h_global},
    {nullptr, nullptr, &input_parms::set_ip_t_global},
    {"TEXT", &input_parms::set_ip_usr_name},
    {"TEXT", &input_parms::set_ip_prf_name},
    {"TEXT", &input_parms::set_ip_grp_name},
    {"TEXT", &input_parms::set_ip_tool_name},
    {"PATH", &input_parms::set_ip_obj_file_name},
    {"PATH", &input_parms::set_ip_input_file},
    {"TEXT", &input_parms::set_ip_srv_name},
    {"PATH", &input_parms::set_ip_input_dir},
    {"TEXT", &input_parms::set_ip_pro_name},
    {"TEXT", &input_parms::set_ip_gfn_name},
    {"TEXT", &input_parms::set_ip_resgf_name},
    {nullptr, &input_parms::set_ip_ret_val, nullptr, ret_val_words},
    {nullptr, &input_parms::set_ip_type, nullptr, type_words},
    {"TEXT", &input_parms::set_ip_tokens_file},
    {"PATH", &input_parms::set_ip_out_dir},
    {"PATH", &input_parms::set_ip_vxa_images},
};

/// The option whose name `word` begins with, or that of the null entry. No name is the beginning of another.
int option_of(const char * word)
{
    int i = 0;
    while (ip_names[i] && !begins_with(word, ip_names[i]))
        ++i;
    return i;
}

/// An option as a usage text shows it: "-log NUMBER", "-ret ok|err", "-force".
ustring option_text(const char * name)
{
    ustring text(name);
    const int option = index_in(ip_names, name);
    if (!ip_names[option])
        return text;
    if (rows[option].value)
        text.append(" ").append(rows[option].value);
    const char * mark = " ";
    for (const char * const * word = rows[option].words; word && *word; ++word) {
        text.append(mark).append(*word);
        mark = "|";
    }
    return text;
}

void lower_in_place(char * word)
{
    for (; *word; ++word)
        *word = static_cast<char>(std::tolower(static_cast<unsigned char>(*word)));
}

} // namespace

input_parms::input_parms()
    : ip_log_level_(environment::log_level()), ip_trace_level_(environment::trace_level())
{
}

short input_parms::get_ips(int argc, char ** argv)
{
    for (int i = 1; i < argc; ++i) {
        char * const word = argv[i];
        lower_in_place(word);
        const int option = option_of(word);
        if (!ip_names[option]) {
            console_message(messages::MSGI0004, word);
            return unknown_option;
        }
        const option_row & row = rows[option];
        if (row.take_flag) {
            (this->*row.take_flag)();
            continue;
        }
        if (i == argc - 1) {
            console_message(messages::MSGI0005, word);
            return value_missing;
        }
        memory_watch watch;
        (this->*row.take_value)(argv[++i]);
        if (watch.failed()) {
            console_message(messages::MSGI0005, word);
            return value_missing;
        }
        const short code = row.check ? row.check(*this) : short{taken};
        if (code != taken)
            return code;
    }
    return taken;
}

int input_parms::validate(const char * const * mandatory, const char * const * allowed) const
{
    for (const char * const * name = mandatory; *name; ++name) {
        const int option = index_in(ip_names, *name);
        if (ip_names[option] && !ip_flags_[option]) {
            console_message(messages::MSGI0007, *name);
            return 0;
        }
    }
    for (int i = 0; i < option_count; ++i)
        if (ip_flags_[i] && !holds(mandatory, ip_names[i]) && !holds(allowed, ip_names[i]))
            console_message(messages::MSGI0008, ip_names[i]);
    return 1;
}

vector input_parms::missing(const char * const * mandatory) const
{
    vector names;
    for (const char * const * name = mandatory; *name; ++name) {
        const int option = index_in(ip_names, *name);
        if (ip_names[option] && !ip_flags_[option])
            names.push_back(make<ustring>(*name));
    }
    return names;
}

ustring input_parms::usage(const option_profile & profile, const char * tool_name)
{
    ustring text("usage: ");
    text.append(tool_name);
    for (const char * const * name = profile.mandatory; *name; ++name)
        text.append(" ").append(option_text(*name));
    if (*profile.allowed)
        text.append(" [options]\noptions:");
    for (const char * const * name = profile.allowed; *name; ++name)
        text.append("\n    ").append(option_text(*name));
    return text.append("\n");
}

void input_parms::set_ip(const char * name)
{
    const int option = index_in(ip_names, name);
    if (ip_names[option])
        ip_flags_[option] = 1;
}

int input_parms::ip(const char * name) const
{
    return ip_flags_[index_in(ip_names, name)];
}

pathname & input_parms::ip_file_name()
{
    static pathname value;
    return value;
}

ustring & input_parms::ip_base_cmd()
{
    static ustring value;
    return value;
}

ustring & input_parms::ip_op_sys()
{
    static ustring value("UVX");
    return value;
}

int & input_parms::ip_h_global()
{
    static int value = 1;
    return value;
}

int & input_parms::ip_t_global()
{
    static int value = 0;
    return value;
}

void input_parms::set_ip_log_level(const char * value)
{
    if (store(ip_log_level_, value))
        set_ip("-log");
}

void input_parms::set_ip_trace_level(const char * value)
{
    if (store(ip_trace_level_, value))
        set_ip("-trc");
}

void input_parms::set_ip_op_sys(const char * value)
{
    if (!store(ip_op_sys(), value))
        return;
    set_ip("-osys");
    hold(ip_op_sys(), op_sys_rule);
}

void input_parms::set_ip_file_name(const char * value)
{
    if (store(ip_file_name(), value))
        set_ip("-ini");
}

void input_parms::set_ip_base_cmd(const char * value)
{
    if (store(ip_base_cmd(), value))
        set_ip("-rcmd");
}

void input_parms::set_ip_obj_type(const char * value)
{
    if (!store(ip_obj_type_, value))
        return;
    set_ip("-tobj");
    hold(ip_obj_type_, obj_type_rule);
}

void input_parms::set_ip_uvxinstp()
{
    ip_uvxinstp_ = 1;
    set_ip("-uvxp");
}

void input_parms::set_ip_trg_name(const char * value)
{
    if (store(ip_trg_name_, value))
        set_ip("-trg");
}

void input_parms::set_ip_top_root(const char * value)
{
    if (store(ip_top_root_, value))
        set_ip("-top");
}

void input_parms::set_ip_force()
{
    ip_force_ = 1;
    set_ip("-force");
}

void input_parms::set_ip_cmd(const char * value)
{
    if (store(ip_cmd_, value))
        set_ip("-cmd");
}

void input_parms::set_ip_key(const char * value)
{
    if (store(ip_key_, value))
        set_ip("-key");
}

void input_parms::set_ip_h_global()
{
    ip_h_global() = 1;
    set_ip("-gh");
}

void input_parms::set_ip_t_global()
{
    ip_t_global() = 1;
    set_ip("-gt");
}

void input_parms::set_ip_usr_name(const char * value)
{
    if (store(ip_usr_name_, value))
        set_ip("-usr");
}

void input_parms::set_ip_prf_name(const char * value)
{
    if (store(ip_prf_name_, value))
        set_ip("-prf");
}

void input_parms::set_ip_grp_name(const char * value)
{
    if (store(ip_grp_name_, value))
        set_ip("-gp");
}

void input_parms::set_ip_tool_name(const char * value)
{
    if (store(ip_tool_name_, value))
        set_ip("-tool");
}

void input_parms::set_ip_obj_file_name(const char * value)
{
    if (store(ip_obj_file_name_, value))
        set_ip("-obj");
}

void input_parms::set_ip_input_file(const char * value)
{
    if (store(ip_input_file_, value))
        set_ip("-file");
}

void input_parms::set_ip_srv_name(const char * value)
{
    if (store(ip_srv_name_, value))
        set_ip("-srv");
}

void input_parms::set_ip_input_dir(const char * value)
{
    if (store(ip_input_dir_, value))
        set_ip("-dir");
}

void input_parms::set_ip_pro_name(const char * value)
{
    if (store(ip_pro_name_, value))
        set_ip("-pro");
}

void input_parms::set_ip_gfn_name(const char * value)
{
    if (store(ip_gfn_name_, value))
        set_ip("-gfn");
}

void input_parms::set_ip_resgf_name(const char * value)
{
    if (store(ip_resgf_name_, value))
        set_ip("-resgf");
}

void input_parms::set_ip_ret_val(const char * value)
{
    if (!store(ip_ret_val_, value))
        return;
    set_ip("-ret");
    hold(ip_ret_val_, ret_val_rule);
}

void input_parms::set_ip_type(const char * value)
{
    if (!store(ip_type_, value))
        return;
    set_ip("-type");
    hold(ip_type_, type_rule);
}

void input_parms::set_ip_tokens_file(const char * value)
{
    if (store(ip_tokens_file_, value))
        set_ip("-ftok");
}

void input_parms::set_ip_out_dir(const char * value)
{
    if (store(ip_out_dir_, value))
        set_ip("-odir");
}

void input_parms::set_ip_vxa_images(const char * value)
{
    if (store(ip_vxa_images_, value))
        set_ip("-vxai");
}

} // namespace orvet
