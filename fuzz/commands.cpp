// What is made of the texts of commands, of files' names and of a listing, a line each. Nothing is run.

#include "fuzz.h"

void commands(std::string_view input)
{
    const value home(orvet::environment::brod_inst_path().text());
    ustring & base = orvet::input_parms::ip_base_cmd();
    base = text_of(input.substr(0, input.find('\n')));
    for (const std::string & line : lines_of(input)) {
        const ustring text = text_of(line);
        ustring place = text;
        orvet::resolve_tokens(place);
        const bool resolved = value(place).starts_with(home) && line.find("$(") != line.npos;
        expect(place == text || resolved, "only a token is replaced, by the home", text, place);
        show("resolved text", place);
        show("canned file", orvet::brod_base::canned_file(text));
        orvet::brod_base command(orvet::sset_out_file("out.tmp"), orvet::sset_out_file("final.tmp"));
        command.set_brod_cmd(text, 0);
        expect_same("a command comes after its base", value(base) + " " + line, command.brod_cmd());
        command.set_brod_cmd(text, 1);
        expect_same("a whole command is kept byte for byte", line, command.brod_cmd());
        command.set_output_file(text);
        const value path(command.output_file().text());
        const std::string element = line.substr(std::min(line.find_first_not_of("/\\"), line.size()));
        expect(path.ends_with(element), "an output file ends in its name", element, path);
        command.final_out_file().set_file_name(text);
        command.build_final_out_file(base);
        show("renamed file", command.final_out_file().file_name().text());
    }
    std::filesystem::create_directories(home + "/migr");
    orvet::brod_base_ls object("OBJECT");
    write_file(object.output_file().mbcs_str(), input);
    object.set_local_name();
    static_cast<void>(object.out_file().close());
    show("local name", object.get_local_name().text());
}
