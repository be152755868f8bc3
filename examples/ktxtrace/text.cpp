#include "text.h"

#include <algorithm>
#include <cstdio>

#include "progress.h"

namespace {

/// The bytes of the character that the text begins with; 0 for bytes that are not text.
std::size_t character_length(std::string_view text)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    if (byte(0) < 0x80)
        return byte(0) >= ' ' && byte(0) != 0x7f ? 1 : 0;
    const std::size_t length = byte(0) >= 0xf0 ? 4 : byte(0) >= 0xe0 ? 3 : 2;
    if (byte(0) < 0xc2 || byte(0) > 0xf4 || text.size() < length)
        return 0;
    for (std::size_t i = 1; i < length; ++i)
        if ((byte(i) & 0xc0) != 0x80)
            return 0;
    // Longer forms than needed, halves of pairs, and numbers beyond the last character.
    const bool is_odd = (byte(0) == 0xe0 && byte(1) < 0xa0) || (byte(0) == 0xed && byte(1) > 0x9f) ||
                        (byte(0) == 0xf0 && byte(1) < 0x90) || (byte(0) == 0xf4 && byte(1) > 0x8f);
    return is_odd ? 0 : length;
}

} // namespace

std::string shown(std::string_view text, std::size_t most)
{
    std::string result;
    while (!text.empty() && result.size() < most) {
        const std::size_t length = text[0] == '\t' ? 1 : character_length(text);
        if (length == 0) {
            char code[5];
            std::snprintf(code, sizeof code, "\\x%02X",
                          static_cast<unsigned>(static_cast<unsigned char>(text[0])));
            result += code;
        }
        result += text.substr(0, length);
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return text.empty() ? result : result + "...";
}

std::string times(std::size_t count)
{
    return count > 1 ? "  (" + std::to_string(count) + " times)" : "";
}

std::string counted(std::size_t count, const char * word)
{
    return std::to_string(count) + " " + word + (count == 1 ? "" : "s");
}

std::string title(const run & each)
{
    return "run " + std::to_string(each.number) + ", " + shown(each.first_stamp);
}

void print(const std::string & text)
{
    progress::clear();
    std::fwrite(text.data(), 1, text.size(), stdout);
}
