// Scan result files: the domains, those with a dependency that is not there taken out, and the places of
// their sections.
#include <algorithm>
#include <map>

#include "fuzz.h"

namespace {

using orvet::ustring;
using namespace fuzz;

constexpr char path[] = "scan.tmp";
constexpr char head_line[] = "[topology]";
constexpr char separator[] = " = ";
// Turns behind the end of the file are all alike, and thousands of them only cost time.
constexpr int most_domains = 500;

struct domain {
    std::string head, name, dependency, dep_path;
};

struct place {
    int count;
    long offset;
};

std::string doubled(const std::string & name)
{
    return name.empty() ? "" : name + "_" + name;
}

/// A file and how far it has been read.
struct reader {
    std::vector<line> lines;
    std::size_t at = 0;

    bool ended() const { return at == lines.size(); }
    bool seek(const std::string & head)
    {
        while (!ended() && lines[at].text != head)
            ++at;
        return !ended() && ++at;
    }
    /// False for a line without a separator; at the end of the file nothing changes.
    bool take(std::string & key, std::string & value)
    {
        if (ended())
            return true;
        const std::string & text = lines[at++].text;
        const std::size_t equals = text.find(separator);
        if (equals == std::string::npos)
            return false;
        key = text.substr(0, equals);
        value = text.substr(equals + 3);
        return true;
    }
};

/// The number of the count line, which is taken; -1 where there is none or it is too large.
int take_count(reader & from)
{
    constexpr std::string_view key = "COUNT = ";
    if (from.ended() || !begins_with(from.lines[from.at].text, key))
        return -1;
    const int count = number(from.lines[from.at++].text.substr(key.size()));
    return count > 32767 ? -1 : std::max(count, 0);
}

/// Those whose dependency is there when their turn comes.
std::vector<domain> kept(const std::vector<domain> & domains)
{
    std::map<std::string, int> there;
    for (const domain & each : domains)
        ++there[each.name];
    std::vector<domain> all;
    for (const domain & each : domains)
        if (each.dependency.empty() || there[each.dependency] > 0)
            all.push_back(each);
        else
            --there[each.name];
    return all;
}

short load(reader & from, int count, std::vector<domain> & domains)
{
    std::string key;
    std::string value;
    for (int i = 0; i < count; ++i) {
        if (!from.take(key, value))
            return 258;
        std::vector<std::string> tokens = split(value, ',');
        tokens.resize(std::max<std::size_t>(tokens.size(), 4));
        const std::string dependency = i == 0 ? "" : tokens[3];
        const std::string dep_path = i == 0 ? "" : joined(doubled(dependency), doubled(tokens[1]));
        domains.push_back({"[" + key + "]", tokens[1], dependency, dep_path});
    }
    domains = kept(domains);
    return 0;
}

short find_places(reader & from, const std::vector<domain> & domains, std::vector<place> & places)
{
    for (const domain & each : domains) {
        std::string key;
        std::string value;
        if (!from.seek(each.head))
            return 260;
        if (!from.take(key, value))
            return 258;
        places.push_back({number(value), static_cast<long>(from.lines[from.at - 1].end)});
    }
    return 0;
}

const orvet::top_entry & entry_at(orvet::codable * item)
{
    return dynamic_cast<const orvet::top_entry &>(*item);
}

const orvet::sof_entry & section_of(orvet::codable * item)
{
    require(entry_at(item).trg_sect_info.size() == 1);
    return dynamic_cast<const orvet::sof_entry &>(*entry_at(item).trg_sect_info[0]);
}

void load_places(orvet::kt_file & file, orvet::vector & topv, reader & from,
                 const std::vector<domain> & domains)
{
    const auto length = [](orvet::codable * item) { return entry_at(item).dep_path.text().length(); };
    std::vector<orvet::codable *> items(topv.items(), topv.items() + topv.size());
    const std::vector<orvet::codable *> in_file_order = items;
    std::vector<place> places;
    const short code = find_places(from, domains, places);
    require(file.load_offsets(topv) == code);
    if (code == 0)
        std::stable_sort(items.begin(), items.end(), [&](auto a, auto b) { return length(a) < length(b); });
    require(std::equal(items.begin(), items.end(), topv.items()));
    for (std::size_t i = 0; i < places.size(); ++i) {
        const orvet::sof_entry & section = section_of(in_file_order[i]);
        require(section.sect_count == places[i].count && section.sect_offset == places[i].offset);
    }
}

const target topology("topology", [](std::string_view input) {
    write_file(path, input);
    orvet::kt_file file{orvet::pathname(path)};
    reader from{lines_of(input)};
    require(file.open("r") == 0);
    const bool found = from.seek(head_line);
    require(file.find_section(head_line) == (found ? 0 : -1));
    if (!found) {
        from.at = 0;
        require(file.seek(0, SEEK_SET) == 0);
    }

    const int count = take_count(from);
    orvet::vector topv;
    ustring server("untouched");
    std::vector<domain> domains;
    if (count <= most_domains) {
        const short code = count < 0 ? short{259} : load(from, count, domains);
        require(file.load_top(server, topv) == code);
        require(topv.size() == domains.size());
        for (unsigned i = 0; i < topv.size(); ++i) {
            const orvet::top_entry & entry = entry_at(topv[i]);
            require(bytes_of(entry.domain_name) == domains[i].name);
            require(bytes_of(entry.dep_path.text()) == domains[i].dep_path);
            require(bytes_of(section_of(topv[i]).sect_name) == domains[i].head);
        }
        require(bytes_of(server) == (domains.empty() ? "untouched" : doubled(domains[0].name)));
        if (code == 0)
            load_places(file, topv, from, domains);
    }
    require(file.close() == 0);
});

} // namespace
