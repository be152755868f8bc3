#include "orvet/cmdline/input_parms.h"

#include <utility>

#include "orvet/foundation/base/ascii.h"
#include "orvet/foundation/base/memory.h"
#include "orvet/foundation/base/name_list.h"
#include "orvet/foundation/base/number.h"
#include "orvet/foundation/call_trace.h"
#include "orvet/foundation/environment.h"
#include "orvet/foundation/messages.h"

namespace orvet {

namespace {

constexpr int option_count = 30;

/// The position of an option. A name that is none does not compile.
consteval int index_of(const char * name)
{
    const int i = index_in(ip_names, name);
    if (i == option_count)
        throw "there is no such option";
    return i;
}

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
    field.assign(value);
    return !watch.failed();
}

bool store(pathname & field, const char * value)
{
    memory_watch watch;
    field = value;
    return !watch.failed();
}

/// Stores the value of an option, and marks it.
template <class Field>
void take(Field & field, const char * value, int & mark)
{
    if (store(field, value))
        mark = 1;
}

void take(ustring & field, const char * value, int & mark, const keyword_rule & rule)
{
    if (!store(field, value))
        return;
    mark = 1;
    for (const char * const * word = rule.words; *word; ++word)
        if (field == *word)
            return;
    const line_memory apart;
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
        *word = to_ascii_lower(*word);
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
    memory_watch watch;
    ustring text("usage: ");
    text.append(tool_name);
    for (const char * const * name = profile.mandatory; *name; ++name)
        text.append(" ").append(option_text(*name));
    if (*profile.allowed)
        text.append(" [options]\noptions:");
    for (const char * const * name = profile.allowed; *name; ++name)
        text.append("\n    ").append(option_text(*name));
    text.append("\n");
    if (watch.failed())
        text = ustring();
    return text;
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
    static lasting<pathname> kept;
    return kept.value;
}

ustring & input_parms::ip_base_cmd()
{
    static lasting<ustring> kept;
    return kept.value;
}

ustring & input_parms::ip_op_sys()
{
    static lasting<ustring> kept("UVX");
    return kept.value;
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
    take(ip_log_level_, value, ip_flags_[index_of("-log")]);
}

void input_parms::set_ip_trace_level(const char * value)
{
    take(ip_trace_level_, value, ip_flags_[index_of("-trc")]);
}

void input_parms::set_ip_op_sys(const char * value)
{
    take(ip_op_sys(), value, ip_flags_[index_of("-osys")], op_sys_rule);
}

void input_parms::set_ip_file_name(const char * value)
{
    take(ip_file_name(), value, ip_flags_[index_of("-ini")]);
}

void input_parms::set_ip_base_cmd(const char * value)
{
    take(ip_base_cmd(), value, ip_flags_[index_of("-rcmd")]);
}

void input_parms::set_ip_obj_type(const char * value)
{
    take(ip_obj_type_, value, ip_flags_[index_of("-tobj")], obj_type_rule);
}

void input_parms::set_ip_uvxinstp()
{
    ip_uvxinstp_ = 1;
    ip_flags_[index_of("-uvxp")] = 1;
}

void input_parms::set_ip_trg_name(const char * value)
{
    take(ip_trg_name_, value, ip_flags_[index_of("-trg")]);
}

void input_parms::set_ip_top_root(const char * value)
{
    take(ip_top_root_, value, ip_flags_[index_of("-top")]);
}

void input_parms::set_ip_force()
{
    ip_force_ = 1;
    ip_flags_[index_of("-force")] = 1;
}

void input_parms::set_ip_cmd(const char * value)
{
    take(ip_cmd_, value, ip_flags_[index_of("-cmd")]);
}

void input_parms::set_ip_key(const char * value)
{
    take(ip_key_, value, ip_flags_[index_of("-key")]);
}

void input_parms::set_ip_h_global()
{
    ip_h_global() = 1;
    ip_flags_[index_of("-gh")] = 1;
}

void input_parms::set_ip_t_global()
{
    ip_t_global() = 1;
    ip_flags_[index_of("-gt")] = 1;
}

void input_parms::set_ip_usr_name(const char * value)
{
    take(ip_usr_name_, value, ip_flags_[index_of("-usr")]);
}

void input_parms::set_ip_prf_name(const char * value)
{
    take(ip_prf_name_, value, ip_flags_[index_of("-prf")]);
}

void input_parms::set_ip_grp_name(const char * value)
{
    take(ip_grp_name_, value, ip_flags_[index_of("-gp")]);
}

void input_parms::set_ip_tool_name(const char * value)
{
    take(ip_tool_name_, value, ip_flags_[index_of("-tool")]);
}

void input_parms::set_ip_obj_file_name(const char * value)
{
    take(ip_obj_file_name_, value, ip_flags_[index_of("-obj")]);
}

void input_parms::set_ip_input_file(const char * value)
{
    take(ip_input_file_, value, ip_flags_[index_of("-file")]);
}

void input_parms::set_ip_srv_name(const char * value)
{
    take(ip_srv_name_, value, ip_flags_[index_of("-srv")]);
}

void input_parms::set_ip_input_dir(const char * value)
{
    take(ip_input_dir_, value, ip_flags_[index_of("-dir")]);
}

void input_parms::set_ip_pro_name(const char * value)
{
    take(ip_pro_name_, value, ip_flags_[index_of("-pro")]);
}

void input_parms::set_ip_gfn_name(const char * value)
{
    take(ip_gfn_name_, value, ip_flags_[index_of("-gfn")]);
}

void input_parms::set_ip_resgf_name(const char * value)
{
    take(ip_resgf_name_, value, ip_flags_[index_of("-resgf")]);
}

void input_parms::set_ip_ret_val(const char * value)
{
    take(ip_ret_val_, value, ip_flags_[index_of("-ret")], ret_val_rule);
}

void input_parms::set_ip_type(const char * value)
{
    take(ip_type_, value, ip_flags_[index_of("-type")], type_rule);
}

void input_parms::set_ip_tokens_file(const char * value)
{
    take(ip_tokens_file_, value, ip_flags_[index_of("-ftok")]);
}

void input_parms::set_ip_out_dir(const char * value)
{
    take(ip_out_dir_, value, ip_flags_[index_of("-odir")]);
}

void input_parms::set_ip_vxa_images(const char * value)
{
    take(ip_vxa_images_, value, ip_flags_[index_of("-vxai")]);
}

} // namespace orvet
