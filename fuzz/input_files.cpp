// Whole input files. The first byte chooses the kind and the separator, the rest is the file.
#include <algorithm>

#include "fuzz.h"

namespace {

using orvet::ustring;
using namespace fuzz;

constexpr struct {
    int file_type;
    const char * separator;
} kinds[] = {
    {1, "TARGET="}, {2, "PROFILE NAME="}, {3, "USER="},           {1, "SERVER_NAME="},
    {1, ""},        {2, "SEND="},         {3, "AUTHORIZATION P"}, {4, "TARGET="},
};

constexpr char path[] = "input.tmp";

/// How many separator lines a file holds.
int sections_in(std::string_view file, const std::string & separator)
{
    int sections = 0;
    for (const line & each : lines_of(file)) {
        std::string text = stripped(each.text);
        const std::size_t key = std::min(text.find('='), text.size());
        text = upper(text.substr(0, key)) + text.substr(key);
        sections += !text.empty() && text[0] != '#' && text[0] != '[' && text.starts_with(separator);
    }
    return sections;
}

/// The records of a file that was read to its end.
void examine(orvet::file_input_parms & read, int file_type, int sections)
{
    require(file_type >= 1 && file_type <= 3);
    require(read.error_line() == 0 && read.error_section() == 0 && read.error_text().length() == 0);
    const orvet::vector & records = read.arSections();
    require(read.index() == (file_type == 1 ? sections + 1 : 1));
    require(records.size() == static_cast<unsigned>(file_type == 1 ? 0 : std::max(sections, 1)));
    for (int i = sections > 0; file_type == 1 && i < std::max(read.index(), 1); ++i)
        require(read.input_info(i).validate() == 1);
    for (unsigned i = 0; i < records.size(); ++i)
        if (file_type == 2)
            require(dynamic_cast<orvet::auth_profile_info &>(*records[i]).validate() == 1);
        else
            require(dynamic_cast<orvet::user_info &>(*records[i]).validate() == 1);
}

/// Where a failure shows its place, that is a line of the file.
void examine_failure(const orvet::file_input_parms & read, short code, const std::vector<line> & lines)
{
    require(code == 18 || (code >= 100 && code <= 102));
    require((code == 18) == (read.index() == 6));
    const auto at = static_cast<std::size_t>(read.error_line());
    require(at <= lines.size());
    require(bytes_of(read.error_text()) == (at == 0 ? "" : lines[at - 1].text));
    require(at != 0 || code == 102); // only a `validate` fails behind the last line
}

const target input_files("input_files", [](std::string_view input) {
    taker from(input);
    const auto & [file_type, separator] = kinds[from.byte() % std::size(kinds)];
    write_file(path, from.rest());
    orvet::file_input_parms read;
    const short code = read.get_fips(path, 1, separator, file_type);
    if (code == 0)
        examine(read, file_type, sections_in(from.rest(), separator));
    else
        examine_failure(read, code, lines_of(from.rest()));
});

} // namespace
