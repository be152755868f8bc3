// Brodan's configuration file: the first byte chooses the server, two more what stands in the file ahead of
// the rest. Every byte of every line that is kept comes back, in the order of the new file, and the old file
// stays whole beside it.
#include <filesystem>

#include "fuzz.h"

namespace {

using orvet::ustring;
using namespace fuzz;

using lines = std::vector<std::string>;

constexpr char path[] = "cfg/brod.cfg";

/// The value behind a key, which stands in capitals; empty when the line doesn't begin with it.
void take_value(std::string & value, const std::string & line, std::string_view key)
{
    if (begins_with(line, key))
        value = stripped(line.substr(key.size()));
}

struct configuration {
    explicit configuration(std::string_view file)
    {
        for (const line & each : lines_of(file)) {
            const std::string text = stripped(each.text);
            const bool is_server = begins_with(text, "SERVER:");
            if (text.empty())
                continue;
            (is_server ? servers : generic).push_back(text);
            take_value(name, text, "WORKSTATION NAME:");
            take_value(protocol, text, "PROTOCOL:");
        }
    }

    /// The file with server n, from 1, in front of the others.
    std::string with_first(std::size_t n) const
    {
        std::string text;
        for (const std::string & each : generic)
            text += each + '\n';
        text += servers[n - 1] + '\n';
        for (std::size_t i = 0; i < servers.size(); ++i)
            if (i != n - 1)
                text += servers[i] + '\n';
        return text;
    }

    lines generic, servers;
    std::string name, protocol;
};

lines texts_in(const orvet::vector & texts)
{
    lines all;
    for (unsigned i = 0; i < texts.size(); ++i)
        all.push_back(bytes_of(static_cast<const ustring &>(*texts[i])));
    return all;
}

void examine(const orvet::scan_cfg & cfg, const configuration & expected)
{
    require(texts_in(cfg.generic_lines()) == expected.generic);
    require(texts_in(cfg.server_lines()) == expected.servers);
    require(cfg.server_count() == static_cast<int>(expected.servers.size()));
    require(bytes_of(cfg.target_name()) == expected.name);
    require(bytes_of(cfg.target_protocol()) == expected.protocol);
    require(cfg.cfg_stream() == nullptr);

    orvet::vector pairs;
    cfg.fill_vector(pairs);
    unsigned i = 0;
    for (const std::string & each : expected.generic) {
        if (begins_with(each, "WORKSTATION NAME:"))
            continue;
        const std::size_t colon = each.find(':');
        const auto & found = static_cast<const orvet::pair &>(*pairs[i++]);
        require(bytes_of(found.first) == stripped(each.substr(0, colon)));
        require(bytes_of(found.second) == stripped(each.substr(colon + 1))); // all of it without a colon
    }
    require(pairs.size() == i);
    cfg.show();
    cfg.show_all();
}

const target configuration_target("configuration", [](std::string_view input) {
    taker from(input);
    const int n = from.byte() - '0';
    const unsigned char choice = from.byte();
    const std::string old = filler(choice, from.byte()).append(from.rest());
    std::filesystem::create_directory("cfg");
    write_file(path, old);
    write_file("cfg/brod.bak", "older");
    std::filesystem::remove("cfg/brod.tmp"); // of a run that has failed

    const configuration expected(old);
    orvet::scan_cfg cfg(path);
    require(cfg.load() == 0);
    examine(cfg, expected);
    const bool known = n >= 1 && n <= static_cast<int>(expected.servers.size());
    require(cfg.set_server(n) == (n == 1 || known ? 0 : 1));
    examine(cfg, expected);
    const bool rewritten = known && n != 1;
    require(read_file(path) ==
            (rewritten ? native_text(expected.with_first(static_cast<std::size_t>(n))) : old));
    require(read_file("cfg/brod.bak") == (rewritten ? old : "older"));
    require(!std::filesystem::exists("cfg/brod.tmp"));
});

} // namespace
