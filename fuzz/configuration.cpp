// Brodan's configuration file. The first byte chooses the server, two more choose what the file begins with.

#include "fuzz.h"

static std::string joined(const orvet::vector & lines, unsigned begin = 0, unsigned end = ~0U)
{
    std::string all;
    for (unsigned i = begin; i < end && i < lines.size(); ++i)
        all += value(dynamic_cast<const ustring &>(*lines[i])) + '\n';
    return all;
}

static void examine(const orvet::scan_cfg & cfg, const std::string & file)
{
    std::string lines[2];
    for (const std::string & line : lines_of(file)) {
        const ustring text = text_of(line).strip(ustring::strip_both, u' ');
        const bool is_server = ustring(text).to_lower().begins_with("server:");
        lines[is_server] += text.length() != 0 ? value(text) + '\n' : "";
    }
    expect_same("generic lines are kept byte for byte", lines[0], joined(cfg.generic_lines()));
    expect_same("server lines are kept byte for byte", lines[1], joined(cfg.server_lines()));
    orvet::vector pairs;
    cfg.fill_vector(pairs);
    for (unsigned i = 0; i < pairs.size(); ++i)
        show("value", dynamic_cast<const orvet::pair &>(*pairs[i]).second);
    show("target", value(cfg.target_name()) + "," + value(cfg.target_protocol()));
    cfg.show();
    cfg.show_all();
}

void configuration(std::string_view input)
{
    const int n = take_byte(input) - '0';
    const unsigned char choice = take_byte(input);
    const std::string old = filler(choice, take_byte(input)).append(input);
    std::filesystem::create_directory("cfg");
    write_file("cfg/brod.cfg", old);
    write_file("cfg/brod.bak", "older");

    orvet::scan_cfg cfg("cfg/brod.cfg");
    expect_same("load succeeds", 0, cfg.load());
    examine(cfg, old);
    const bool is_new = n > 1 && n <= cfg.server_count();
    expect_same("set_server knows the servers", is_new || n == 1 ? 0 : 1, cfg.set_server(n));
    expect_same("the backup is the old file", is_new ? old : "older", read_file("cfg/brod.bak"));
    expect_same("no temporary file remains", false, std::filesystem::exists("cfg/brod.tmp"));
    if (!is_new)
        return expect_same("the file is unchanged", old, read_file("cfg/brod.cfg"));
    const auto k = static_cast<unsigned>(n - 1);
    std::string written = joined(cfg.generic_lines()) + joined(cfg.server_lines(), k, k + 1);
    written += joined(cfg.server_lines(), 0, k) + joined(cfg.server_lines(), k + 1);
    std::string found = read_file("cfg/brod.cfg");
    std::erase(written, '\r'); // the runtime's line ends
    std::erase(found, '\r');
    expect_same("the new file is the same lines, the server first", written, found);
}
