// A `kt_file` that is read, written, searched, moved and opened anew. The first two bytes choose what the
// file begins with, the rest of the first line is steps, two bytes each: what, and how much or where. The
// other lines follow in the file.

#include "fuzz.h"

/// An open file, what must be in it, and where it must be.
struct subject {
    orvet::kt_file file{orvet::pathname("file.tmp")};
    std::string bytes;
    std::string_view rest; // of the bytes, from the position on
    const char * mode = "r";
};

static void reopen(subject & s, unsigned char choice)
{
    constexpr const char * modes[] = {"r+b", "rb", "w+b", "a+b", "r"};
    expect_same("close succeeds", 0, s.file.close());
    expect_same("the file holds what was written", s.bytes, read_file("file.tmp"));
    s.mode = modes[choice % std::size(modes)];
    expect_same("open succeeds", 0, s.file.open(s.mode));
    s.bytes.resize(*s.mode == 'w' ? 0 : s.bytes.size());
    s.rest = s.bytes;
}

static void get_line(subject & s, unsigned char)
{
    ustring line("none");
    long position = -1;
    s.file.get_line(line);
    expect_same("a line is read byte for byte", s.rest.empty() ? "none" : take_line(s.rest), line);
    s.file.get_pos(&position);
    expect_same("the position is after the line", s.bytes.size() - s.rest.size(), position);
}

static void read(subject & s, unsigned char count)
{
    char room[256];
    const std::string expected(s.rest.substr(0, count));
    expect_same("bytes are read as they are", expected, std::string(room, s.file.read(room, count)));
    s.rest.remove_prefix(expected.size());
}

static void write(subject & s, unsigned char count)
{
    if (!std::strchr(s.mode, '+') || count == 0)
        return;
    const std::string block(count, static_cast<char>('a' + count % 26));
    const short code = count % 2 ? s.file.write(block.data(), count) : s.file.write(text_of(block));
    expect_same("write succeeds", 0, code);
    const std::size_t at = s.bytes.size() - (*s.mode == 'a' ? 0 : s.rest.size());
    s.rest = std::string_view(s.bytes.replace(at, count, block)).substr(at + count);
}

static void seek(subject & s, unsigned char back)
{
    const std::size_t to = s.bytes.size() - back % (s.bytes.size() + 1); // the end is where it gets tight
    const std::size_t at = back % 2 ? 0 : s.bytes.size() - s.rest.size();
    expect_same("seek succeeds", 0, s.file.seek(static_cast<long>(to - at), back % 2 ? SEEK_SET : SEEK_CUR));
    s.rest = std::string_view(s.bytes).substr(to);
}

/// The head is one of the last lines: whole; without its first unit, which may be half of a character; turned
/// round, so that halves meet others; or with half of a line end.
static void find_section(subject & s, unsigned char choice)
{
    const std::vector<std::string> lines = lines_of("-\n" + s.bytes);
    const ustring line = text_of(lines[lines.size() - 1 - choice / 4U % lines.size()]);
    ustring head(line, choice % 4 == 1 || choice % 4 == 2);
    head.append(choice % 4 == 2 ? ustring(line, 0, 1) : choice % 4 == 3 ? "\r" : "");
    bool found = false;
    while (!found && !s.rest.empty())
        found = text_of(take_line(s.rest)) == head;
    expect_same("find_section finds a line that is the head", found ? 0 : -1, s.file.find_section(head));
    get_line(s, 0);
}

void files(std::string_view input)
{
    constexpr void (*steps[])(subject &, unsigned char) = {reopen, get_line, read, find_section, write, seek};
    subject s;
    const unsigned char choice = take_byte(input);
    s.bytes = filler(choice, take_byte(input));
    const std::string row = take_line(input).substr(0, 200);
    write_file("file.tmp", s.bytes += input);
    reopen(s, 0);
    for (std::string_view left = row; !left.empty();) {
        const auto step = steps[take_byte(left) % std::size(steps)];
        step(s, take_byte(left));
    }
    reopen(s, 1);
    std::FILE * const stream = std::fopen("file.tmp", "rb");
    std::string_view lines = s.bytes;
    for (ustring line; line.getline(stream); get_line(s, 0))
        expect_same("a line of a stream is read byte for byte", take_line(lines), line);
    std::fclose(stream);
    get_line(s, 0);
    expect_same("all lines of a stream are read", "", lines);
    expect_same("all lines of the file are read", "", s.rest);
    static_cast<void>(s.file.close());
}
