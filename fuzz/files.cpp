// A `kt_file` that is opened, read, written and moved in any order, beside a string that holds the same
// bytes. Each step is a byte that says what is done and one that says how much or where.
#include <algorithm>
#include <cstdio>
#include <iterator>

#include "fuzz.h"

namespace {

using orvet::ustring;
using namespace fuzz;

constexpr char path[] = "file.tmp";

constexpr struct {
    const char * name;
    bool empties, reads, writes, appends;
} modes[] = {
    {"rb", false, true, false, false}, {"r", false, true, false, false}, {"r+b", false, true, true, false},
    {"wb", true, false, true, false},  {"w+b", true, true, true, false}, {"ab", false, false, true, true},
    {"a+b", false, true, true, true},
};

/// The file as it should be.
struct model {
    std::string bytes;
    bool open = false;
    bool reads = false;
    bool writes = false;
    bool appends = false;
    std::size_t at = 0;
    long size = 0;

    std::string take(std::size_t count)
    {
        const std::string taken = at < bytes.size() ? bytes.substr(at, count) : "";
        at += taken.size();
        return taken;
    }
};

void open_file(orvet::kt_file & file, model & m, unsigned char value)
{
    const auto & mode = modes[value % std::size(modes)];
    require(file.open(mode.name) == 0);
    if (mode.empties)
        m.bytes.clear();
    m = {m.bytes, true, mode.reads, mode.writes, mode.appends, 0, static_cast<long>(m.bytes.size())};
}

void close_file(orvet::kt_file & file, model & m, unsigned char)
{
    require(file.close() == 0);
    m = {m.bytes};
    require(read_file(path) == m.bytes);
}

void get_line(orvet::kt_file & file, model & m, unsigned char)
{
    ustring text("as it was");
    const std::vector<line> rest = lines_of(m.at < m.bytes.size() ? m.bytes.substr(m.at) : "");
    const bool found = m.open && !rest.empty();
    require((file.get_line(text) != 0) == found);
    require(bytes_of(text) == (found ? rest[0].text : "as it was"));
    m.at += found ? rest[0].end : 0;
}

void read_some(orvet::kt_file & file, model & m, unsigned char value)
{
    char room[256];
    const std::string taken = m.open ? m.take(value) : "";
    require(file.read(room, value) == taken.size());
    require(std::string(room, taken.size()) == taken);
}

void read_items(orvet::kt_file & file, model & m, unsigned char value)
{
    char room[256];
    const unsigned size = 1 + value % 4;
    const unsigned count = value / 4;
    const std::string taken = m.open ? m.take(size * count) : "";
    require(file.read(room, size, count) == (!m.open ? 255 : taken.size() == size * count ? 0 : 254));
}

void write_some(orvet::kt_file & file, model & m, unsigned char value)
{
    const std::string block(value, static_cast<char>('a' + value % 26));
    const short code = value % 2 ? file.write(block.data(), value) : file.write(ustring(block.c_str()));
    require(code == (m.open ? 0 : 255));
    if (!m.open || block.empty())
        return;
    m.at = m.appends ? m.bytes.size() : m.at;
    m.bytes.resize(std::max(m.bytes.size(), m.at + value));
    m.bytes.replace(m.at, value, block);
    m.at += value;
}

void seek(orvet::kt_file & file, model & m, unsigned char value)
{
    const std::size_t to = m.bytes.size() - value % (m.bytes.size() + 1); // the end is where it gets tight
    const long back = static_cast<long>(to) - static_cast<long>(m.bytes.size());
    const short code = value % 2 ? file.seek(back, SEEK_END) : file.seek(static_cast<long>(to), SEEK_SET);
    require(code == (m.open ? 0 : 255));
    m.at = m.open ? to : m.at;
}

void ask(orvet::kt_file & file, model & m, unsigned char)
{
    long position = 4711;
    require(file.get_pos(&position) == (m.open ? 0 : 255));
    // Not every runtime knows where a stream that appends stands before its bytes are in the file.
    require(m.appends || position == (m.open ? static_cast<long>(m.at) : 4711));
    require(file.file_size() == m.size);
}

constexpr struct {
    void (*take)(orvet::kt_file & file, model & m, unsigned char value);
    bool reads, writes; // what the mode must allow: else the runtime decides
} steps[] = {
    {open_file, false, false}, {close_file, false, false}, {get_line, true, false},
    {read_some, true, false},  {read_items, true, false},  {write_some, false, true},
    {seek, false, false},      {ask, false, false},        {get_line, true, false},
};

const target files("files", [](std::string_view input) {
    constexpr std::size_t largest = 100000;
    taker from(input);
    model m;
    const unsigned char choice = from.byte();
    m.bytes = filler(choice, from.byte());
    for (const char * line_end : {"\n", "\r\n", ""})
        m.bytes += from.line() + line_end;
    write_file(path, m.bytes);
    orvet::kt_file file{orvet::pathname(path)};
    while (!from.empty() && m.bytes.size() < largest) {
        const auto & step = steps[from.byte() % std::size(steps)];
        const unsigned char value = from.byte();
        if (!m.open || (m.reads >= step.reads && m.writes >= step.writes))
            step.take(file, m, value);
    }
    close_file(file, m, 0);
});

} // namespace
