#ifndef ORVET_COMMANDS_BROD_BASE_H
#define ORVET_COMMANDS_BROD_BASE_H

#include "orvet/files/kt_file.h"

namespace orvet {

/// The path of `name` in the `migr` directory, which lies below Brodan's installation path and has to exist;
/// an empty path for an empty name and when memory is short. A new object on the heap: the caller releases
/// it, or has a `brod_base` take it over.
ORVET_API pathname & sset_out_file(const char * name);

/// A Brodan command with its files: the text to run, the temporary file that takes what the command prints,
/// and a final file for what the tool keeps.
///
///     brod_base targets(sset_out_file("lstgtmp.out"), sset_out_file("targets.out"));
///     targets.set_brod_cmd("brod lstg -l", 0);
///     if (targets.exec_brod_cmd(1, 1) == 0 && targets.out_file().open("r") == 0) {
///         for (ustring line; targets.out_file().get_line(line);)
///             ...
///         targets.out_file().close();
///         targets.out_file().copy_to(targets.final_output_file());
///     }
///
/// Commands go to the system's command shell as they are: quoting a name that holds blanks or other signs of
/// that shell is the tool's business, and so is the blank behind a command that ends in a lone digit, which
/// the shell would otherwise read as part of the redirection. On Windows the shell strips the outer quotes of
/// a line that begins with one.
///
/// Dummy mode: a line of the form "dummy DIRECTORY COMMAND" runs no Brodan command but copies a canned file
/// of that directory into the output file. With "dummy DIRECTORY" for the base command, "-rcmd", it covers
/// every command that is set with it.
class ORVET_API brod_base {
public:
    /// Takes over both paths, which lie on the heap as `sset_out_file` gives them. One that is empty stays
    /// the caller's.
    brod_base(pathname & output, pathname & final_output);
    brod_base(const brod_base &) = delete;
    brod_base & operator=(const brod_base &) = delete;
    /// Closes both files, and removes that of `out_file` if the setting `ktxrmtf` is "yes".
    virtual ~brod_base();

    /// The command as `set_brod_cmd` left it; empty at first.
    const ustring & brod_cmd() const { return brod_cmd_; }
    /// A place for the tool to keep a result in; nothing here writes it. 0 at first.
    short brod_cmd_rc() const { return brod_cmd_rc_; }
    /// Keeps a result there.
    void set_brod_cmd_rc(short rc) { brod_cmd_rc_ = rc; }

    ///@{
    /// Where commands write to, and the name of the final file.
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
    /// Renames `final_out_file` alone: puts `extension`, given without a ".", behind the first "." of its
    /// whole name, directories included. Without a "." the extension is all that is left; a name that begins
    /// with it stays.
    void build_final_out_file(const ustring & extension);

    /// Sets the command: `cmd` alone when `whole` is not 0, else with the base command, as it is at this
    /// moment, and one blank in front, the blank also ahead of none.
    void set_brod_cmd(const ustring & cmd, int whole);

    /// Runs the command and waits for its end. With `to_output` not 0 its output replaces `output_file`; with
    /// `to_errors` not 0 its error output goes behind what `broderr.out` in the `migr` directory holds. A
    /// canned answer goes to `output_file` whatever the two say, and is told on standard output.
    ///
    /// Gives the command's exit value, 0 for success; 128 + n where signal n ended it; and -1 when the shell
    /// could not be started, the command holds a zero byte, or memory was short in making it. A failure is
    /// told to the log and changes nothing else: the output file may hold a part.
    int exec_brod_cmd(int to_output, int to_errors);

    /// The name of the file that answers `command` in dummy mode, without its directory; nothing is run or
    /// opened to find out. What follows the beginning that settles it, redirections too, plays no part but
    /// for a name, which ends at the first ">". Empty when memory is short.
    static ustring canned_file(const ustring & command);

protected:
    /// For a class that finds no memory for its command: `exec_brod_cmd` gives -1 from now on.
    void give_up() { complete_ = false; }

private:
    void os_brod_cmd(ustring & cmd);
    ustring redirected(int to_output, int to_errors) const;

    ustring brod_cmd_;
    short brod_cmd_rc_ = 0;
    pathname output_file_;
    pathname final_output_file_;
    kt_file out_file_;
    kt_file final_out_file_;
    bool complete_ = true; // memory never fell short of what the constructors made: else nothing is run
    bool command_complete_ = true; // the same for the command as it was last set
};

} // namespace orvet

#endif
