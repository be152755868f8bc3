// What is made of the text of a command and of a file's name; nothing is run.
#include "fuzz.h"

namespace {

using orvet::ustring;
using namespace fuzz;

constexpr struct {
    const char * token;
    const char * folder;
    bool joins;
} places[] = {{"$(REPOSITORY)", "repos", false}, {"$(FILEPATH)", "", true}};

std::string resolved(const std::string & text)
{
    const std::string home = bytes_of(orvet::environment::brod_inst_path().text());
    for (const auto & place : places) {
        const std::size_t at = text.find(place.token);
        if (at == std::string::npos)
            continue;
        const std::string tail = text.substr(at + std::string_view(place.token).size());
        const std::string path = joined(home, place.folder);
        return place.joins ? joined(path, tail) : path + tail;
    }
    return text;
}

constexpr struct {
    const char * begin; // in capitals
    const char * file;
    bool named;
} answers[] = {
    {"BROD LSTG -L", "x_lstgl", false},
    {"BROD LSTG \\* -L -B", "x_lstglb", false},
    {"CAT /USR/LPP/BRODAN/DB/ROUTETAB", "x_lsroute", false},
    {"CAT /USR/LPP/BRODAN/DB/SNADSCON/", "xc_", true},
    {"BROD LSTG \\* -L -J ", "xd_", true},
    {"CAT /USR/LPP/BRODAN/DB/BROD.CFG", "x_cfg", false},
};

std::string answer_to(const std::string & command)
{
    for (const auto & each : answers)
        if (begins_with(command, each.begin)) {
            const std::string rest = stripped_front(command.substr(std::string_view(each.begin).size()));
            return each.file + (each.named ? rest.substr(0, rest.find('>')) : "");
        }
    return "x_invalid";
}

/// The name of the final file with another extension.
std::string renamed(const std::string & name, const std::string & extension)
{
    const std::size_t dot = name.find('.');
    return dot == 0 ? name : dot == std::string::npos ? extension : name.substr(0, dot + 1) + extension;
}

void name_files(const ustring & name, const ustring & extension)
{
    auto & final_path = *new orvet::pathname;
    final_path = name;
    const bool stays = name.length() == 0; // an empty one is not taken over
    orvet::brod_base command(orvet::sset_out_file("out.tmp"), final_path);
    require(command.final_output_file().text() == name);
    command.build_final_out_file(extension);
    require(bytes_of(command.final_out_file().file_name().text()) ==
            renamed(bytes_of(name), bytes_of(extension)));
    command.set_output_file(name);
    require(bytes_of(command.output_file().text()) ==
            joined(joined(bytes_of(orvet::environment::brod_inst_path().text()), "migr"), bytes_of(name)));
    for (const int whole : {0, 1}) {
        orvet::input_parms::ip_base_cmd() = extension;
        command.set_brod_cmd(name, whole);
        require(bytes_of(command.brod_cmd()) == (whole ? "" : bytes_of(extension) + " ") + bytes_of(name));
    }
    if (stays)
        delete &final_path;
}

const target commands("commands", [](std::string_view input) {
    const std::vector<ustring> texts = texts_of(input);
    for (const ustring & text : texts) {
        ustring place(text);
        orvet::resolve_tokens(place);
        require(bytes_of(place) == resolved(bytes_of(text)));
        require(bytes_of(orvet::brod_base::canned_file(text)) == answer_to(bytes_of(text)));
        name_files(text, texts[0]);
        orvet::pathname path;
        path = text;
        path += texts[0];
        require(bytes_of(path.text()) == joined(bytes_of(text), bytes_of(texts[0])));
    }
});

} // namespace
