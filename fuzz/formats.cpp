// `usprintf` with any format, the first line, and up to four arguments, which the second chooses by its
// letters: s for the next line, d for the number in it.
#include <map>

#include "fuzz.h"

namespace {

using orvet::ustring;
using namespace fuzz;

struct values {
    const char * s[4];
    int d[4];
};

using call = int (*)(ustring & out, const char * format, const values & v);

// clang-format off
const std::map<std::string, call> calls = {
    {"",     [](ustring & out, const char * f, const values &)   { return orvet::usprintf(out, f); }},
    {"s",    [](ustring & out, const char * f, const values & v) { return orvet::usprintf(out, f, v.s[0]); }},
    {"d",    [](ustring & out, const char * f, const values & v) { return orvet::usprintf(out, f, v.d[0]); }},
    {"ss",   [](ustring & out, const char * f, const values & v) { return orvet::usprintf(out, f, v.s[0], v.s[1]); }},
    {"sd",   [](ustring & out, const char * f, const values & v) { return orvet::usprintf(out, f, v.s[0], v.d[1]); }},
    {"ds",   [](ustring & out, const char * f, const values & v) { return orvet::usprintf(out, f, v.d[0], v.s[1]); }},
    {"dd",   [](ustring & out, const char * f, const values & v) { return orvet::usprintf(out, f, v.d[0], v.d[1]); }},
    {"sdsd", [](ustring & out, const char * f, const values & v) { return orvet::usprintf(out, f, v.s[0], v.d[1], v.s[2], v.d[3]); }},
    {"ssss", [](ustring & out, const char * f, const values & v) { return orvet::usprintf(out, f, v.s[0], v.s[1], v.s[2], v.s[3]); }},
};
// clang-format on

std::string formatted(std::string text, const std::string & kinds, const std::vector<std::string> & lines)
{
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        const std::size_t at = text.find(std::string("%") + kinds[i]);
        if (at == std::string::npos)
            break;
        text.replace(at, 2, kinds[i] == 's' ? lines[i] : std::to_string(number(lines[i])));
    }
    return text;
}

const target formats("formats", [](std::string_view input) {
    taker from(input);
    const std::string format = from.line().c_str();
    const auto chosen = calls.find(from.line());
    if (chosen == calls.end())
        return;
    std::vector<std::string> lines;
    values v;
    for (std::size_t i = 0; i < 4; ++i)
        lines.emplace_back(from.line().c_str());
    for (std::size_t i = 0; i < 4; ++i) {
        v.s[i] = lines[i].c_str();
        v.d[i] = number(lines[i]);
    }
    ustring out("old");
    const int length = chosen->second(out, format.c_str(), v);
    require(length == static_cast<int>(out.length()));
    require(bytes_of(out) == formatted(format, chosen->first, lines));
});

} // namespace
