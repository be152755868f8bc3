#ifndef ORVET_TESTS_SUPPORT_H
#define ORVET_TESTS_SUPPORT_H

#include <algorithm>
#include <filesystem>
#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <orvet/orvet.h>

/// What all tests share. Each test begins in an empty directory, with both channels shut:
///
///     write_file("text.txt", "one\ntwo\n");
///     transcript lines;
///     kt_file file(pathname("text.txt"));
///     lines.step("open for reading", [&] { return file.open("r"); });
///     expect_golden("kt_file_open", lines.take());
///
/// Rows of a table begin with their name: SCOPED_TRACE(row.name) in a loop, or `name_of` as the last argument
/// of INSTANTIATE_TEST_SUITE_P.
namespace orvet_test {

namespace fs = std::filesystem;

// Files

/// The directory of the test process: the current one, KTXPATH and KTXWORK. Its "brodan", with a "migr"
/// inside, is brdcfg.
const fs::path & test_directory();
/// Writes a file whole, byte for byte.
void write_file(const std::string & name, const std::string & bytes);
/// The bytes of a file; "(no file)" when there is none.
std::string read_file(const std::string & name);
/// The same with CR LF as LF, for files in the system's own text form.
std::string read_text(const std::string & name);

// Texts

inline std::string text_of(const orvet::ustring & text)
{
    return {text.mbcs_str(), text.mbcs_length()};
}
/// A ustring from bytes that may hold zeros.
orvet::ustring from_bytes(const std::string & bytes);
/// A path as the library writes it on this system, from one with slashes.
std::string native(std::string path);
/// A text as on every system: the test directory is "DIR", and where the separator is a backslash, all are
/// slashes.
std::string portable(const std::string & text);
/// The text with the first of each pair made the second, wherever it is.
std::string replaced(std::string text, const std::vector<std::pair<std::string, std::string>> & words);
/// The text with error numbers, which differ between systems, as N; 0 stays, and ERANGE, which a transcript
/// sets.
std::string without_numbers(std::string text);
/// The lines that hold `part`, or those that don't.
std::string lines_with(const std::string & part, const std::string & lines);
std::string lines_without(const std::string & part, const std::string & lines);

// Golden files and tables

/// Compares `text`, made portable, with tests/golden/NAME.txt and shows the lines that differ. A run with
/// ORVET_UPDATE_GOLDEN set writes the file anew, for review.
void expect_golden(const std::string & name, const std::string & text);

/// Does the same for cases in a golden file of their own. A case is a line "== NAME", its input and a line
/// "--"; what `run` returns for name and input is what follows there.
void expect_golden_cases(
    const std::string & name,
    const std::function<std::string(const std::string & name, const std::string & input)> & run);

/// A row of a table in which an input leads to a result.
template <class Input, class Result>
struct example {
    const char * name;
    Input input;
    Result result;
};
/// Compares what `run` returns for each input with the row's result.
template <class Table, class Run>
void expect_each(const Table & table, Run run)
{
    for (const auto & row : table) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(run(row.input), row.result);
    }
}

/// Names the tests of a table after its rows.
struct row_name {
    template <class Row>
    std::string operator()(const testing::TestParamInfo<Row> & row) const
    {
        std::string name = row.param.name;
        const auto is_odd = [](unsigned char c) { return !std::isalnum(c); };
        std::replace_if(name.begin(), name.end(), is_odd, '_');
        return name;
    }
};
inline constexpr row_name name_of;

// Output

/// Shuts both channels: no line passes, no stream is open.
void shut_channels();

/// Records the lines of both channels, in one order, without their time stamps: "T[C] name text" of the
/// trace, "L MSG0020 [F] text" of the log. Each line leaves errno at ERANGE: what is read too late shows 34.
/// The channels are shut again when the object goes.
class transcript {
public:
    explicit transcript(int trace_level = 0, int log_level = 0);
    transcript(const transcript &) = delete;
    transcript & operator=(const transcript &) = delete;
    ~transcript() { shut_channels(); }

    /// The lines since the last call.
    std::string take();
    /// A line of the test's own.
    void note(const std::string & line);
    /// Runs `action` between a line that names it and one with its result.
    template <class Action>
    void step(const std::string & name, Action action)
    {
        note("-- " + name);
        if constexpr (std::is_void_v<decltype(action())>) {
            action();
        } else {
            std::ostringstream result;
            result << action();
            note("= " + result.str());
        }
    }
};

/// The words of a line; '' is an empty one.
std::vector<std::string> words_of(const std::string & line);

/// A name by which the lines of a script call an operation on something; `words` are those of the line.
template <class World>
struct operation {
    const char * name;
    std::string (*run)(World & world, const std::vector<std::string> & words);
};
/// Runs each line of a script as a step with its result.
template <class World, std::size_t Count>
void run_script(const std::string & script, World & world, const operation<World> (&operations)[Count],
                transcript & lines)
{
    std::istringstream in(script);
    for (std::string line; std::getline(in, line);)
        lines.step(line, [&] {
            const std::vector<std::string> words = words_of(line);
            for (const operation<World> & each : operations)
                if (each.name == words[0])
                    return each.run(world, words);
            return std::string("no such operation");
        });
}
/// A result as text, with what else is to be shown.
template <class... Shown>
std::string result(long long code, const Shown &... shown)
{
    std::ostringstream text;
    text << code;
    [[maybe_unused]] const auto show = [&](const auto & value) {
        if constexpr (std::is_convertible_v<decltype(value), const orvet::ustring &>)
            text << " <" << text_of(value) << ">";
        else
            text << " <" << value << ">";
    };
    (show(shown), ...);
    return text.str();
}

/// What `action` prints to standard output, CR LF as LF.
template <class Action>
std::string printed_by(Action action)
{
    testing::internal::CaptureStdout();
    action();
    std::fflush(stdout);
    return replaced(testing::internal::GetCapturedStdout(), {{"\r\n", "\n"}});
}

/// The same for standard error.
template <class Action>
std::string printed_as_error_by(Action action)
{
    testing::internal::CaptureStderr();
    action();
    std::fflush(stderr);
    return replaced(testing::internal::GetCapturedStderr(), {{"\r\n", "\n"}});
}

// Processes

/// Registers a function under a name, for what a process does only once.
struct scenario {
    scenario(const char * name, void (*run)());
};
/// Runs a scenario in a process of its own and returns its standard output; a failed run shows in it.
std::string run_scenario(const std::string & name);
/// The command that runs a scenario.
std::string scenario_command(const std::string & name);
/// Sets a variable of the environment, or removes it when `value` is null.
void set_variable(const char * name, const char * value);

// What the tests ask of an operating system; one source for each.

/// No dialog and no core file when a test process crashes.
void keep_crashes_quiet();
unsigned long process_number();
/// Prints the name of each file that this process holds open besides its standard streams, a line each.
void print_open_files();
/// The file's list of users with access, empty where there is none; `give` makes one.
std::string access_list(const char * file, bool give);
/// Has the process ignore how its children end, or not; true when it did so before.
bool ignore_children(bool wish);
/// A command that signal 9 ends; null where there are no signals.
extern const char * const killed_command;
/// Opens a file, made if need be, with access for nobody else until the result goes; null where nobody is
/// kept out.
std::shared_ptr<void> hold_file(const char * name);
/// Lets no file grow beyond so many bytes, as a full disk does; -1 lifts that. False where there is no such
/// limit.
bool limit_files(long bytes);
/// Makes a named pipe; false where there is none.
bool make_pipe(const char * name);
/// Gives a file to a group that the process is not in; false where that can't be done.
bool give_to_another_group(const char * file);
/// Sets the variable TZ and has the runtime read it.
void set_time_zone(const char * name);
/// Ends the process as a power cut does: nothing is flushed or closed.
[[noreturn]] void die();

} // namespace orvet_test

using namespace orvet;
using namespace orvet_test;

#endif
