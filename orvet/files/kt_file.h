#ifndef ORVET_FILES_KT_FILE_H
#define ORVET_FILES_KT_FILE_H

#include <cstdio>
#include <utility>

#include "orvet/foundation/base/pathname.h"
#include "orvet/foundation/base/vector.h"

namespace orvet {

/// A file by its name: a stream that is open or not, and the size that it had when it was opened.
///
///     kt_file file(pathname("scan.res"));
///     const close_at_end closing(file);
///     if (file.open("r") != 0)
///         return;
///     for (ustring line; file.get_line(line);)
///         ...
///     if (!file.at_end()) // reading failed, or allocation did
///         ...
///
/// Every operation is traced, logs a failure, and returns one of the codes of codes.h, so that a caller only
/// passes the code on. An object owns its stream from `open` to `close`; the destructor does not close it,
/// and a stream left open stays open until the process ends. Objects can be moved, not copied.
class ORVET_API kt_file {
public:
    /// A closed file without a name; `set_file_name` gives it one.
    kt_file() = default;
    /// A closed file of exactly that path.
    explicit kt_file(const pathname & path);
    /// A closed file of that name in the Ketrix installation directory.
    explicit kt_file(const ustring & file_name);
    ///@{
    /// A bare text could mean either: it does not compile.
    // clang-format off
    explicit kt_file(const char *) = delete; // write kt_file(pathname(x)) for exactly that path, or kt_file(ustring(x)) for a name below KTXPATH
    template <detail::byte_text Text>
    explicit kt_file(const Text &) = delete; // write kt_file(pathname(x)) for exactly that path, or kt_file(ustring(x)) for a name below KTXPATH
    // clang-format on
    ///@}
    kt_file(const kt_file &) = delete;
    kt_file & operator=(const kt_file &) = delete;
    /// Takes over the name and the stream; `other` is closed, without a name.
    kt_file(kt_file && other) noexcept { swap(other); }
    /// The same. A stream that was open here is not closed, as with the destructor.
    kt_file & operator=(kt_file && other) noexcept
    {
        kt_file moved(std::move(other));
        swap(moved);
        return *this;
    }
    ~kt_file();

    /// Opens with a mode of `fopen` and measures the size; reading begins at the start. A stream that is
    /// still open is closed first, without a message. 250 if it can't be opened, a directory included; after
    /// 253 and 256, from measuring, the object is open and still has to be closed.
    short open(const char * mode);
    /// Whether reading or writing has failed since the file was opened: tells a read error from the end of
    /// the file.
    bool error() const;
    /// Whether `close` has something to do: from `open` on, after a failed `close` too.
    bool is_open() const { return state_ != state::closed; }
    /// Whether the last read came to the end of the file. A read that found nothing while this is false has
    /// failed.
    bool at_end() const;
    /// Closes the stream; 0 also when none is open. After 252 the object stays open.
    [[nodiscard]] short close();
    /// Moves to `offset` bytes from `origin`, a value of `fseek`. 253, also if what was written before can't
    /// be flushed; 255 if not open.
    short seek(long offset, int origin);
    /// Reads the next line, without its line end: LF, CR LF or the end of the file. Not 0 if there was one;
    /// 0, with `line` unchanged, at the end of the file, after a read error and if not open. Allocates only
    /// if a line is longer than all that `line` has held.
    int get_line(ustring & line);
    /// Writes the text's multi-byte form, without a line end. 251, or 255 if not open. Bytes that are still
    /// in the stream's buffer may fail later: `close` or `seek` reports that.
    [[nodiscard]] short write(const ustring & text);
    /// Writes `size` bytes. 251, or 255 if not open.
    [[nodiscard]] short write(const void * buffer, unsigned int size);
    /// Stores the position in bytes. 255 if not open, with `*position` unchanged; 256 with a negative
    /// `*position`.
    short get_pos(long * position);
    /// Reads `count` items of `size` bytes. 254 if there are fewer, which are in `buffer` then; 255 if not
    /// open.
    short read(void * buffer, unsigned int size, unsigned int count);
    /// Reads up to `size` bytes and returns how many there were; 0 if not open.
    unsigned int read(void * buffer, unsigned int size);
    /// Moves the file to `target` by a rename, replacing a file of that name; close it first. The object
    /// keeps its name. 6 if the rename fails: a former `target` is removed then, the file is still here. 6
    /// also, with nothing removed, if `target` is the file itself or what it is a link to. A change of case
    /// alone is a rename.
    [[nodiscard]] short copy_to(const pathname & target);
    /// Removes the file; close it first. 0 also if there is none; 257.
    short removef();

    /// Bytes of the file when it was opened; 0 if closed.
    long file_size() const { return size_; }
    /// The name as it was given; what the constructor from a `ustring` makes of it has its directory.
    const pathname & file_name() const { return file_path_; }
    /// Takes effect with the next `open`.
    void set_file_name(ustring name) { file_path_ = name; }

    // Sectioned files. A section's head is given whole, with its brackets, and has to equal its line exactly.
    // All navigation runs forward from the present position.

    /// Moves to the line after the head `section`; -1 if it is not in the rest of the file, which is not an
    /// error, or if reading fails (`at_end` is false then).
    short find_section(const ustring & section);
    /// The same, if a missing section is an error: 260. With a non-zero `read_count` the next line is read
    /// into
    /// `*count`, 258 if it is not a key/value line; else `count` may be null.
    short seek_section(const ustring & section, int * count, int read_count);
    /// Reads a line and splits it at the first " = ". 258 if there is none, or if reading fails. 0, with both
    /// texts unchanged, at the end of the file: a loop has to ask `at_end`.
    [[nodiscard]] short get_keyval(ustring & key, ustring & value);

    // Scan result files.

    /// Loads the topology section, from the line after its head: a `top_entry` for each domain into `topv`,
    /// which is empty at the call, and the server's name into `server`. Domains that depend on one that does
    /// not exist are logged and left out. 259 for a bad count line, with nothing changed; 258 for a bad
    /// domain line or if reading fails, with the domains before it in `topv`, unchecked.
    [[nodiscard]] short load_top(ustring & server, vector & topv);
    /// The same, and adds a new `orphan_entry` to `left_out` for each domain that is left out, in the order
    /// of the file. 258 also if an allocation fails for these.
    [[nodiscard]] short load_top(ustring & server, vector & topv, vector & left_out);
    /// Stores where the target section of each domain begins and how many entries it has, then sorts `topv`
    /// with `sort_on_dep_len`, equal ones in the order of the file. A code of `seek_section` or `get_pos`
    /// ends it, unsorted.
    [[nodiscard]] short load_offsets(vector & topv);

private:
    friend class file_input_parms;

    /// In this order: without a stream, since the file is closed, or `fclose` has failed and the object
    /// counts as open; with one, which is just opened, or was last used for reading or writing.
    enum class state { closed, close_failed, opened, reading, writing };

    void swap(kt_file & other) noexcept
    {
        std::swap(file_path_, other.file_path_);
        std::swap(file_handle_, other.file_handle_);
        std::swap(size_, other.size_);
        std::swap(state_, other.state_);
        std::swap(failed_, other.failed_);
        std::swap(flush_failed_, other.flush_failed_);
        std::swap(is_text_update_, other.is_text_update_);
        std::swap(reader_, other.reader_);
        std::swap(line_, other.line_);
    }
    short load_topology(ustring & server, vector & topv, vector * left_out);
    bool check_open(const class call_trace & trace) const;
    bool report_not_open(const class call_trace & trace) const;
    bool switch_direction(state direction);
    bool flush();
    bool move_to(long offset, int origin);
    bool close_silently();
    short finish_write(const class call_trace & trace, std::size_t written, std::size_t length);
    bool pass_line(const ustring & head);
    short read_keyval(unsigned & value);

    pathname file_path_;
    std::FILE * file_handle_ = nullptr; // from `opened` on
    long size_ = 0;
    state state_ = state::closed;
    bool failed_ = false;                  // in writing; the reader knows of reading
    bool flush_failed_ = false;            // for bytes that were written before, so `close` has to report it
    bool is_text_update_ = false;          // opened for reading and writing of text
    class line_reader * reader_ = nullptr; // made by the first `open`
    ustring line_;                         // a line that only navigation sees
};

/// Closes a file at the end of a scope, if it is open then.
///
///     const close_at_end closing(file);
///     ...
///     return file.close(); // what was written is only safe if this is 0: the guard drops the result
class [[nodiscard]] close_at_end {
public:
    /// `file` has to outlive the guard.
    explicit close_at_end(kt_file & file) noexcept : file_(file) {}
    close_at_end(const close_at_end &) = delete;
    close_at_end & operator=(const close_at_end &) = delete;
    ~close_at_end()
    {
        if (file_.is_open())
            static_cast<void>(file_.close());
    }

private:
    kt_file & file_;
};

} // namespace orvet

#endif
