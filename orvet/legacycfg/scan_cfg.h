#ifndef ORVET_LEGACYCFG_SCAN_CFG_H
#define ORVET_LEGACYCFG_SCAN_CFG_H

#include <cstdio>

#include "orvet/foundation/base/ustring.h"
#include "orvet/foundation/base/vector.h"

namespace orvet {

/// Brodan's configuration file, "brod.cfg": reads it, lists it, and makes a chosen server the one in use.
///
/// Make an object on the file's path, `load` it, then call any of the others:
///
///     scan_cfg cfg("/opt/brodan/db/brod.cfg");
///     if (cfg.load() != 0 || cfg.set_server(2) != 0)
///         puts(cfg.error_text().mbcs_str());
///
/// The file is a text of lines. Blanks at the ends of a line and empty lines are ignored. Lines that begin
/// with "SERVER:", in any case, are server lines, of which the first names the server in use; all others are
/// generic lines and are never interpreted, except the two that name the target. Any bytes inside a line are
/// kept. The class writes neither trace nor log. Several processes may work on one file; within a process,
/// one thread. Objects can't be copied.
class ORVET_API scan_cfg {
public:
    /// For the file of that path, whose last 8 characters are "brod.cfg". Reads nothing yet.
    explicit scan_cfg(const ustring & cfg_file);
    scan_cfg(const scan_cfg &) = delete;
    scan_cfg & operator=(const scan_cfg &) = delete;
    ~scan_cfg() = default;

    /// Reads the file. 250, reported on standard output too, if it can't be opened or read to its end or if
    /// allocation fails; the object is then unchanged. So it is for the moment between the two renames of a
    /// rewrite by another process: try again. A second call adds to what the first one stored.
    int load();

    /// Makes server `n`, from 1 in the order of `server_lines`, the first of the file. The new file holds the
    /// generic lines, that server line and the other ones; the object stays as loaded.
    ///
    /// The new text goes to "brod.tmp" beside the file, which gets the file's owner and permissions before
    /// the text, and has to be on the disk before the file becomes "brod.bak" and "brod.tmp" the file. While
    /// a process is at work, others get 250. A process that is killed between the two renames leaves no file;
    /// `recover` mends that. What was changed in the file since `load` is not in the new one.
    ///
    /// 0 for success, also for an `n` of 1, where nothing is done. Failures:
    ///   1    no such server; nothing touched
    ///   250  "brod.tmp" can't be made, or another process is at work on it; nothing touched
    ///   251  "brod.tmp" can't be written whole, or is a device; the file and "brod.bak" are untouched
    ///   261  the file is gone or can't be renamed, or "brod.tmp" can't take its place. The file is the old
    ///        one; or, if even the recovery failed, absent, its text in "brod.bak". The new text is in
    ///        "brod.tmp". The former "brod.bak" is gone
    [[nodiscard]] int set_server(int n);

    /// Puts "brod.bak" back in place of a missing file. 0 when done or if the file is there, 250 if there is
    /// no backup or another process is at work, 261 if the backup can't be renamed. `load` never does this by
    /// itself.
    [[nodiscard]] static int recover(const ustring & cfg_file);

    /// What the last `load` or `set_server` failed on; empty after a success.
    const ustring & error_text() const { return error_text_; }

    /// Prints the target and the servers with their numbers to standard output.
    void show() const;
    /// Prints all stored lines to standard output, server lines first.
    void show_all() const;
    /// Adds a new `pair` to `out` for each generic line but the workstation's: what stands in front of the
    /// first ":" and behind it, without the blanks at their ends; a line without ":" gives itself twice. When
    /// memory is short `out` stays as it was.
    void fill_vector(vector & out) const;

    /// The path that the constructor was given.
    const ustring & cfg_file() const { return cfg_file_; }
    /// How many server lines were read.
    int server_count() const { return server_count_; }
    /// The file that an operation has open; null between operations.
    std::FILE * cfg_stream() const { return cfg_stream_; }
    ///@{
    /// Values of the last "WORKSTATION NAME:" and "PROTOCOL:" line; empty without one.
    const ustring & target_name() const { return target_name_; }
    const ustring & target_protocol() const { return target_protocol_; }
    ///@}
    ///@{
    /// `ustring`s, whole lines in file order.
    const vector & generic_lines() const { return generic_lines_; }
    const vector & server_lines() const { return server_lines_; }
    ///@}

private:
    bool read_lines();
    bool write_new_text(unsigned first);
    bool write_lines(unsigned first) const;
    bool close_stream();
    int replace_file(class temporary_file & temporary, const ustring & backup);
    template <class... Args>
    int fail(int rc, const char * format, const Args &... args);

    ustring cfg_file_;
    int server_count_ = 0;
    std::FILE * cfg_stream_ = nullptr;
    ustring target_name_;
    ustring target_protocol_;
    vector generic_lines_;
    vector server_lines_;
    ustring error_text_;
};

} // namespace orvet

#endif
