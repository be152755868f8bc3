#ifndef ORVET_COMMANDS_BROD_BASE_H
#define ORVET_COMMANDS_BROD_BASE_H

#include "orvet/files/kt_file.h"

namespace orvet {

/// The path of `name` in the `migr` directory, which is below Brodan's installation path and has to exist; an
/// empty path for an empty name, and if allocation fails.
ORVET_API pathname out_file_path(const char * name);

/// The same as a new object on the heap. The caller deletes it, or passes it to a `brod_base`, which takes
/// over all but the empty ones.
ORVET_API pathname & sset_out_file(const char * name);

/// A Brodan command with its files: the text to run, the temporary file that the command writes to, and a
/// final file for what the tool keeps.
///
///     brod_base targets(out_file_path("lstgtmp.out"), out_file_path("targets.out"));
///     targets.set_brod_cmd("brod lstg -l", 0);
///     if (targets.exec_brod_cmd(1, 1) == 0 && targets.out_file().open("r") == 0) {
///         for (ustring line; targets.out_file().get_line(line);)
///             ...
///         targets.out_file().close();
///         targets.out_file().copy_to(targets.final_output_file());
///     }
///
/// Commands go to the system's command shell unchanged. The tool quotes names with blanks or other characters
/// that are special to the shell, and puts a blank after a command that ends in a lone digit, which the shell
/// would otherwise read as part of the redirection. On Windows the shell strips the outer quotes of a line
/// that begins with one.
///
/// Dummy mode: a line of the form "dummy DIRECTORY COMMAND" runs no Brodan command but copies a canned file
/// of that directory to the output file. With "dummy DIRECTORY" as the base command, "-rcmd", it answers
/// every command that is set with it. `record_answers` makes such a directory from the answers of a real
/// Brodan.
class ORVET_API brod_base {
public:
    /// Copies both paths.
    brod_base(pathname && output, pathname && final_output);
    /// Takes over both paths, which are on the heap, as `sset_out_file` returns them: they are deleted. An
    /// empty one is left to the caller, who deletes it.
    brod_base(pathname & output, pathname & final_output);
    brod_base(const brod_base &) = delete;
    brod_base & operator=(const brod_base &) = delete;
    /// Closes both files, and removes that of `out_file` if the setting `ktxrmtf` is "yes".
    virtual ~brod_base();

    /// The command as `set_brod_cmd` left it; empty at first.
    const ustring & brod_cmd() const { return brod_cmd_; }
    /// A result that the tool stores here; the library does not use it. 0 at first.
    short brod_cmd_rc() const { return brod_cmd_rc_; }
    /// Stores it.
    void set_brod_cmd_rc(short rc) { brod_cmd_rc_ = rc; }

    ///@{
    /// The file that commands write to, and the name of the final file.
    const pathname & output_file() const { return output_file_; }
    const pathname & final_output_file() const { return final_output_file_; }
    ///@}
    ///@{
    /// The files to read from. They have these names at first; after that no setter changes both.
    kt_file & out_file() { return out_file_; }
    kt_file & final_out_file() { return final_out_file_; }
    ///@}

    /// Gives `output_file` another name in the `migr` directory. `out_file`, which is also what the
    /// destructor removes, keeps its own.
    void set_output_file(const ustring & name);
    /// The same for `final_output_file`; `final_out_file` keeps its name.
    void set_final_output_file(const ustring & name);
    /// Renames `final_out_file` alone: puts `extension`, given without a ".", after the first "." of its
    /// whole name, directories included. A name without a "." becomes the extension alone; a name that begins
    /// with a
    /// "." is unchanged.
    void build_final_out_file(const ustring & extension);

    /// Sets the command: `cmd` alone when `whole` is not 0, else the current base command, one blank and
    /// `cmd`. The blank is there without a base command too.
    void set_brod_cmd(const ustring & cmd, int whole);

    /// Runs the command and waits for its end. With `to_output` not 0 its output replaces `output_file`; with
    /// `to_errors` not 0 its error output is appended to `broderr.out` in the `migr` directory. A canned
    /// answer goes to `output_file` in any case, and is reported on standard output.
    ///
    /// Returns the command's exit value, 0 for success; 128 + n if signal n ended it; and -1 if the shell
    /// could not be started, the command holds a zero byte, or allocation failed. A failure is logged and
    /// changes nothing else: the output file may hold a part.
    int exec_brod_cmd(int to_output, int to_errors);

    /// The name of the file that answers `command` in dummy mode, without its directory; nothing is run or
    /// opened. What follows the beginning that decides, redirections included, is ignored, except for a name,
    /// which ends at the first ">". Empty if allocation fails.
    static ustring canned_file(const ustring & command);

    /// From now on copies the answers of commands to `directory`, for the whole process; an empty path
    /// switches that off, which is the state at first. The directory has to exist.
    ///
    /// Recorded is the output file of a command that ran, not in dummy mode, that returned 0 and whose output
    /// went to a file, under the name of `canned_file`. Each file holds the answer to one command; the same
    /// command replaces it, a different one is not recorded. So only one command that is answered by
    /// "x_invalid" is. Nor is a command whose file would be outside of the directory, or have a name that the
    /// shell needs quotes for. A file is replaced whole or not at all, and one that is read-only is kept.
    ///
    /// Recording changes neither the result of a command nor what is traced and logged. One process at a time
    /// records to a directory.
    static void record_answers(const pathname & directory);
    /// What became of the commands since a directory was last given, in the order of their running: a
    /// `recorded_answer` each, no two alike.
    static const vector & recorded_answers();

protected:
    /// For a class that fails to allocate its command: `exec_brod_cmd` returns -1 from now on.
    void give_up() { complete_ = false; }

private:
    void name_files(const pathname & output);
    void os_brod_cmd(ustring & cmd);
    ustring redirected(int to_output, int to_errors) const;

    ustring brod_cmd_;
    short brod_cmd_rc_ = 0;
    pathname output_file_;
    pathname final_output_file_;
    kt_file out_file_;
    kt_file final_out_file_;
    ustring tool_cmd_;             // the command without the base command
    bool complete_ = true;         // false if an allocation of the constructors failed: nothing is run
    bool command_complete_ = true; // the same for the command as it was last set
};

} // namespace orvet

#endif
