#ifndef ORVET_FUZZ_FUZZ_H
#define ORVET_FUZZ_FUZZ_H

#include <string>
#include <string_view>
#include <vector>

#include <orvet/orvet.h>

// What the targets share. A target feeds any bytes to a part of the library and holds what comes of it
// against a model of its own, as plain as can be: what no property speaks of, the sanitizers tell.
namespace fuzz {

/// One target; each source file defines one.
struct target {
    target(const char * name, void (*run)(std::string_view input));

    const char * name;
    void (*run)(std::string_view input);
    const target * next; // of all that are linked

    static const target * first;
};

/// Runs a target on one input, with the channels as this input wants them: every other size opens all gates.
void run(const target & target, std::string_view input);

/// Ends the process where a property does not hold.
void require(bool holds, const char * file = __builtin_FILE(), int line = __builtin_LINE());

/// Opens the gates of both channels, whose lines are looked at and dropped, or shuts them.
void set_gates(bool open);

// Files in the current directory.
void write_file(const char * name, std::string_view bytes);
std::string read_file(const char * name);
/// Lines to stand in front of others, so that a stream's buffer ends `at` bytes behind them: 'b' for a small
/// one, 'B' for a large one. For all other choices none: such files take their time.
std::string filler(unsigned char choice, unsigned char at);
/// What the system's text form makes of these bytes.
std::string native_text(const std::string & bytes);

// Text of the library.
std::string bytes_of(const orvet::ustring & text);
/// The lines of a file as the library reads them; other than a text made from bytes they may hold zeros.
std::vector<orvet::ustring> texts_of(std::string_view file);

// The models. Bytes will do for them: no rule of the library looks beyond ASCII.

struct line {
    std::string text;
    std::size_t end; // the position behind its line end
};
std::vector<line> lines_of(std::string_view file);
std::vector<std::string> split(std::string_view text, char at);
std::string upper(std::string text);
/// Without the blanks at the front, or at both ends.
std::string stripped_front(const std::string & text);
std::string stripped(const std::string & text);
/// Whether the text begins with a key in capitals, in any case.
bool begins_with(const std::string & text, std::string_view key);
/// The number at the front of a text.
int number(const std::string & text);
/// A path with an element behind it.
std::string joined(const std::string & path, const std::string & element);

/// Takes bytes off the front of an input; zeros when it is used up.
class taker {
public:
    explicit taker(std::string_view input) : rest_(input) {}

    unsigned char byte();
    /// Up to the next line feed.
    std::string line();
    bool empty() const { return rest_.empty(); }
    std::string_view rest() const { return rest_; }

private:
    std::string_view rest_;
};

} // namespace fuzz

#endif
