// Whole input files, beside a reader made of the records' model. The first byte chooses the kind and the
// separator, the rest is the file.
#include "record_model.h"

namespace {

using orvet::ustring;
using namespace fuzz;

constexpr char path[] = "input.tmp";

/// The line as records get it.
std::string tidy(const std::string & line)
{
    const std::string text = stripped(line);
    const std::size_t equals = text.find('=');
    return upper(text.substr(0, equals)) + (equals == std::string::npos ? "" : text.substr(equals));
}

template <class Record>
struct reading {
    using model = record_model<Record>;
    static constexpr bool is_agent = kind<Record>::is_agent;

    std::vector<model> done; // of agents all that have been begun
    std::size_t line = 0;    // where it failed, from 1; 0 when there is no such line
    std::size_t head = 0;    // the first line of the section
    int section = 0;

    short read(const std::vector<fuzz::line> & lines, const std::string & separator)
    {
        constexpr int most_agents = 4;
        model current{Record()};
        for (line = 1; line <= lines.size(); ++line) {
            const std::string text = tidy(lines[line - 1].text);
            if (text.empty() || text[0] == '#' || text[0] == '[')
                continue;
            if (text.starts_with(separator)) {
                if (section != 0 && !current.validate())
                    return keep(current), line = head, short{102};
                head = line;
                if (section++ != 0 || is_agent) {
                    done.push_back(current);
                    current = model(Record());
                }
                if (is_agent && section > most_agents)
                    return 18;
            }
            if (const short code = current.set(text))
                return keep(current), code;
        }
        const bool valid = current.validate();
        line = valid ? 0 : head;
        if (valid || is_agent)
            done.push_back(current);
        section = valid ? 0 : section;
        return valid ? 0 : 102;
    }

private:
    void keep(const model & current)
    {
        if (is_agent)
            done.push_back(current);
    }
};

template <class Record>
void read_file(std::string_view file, const char * separator, int file_type)
{
    const std::vector<line> lines = lines_of(file);
    reading<Record> expected;
    const short code = expected.read(lines, separator);
    orvet::file_input_parms input;
    require(input.get_fips(path, 1, separator, file_type) == code);
    require(input.error_line() == static_cast<int>(expected.line));
    require(input.error_section() == expected.section);
    require(bytes_of(input.error_text()) == (expected.line == 0 ? "" : lines[expected.line - 1].text));
    if constexpr (kind<Record>::is_agent) {
        require(input.index() == static_cast<int>(expected.done.size()) + (code == 18));
        for (int i = 0; i < 5; ++i)
            require(record_model(input.input_info(i)) == (static_cast<std::size_t>(i) < expected.done.size()
                                                              ? expected.done[static_cast<std::size_t>(i)]
                                                              : record_model(Record())));
    } else {
        require(input.index() == 1 && input.arSections().size() == expected.done.size());
        for (unsigned i = 0; i < expected.done.size(); ++i)
            require(record_model(dynamic_cast<Record &>(*input.arSections()[i])) == expected.done[i]);
    }
}

/// A kind that there is no record for never ends well.
void read_unknown(std::string_view, const char * separator, int file_type)
{
    orvet::file_input_parms input;
    require(input.get_fips(path, 1, separator, file_type) == 102);
    require(input.index() == 1 && input.arSections().size() == 0);
}

constexpr struct {
    void (*read)(std::string_view file, const char * separator, int file_type);
    int file_type;
    const char * separator;
} kinds[] = {
    {read_file<orvet::VXA_inst_info>, 1, "TARGET="},
    {read_file<orvet::auth_profile_info>, 2, "PROFILE NAME="},
    {read_file<orvet::user_info>, 3, "USER="},
    {read_file<orvet::VXA_inst_info>, 1, "SERVER_NAME="},
    {read_file<orvet::VXA_inst_info>, 1, ""},
    {read_file<orvet::auth_profile_info>, 2, "SEND="},
    {read_file<orvet::user_info>, 3, "AUTHORIZATION P"},
    {read_unknown, 4, "TARGET="},
};

const target input_files("input_files", [](std::string_view input) {
    taker from(input);
    const auto & each = kinds[from.byte() % std::size(kinds)];
    write_file(path, from.rest());
    each.read(from.rest(), each.separator, each.file_type);
});

} // namespace
