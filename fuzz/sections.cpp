// Lines taken apart, and sections looked for. The first line is a key, the second a number; all are the file.
#include <algorithm>

#include "fuzz.h"

namespace {

using orvet::ustring;
using namespace fuzz;

std::u16string upper_units(ustring text)
{
    text.to_upper();
    return {text.data(), text.length()};
}

void take_apart(const ustring & text, const ustring & key, int index)
{
    const std::string bytes = bytes_of(text);

    orvet::keyval rest(text);
    const bool has_key = upper_units(text).starts_with(upper_units(key));
    require((rest.getval(key) == 0) == has_key);
    require(bytes_of(rest) == (has_key ? stripped_front(bytes_of(ustring(text, key.length()))) : bytes));

    constexpr char count_key[] = "COUNT = ";
    const bool has_count = begins_with(bytes, count_key);
    int count = 4711;
    require(orvet::get_count(text, &count) == (has_count ? 0 : 259));
    require(count == (has_count ? number(bytes.substr(sizeof count_key - 1)) : 4711));

    const std::vector<std::string> tokens = split(bytes, ',');
    const auto at = static_cast<std::size_t>(std::max(index, 0));
    require(bytes_of(orvet::get_token(text, index)) == (at < tokens.size() ? tokens[at] : ""));

    require(bytes_of(orvet::build_server_rr(text)) == (bytes.empty() ? "" : bytes + "_" + bytes));
}

void look_for(const ustring & head, const std::vector<line> & lines)
{
    constexpr char separator[] = " = ";
    orvet::kt_file file{orvet::pathname("texts.tmp")};
    require(file.open("r") == 0);
    // The head is the first line itself: it is found once, and again where a later line is the same.
    std::size_t heads = 0;
    for (const line & each : lines)
        heads += each.text == bytes_of(head);
    for (std::size_t i = 0; i <= heads; ++i)
        require(file.find_section(head) == (i < heads ? 0 : -1));

    require(file.seek(0, SEEK_SET) == 0);
    int count = 4711;
    const short sought = file.seek_section(head, &count, 1);
    const bool split_up = lines.size() < 2 || lines[1].text.find(separator) != std::string::npos;
    require(sought == (lines.empty() ? 260 : split_up ? 0 : 258));

    require(file.seek(0, SEEK_SET) == 0);
    std::string key = "as it was";
    std::string value = key;
    ustring found_key(key.c_str());
    ustring found_value(found_key);
    for (std::size_t i = 0; i <= lines.size(); ++i) {
        const std::size_t at = i < lines.size() ? lines[i].text.find(separator) : 0;
        require(file.get_keyval(found_key, found_value) == (at == std::string::npos ? 258 : 0));
        if (i < lines.size() && at != std::string::npos) {
            key = lines[i].text.substr(0, at);
            value = lines[i].text.substr(at + 3);
        }
        require(bytes_of(found_key) == key && bytes_of(found_value) == value);
        if (sought == 0 && i == 1)
            require(count == number(i < lines.size() ? value : ""));
    }
    file.close();
}

const target sections("sections", [](std::string_view input) {
    const std::vector<ustring> texts = texts_of(input);
    const ustring key = texts.empty() ? ustring() : texts[0];
    const int index = texts.size() < 2 ? 0 : number(bytes_of(texts[1]));
    for (const ustring & text : texts)
        take_apart(text, key, index);
    look_for(key, lines_of(input));
});

} // namespace
