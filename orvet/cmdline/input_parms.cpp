#include "orvet/cmdline/input_parms.h"

#include <cstring>
#include <iterator>
#include <string_view>

#include "orvet/foundation/base/ascii.h"
#include "orvet/foundation/base/memory.h"
#include "orvet/foundation/base/name_list.h"
#include "orvet/foundation/base/number.h"
#include "orvet/foundation/call_trace.h"
#include "orvet/foundation/codes.h"
#include "orvet/foundation/environment.h"
#include "orvet/foundation/messages.h"

namespace orvet {

namespace detail {
int option_is_not_in_the_table(); // never defined: its name is the compiler's message
}

namespace {

constexpr int option_count = std::size(ip_names) - 1;

/// The position of an option, found at compile time.
consteval int index_of(const char * name)
{
    const int i = index_in(ip_names, name);
    return ip_names[i] ? i : detail::option_is_not_in_the_table();
}

// Storing a value, by the type of its field. False if allocation fails, with the field unchanged.

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

template <class Field>
short store_value(Field & field, const char * value)
{
    return store(field, value) ? code::success : code::value_missing;
}

short store_flag(int & field)
{
    field = 1;
    return code::success;
}

bool is_one_of(std::string_view words, std::string_view value)
{
    for (;;) {
        const std::size_t end = words.find('|');
        if (words.substr(0, end) == value)
            return true;
        if (end == words.npos)
            return false;
        words.remove_prefix(end + 1);
    }
}

consteval bool shows_value(const char * message)
{
    while (*message && *message != '%')
        ++message;
    return *message != 0;
}

/// Prints a message about a value, which the message need not show.
template <const auto & Message>
void print_message([[maybe_unused]] const char * value)
{
    if constexpr (shows_value(Message))
        console_message(Message, value);
    else
        console_message(Message);
}

struct word_rule {
    const char * words;
    void (*complain)(const char * value);
    const char * otherwise;
    short code;
};

short store_word(ustring & field, const char * value, const word_rule & rule)
{
    const bool accepted = is_one_of(rule.words, value ? value : "");
    if (!store(field, value))
        return code::value_missing;
    if (accepted)
        return code::success;
    const line_memory ignore_failures;
    rule.complain(field.mbcs_str());
    field = rule.otherwise;
    return rule.code;
}

template <class Type>
constexpr const char * kind_of_value = "TEXT";
template <>
constexpr const char * kind_of_value<int> = "NUMBER";
template <>
constexpr const char * kind_of_value<pathname> = "PATH";

} // namespace

/// What the table says of an option, for the code that walks it.
struct input_parms::option_row {
    const char * shown; ///< the value as a usage text shows it: the kind or the words; null for a flag
    short (*store)(input_parms & ip, const char * value);

    static const option_row rows[option_count];

    /// Stores a value by the rule of its option and marks the option: 0 or the code for `get_ips`.
    static short set(input_parms & ip, int index, const char * value)
    {
        const short rc = rows[index].store(ip, value);
        if (rc != code::value_missing)
            ip.ip_flags_[index] = 1;
        return rc;
    }
};

// clang-format off
#define FIELD_own(name) ip.name##_
#define FIELD_shared(name) name()
#define STORE(expression) [](input_parms & ip [[maybe_unused]], const char * value [[maybe_unused]]) { return expression; }
#define VALUE(option, name, scope, type) {kind_of_value<type>, STORE(store_value(FIELD_##scope(name), value))},
#define FLAG(option, name, scope) {nullptr, STORE(store_flag(FIELD_##scope(name)))},
#define WORD(option, name, scope, words, message, otherwise, code) \
    {words, STORE(store_word(FIELD_##scope(name), value, {words, print_message<messages::message>, otherwise, code}))},
constexpr input_parms::option_row input_parms::option_row::rows[] = {ORVET_OPTIONS(VALUE, FLAG, WORD)};
#undef VALUE
#undef FLAG
#undef WORD

// The setters by name.
#define VALUE(name, accessor, ...) \
    void input_parms::set_##accessor(const char * value) { option_row::set(*this, index_of(name), value); }
#define FLAG(name, accessor, ...) \
    void input_parms::set_##accessor() { option_row::set(*this, index_of(name), nullptr); }
ORVET_OPTIONS(VALUE, FLAG, VALUE)
// clang-format on

namespace {

/// The option whose name `word` begins with, or the position of the null entry.
int option_of(const char * word)
{
    int i = 0;
    while (ip_names[i] && !begins_with(word, ip_names[i]))
        ++i;
    return i;
}

const char * description_of(const option_description * list, const char * name)
{
    for (; list && list->name; ++list)
        if (std::strcmp(list->name, name) == 0)
            return list->text;
    return nullptr;
}

/// Adds a description in its column after `width` characters of its line, or on the next line.
void add_in_column(ustring & text, unsigned width, const char * description)
{
    constexpr unsigned column = 20;
    if (width + 2 > column) {
        text.append("\n    ");
        width = 0;
    }
    for (; width < column; ++width)
        text.append(" ");
    text.append(description);
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
        const int index = option_of(word);
        if (!ip_names[index]) {
            console_message(messages::MSGI0004, word);
            return code::unknown_option;
        }
        const char * value = nullptr;
        short rc = code::success;
        if (option_row::rows[index].shown && i == argc - 1) {
            rc = code::value_missing;
        } else {
            if (option_row::rows[index].shown)
                value = argv[++i];
            rc = option_row::set(*this, index, value);
        }
        if (rc == code::value_missing)
            console_message(messages::MSGI0005, word);
        if (rc != code::success)
            return rc;
    }
    return code::success;
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
    return usage(profile, tool_name, nullptr);
}

ustring input_parms::usage(const option_profile & profile, const char * tool_name,
                           const option_description * descriptions)
{
    memory_watch watch;
    ustring text("usage: ");
    const auto add_option = [&text](const char * name) { // "-log NUMBER", "-ret ok|err", "-force"
        const unsigned before = text.length();
        text.append(name);
        const int index = index_in(ip_names, name);
        if (ip_names[index] && option_row::rows[index].shown)
            text.append(" ").append(option_row::rows[index].shown);
        return text.length() - before;
    };
    const auto add_list = [&](const char * title, const char * const * names) {
        if (*names)
            text.append(title);
        for (; *names; ++names) {
            text.append("\n    ");
            const unsigned width = add_option(*names);
            if (const char * const what_for = description_of(descriptions, *names))
                add_in_column(text, width, what_for);
        }
    };

    text.append(tool_name);
    for (const char * const * name = profile.mandatory; *name; ++name) {
        text.append(" ");
        add_option(*name);
    }
    if (*profile.allowed)
        text.append(" [options]");
    if (descriptions)
        add_list("\nrequired:", profile.mandatory);
    add_list("\noptions:", profile.allowed);
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
    static lasting<pathname> name;
    return name.value;
}

ustring & input_parms::ip_base_cmd()
{
    static lasting<ustring> command;
    return command.value;
}

ustring & input_parms::ip_op_sys()
{
    static lasting<ustring> system("UVX");
    return system.value;
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

} // namespace orvet
