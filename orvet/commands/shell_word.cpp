#include "orvet/commands/shell_word.h"

#include <string_view>
#include <utility>

#include "orvet/foundation/base/memory.h"
#include "orvet/foundation/platform/processes.h"

namespace orvet {

namespace {

/// How a shell writes a word that is not plain.
struct quoting {
    std::u16string_view plain;   // beside ASCII letters and digits
    std::u16string_view refused; // has no form inside quotes
    const char * quote;
    char16_t escaped;    // inside the quotes
    const char * escape; // its form there
    bool doubles_last_backslashes;
};

// sh: nothing is special between single quotes. cmd.exe: the command reads a backslash before the closing
// quote as an escape of it.
constexpr quoting quotings[] = {
    {u"@-_+./:,", {u"\0", 1}, "'", u'\'', "'\\''", false},
    {u"@-_+./:\\", {u"\0\"%\r\n", 5}, "\"", u'\0', "", true},
};

bool contains(std::u16string_view units, char16_t unit)
{
    return units.find(unit) != units.npos;
}

bool is_plain(std::u16string_view text, const quoting & rules)
{
    for (const char16_t unit : text) {
        const bool is_letter = (unit | 0x20) >= u'a' && (unit | 0x20) <= u'z';
        const bool is_digit = unit >= u'0' && unit <= u'9';
        if (!is_letter && !is_digit && !contains(rules.plain, unit))
            return false;
    }
    return !text.empty();
}

ustring quote(const ustring & text, const quoting & rules)
{
    ustring word(rules.quote);
    unsigned from = 0;
    for (unsigned at; (at = text.find(rules.escaped, from)) != ustring::npos; from = at + 1)
        word.append(ustring(text, from, at - from)).append(rules.escape);
    word.append(ustring(text, from));
    unsigned end = text.length();
    while (rules.doubles_last_backslashes && end != 0 && text.data()[--end] == u'\\')
        word.append("\\");
    return word.append(rules.quote);
}

} // namespace

command_shell system_shell()
{
    return platform::shell_is_cmd_exe ? command_shell::cmd_exe : command_shell::sh;
}

bool quote_word(const ustring & text, ustring & word, command_shell shell)
{
    const quoting & rules = quotings[static_cast<int>(shell)];
    const std::u16string_view units(text.data(), text.length());
    if (units.find_first_of(rules.refused) != units.npos)
        return false;
    memory_watch watch;
    ustring quoted = is_plain(units, rules) ? text : quote(text, rules);
    if (watch.failed())
        return false;
    word = std::move(quoted);
    return true;
}

} // namespace orvet
