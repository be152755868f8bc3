// Bytes become text, and text the same bytes: from memory, and from a file line by line. The first two bytes
// say where, and what stands in the file ahead of the others.
#include <cstdio>

#include "fuzz.h"

namespace {

using orvet::ustring;
using namespace fuzz;

void through_memory(const std::string & bytes, unsigned at)
{
    const ustring text(bytes.c_str());
    require(bytes_of(text) == bytes);
    require(text.length() <= bytes.size());
    require(bytes_of(ustring(text, 0, at).append(ustring(text, at))) == bytes);
    require(ustring(text.mbcs_str()) == text);
}

void through_file(std::string_view input)
{
    const std::vector<line> lines = lines_of(input);
    const std::vector<ustring> texts = texts_of(input);
    require(texts.size() == lines.size());
    orvet::kt_file file{orvet::pathname("texts.tmp")};
    require(file.open("r") == 0 && file.file_size() == static_cast<long>(input.size()));
    for (std::size_t i = 0; i < lines.size(); ++i) {
        ustring text;
        long position = 0;
        require(bytes_of(texts[i]) == lines[i].text);
        require(file.get_line(text) && text == texts[i]);
        require(file.get_pos(&position) == 0 && position == static_cast<long>(lines[i].end));
    }
    ustring last("as it was");
    require(!file.get_line(last) && last == ustring("as it was"));
    require(file.close() == 0);
}

const target text("text", [](std::string_view input) {
    taker from(input);
    const unsigned char choice = from.byte();
    const unsigned char at = from.byte();
    through_memory(std::string(from.rest()).c_str(), at);
    through_file(filler(choice, at).append(from.rest()));
});

} // namespace
