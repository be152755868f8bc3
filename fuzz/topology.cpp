// Files in sections: the domains of a topology, the places of their sections, and each line taken apart.

#include "fuzz.h"

static void load(orvet::kt_file & file, const value & bytes)
{
    ustring server;
    orvet::vector topv;
    const short loaded = file.load_top(server, topv);
    const short placed = loaded == 0 ? file.load_offsets(topv) : loaded;
    show("codes and server", value(loaded) + value(placed) + value(server));
    for (unsigned i = 0; i < topv.size(); ++i) {
        const auto & entry = dynamic_cast<const orvet::top_entry &>(*topv[i]);
        const auto & section = dynamic_cast<const orvet::sof_entry &>(*entry.trg_sect_info[0]);
        const value head(section.sect_name);
        show("domain", head + value(entry.domain_name) + "," + value(entry.dep_path.text()));
        show("place", value(section.sect_offset) + "," + value(section.sect_count));
        const std::string key = head.substr(1, head.size() - 2) + " = ";
        expect(bytes.has(key), "a head is the key of a line", bytes, key);
        const value before = bytes.substr(0, static_cast<std::size_t>(section.sect_offset));
        expect(placed != 0 || before.has(head), "a section is after its head", before, head);
        expect(placed != 0 || before == bytes || before.ends_with('\n'), "a section is whole lines", "\n",
               before);
        const bool sorted = i == 0 || orvet::sort_on_dep_len(topv.items() + i - 1, topv.items() + i) <= 0;
        expect(placed != 0 || sorted, "short paths come first", "a longer one", entry.dep_path.text());
    }
}

static void take_apart(const ustring & text, const ustring & key)
{
    orvet::keyval rest(text);
    expect(rest.getval(key) == 0 || rest == text, "a text without the key is unchanged", text, rest);
    expect(value(text).ends_with(value(rest)), "a value is the end of its text", text, rest);
    ustring tokens = orvet::get_token(text, 0);
    for (int i = 1; tokens.length() < text.length(); ++i)
        tokens.append(",").append(orvet::get_token(text, i));
    expect_same("tokens make up their text", text, tokens);
}

void topology(std::string_view input)
{
    const std::vector<std::string> lines = lines_of(input);
    write_file("scan.tmp", input);
    orvet::kt_file pairs{orvet::pathname("scan.tmp")};
    orvet::kt_file file{orvet::pathname("scan.tmp")};
    pairs.open("r");
    int most = 0;
    for (const std::string & line : lines) {
        take_apart(text_of(line), text_of(lines[0]));
        ustring key, rest;
        const bool is_pair = pairs.get_keyval(key, rest) == 0;
        expect_same("get_keyval finds the sign", value(line).has(" = "), is_pair);
        const value whole(key.append(" = ").append(rest));
        expect(!is_pair || whole == line, "key and value make up their line", line, whole);
        file.open("r");
        int count = 0;
        const short code = file.seek_section(text_of(line), &count, 1);
        show("code and count of a section", value(code) + "," + value(count));
        orvet::get_count(text_of(line), &count);
        most = std::max(most, count > 32767 ? 0 : count);
    }
    static_cast<void>(pairs.close());
    file.open("r");
    if (file.find_section("[topology]") != 0)
        file.seek(0, SEEK_SET);
    if (most <= 500) // reading on after the end of the file takes time and finds nothing
        load(file, std::string(input));
    static_cast<void>(file.close());
}
