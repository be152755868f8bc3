#ifndef ORVET_FILES_KT_FILE_H
#define ORVET_FILES_KT_FILE_H

#include <cstdio>

#include "orvet/foundation/base/pathname.h"
#include "orvet/foundation/base/vector.h"

namespace orvet {

/// A file by its name: a stream that is open or not, and the size that it had when it was opened.
///
/// Every operation traces itself, tells a failure to the operators' log, and gives one of the codes of
/// codes.h, so that a caller only passes the code on. An object owns its stream from `open` to `close`; the
/// destructor closes nothing, and a stream left open stays so until the process ends. Objects can't be
/// copied.
class ORVET_API kt_file {
public:
    /// A closed file without a name; `set_file_name` gives it one.
    kt_file() = default;
    /// A closed file of exactly that path.
    explicit kt_file(const pathname & path);
    /// A closed file of that name in the Ketrix installation directory.
    explicit kt_file(const ustring & file_name);
    kt_file(const kt_file &) = delete;
    kt_file & operator=(const kt_file &) = delete;
    ~kt_file();

    /// Opens with a mode of `fopen` and measures the size; the stream then stands at the start. A stream that
    /// is still open is closed first, without a word. 250 when it can't be opened, a directory included; with
    /// 253 and 256, from measuring, the object is open and still has to be closed.
    short open(const char * mode);
    /// Whether reading or writing has failed since the file was opened: tells a read error from the end of
    /// the file.
    bool error() const;
    /// Whether the last read came to the end of the file. A read that found nothing while this is false has
    /// failed.
    bool at_end() const;
    /// Closes the stream; 0 also when none is open. After 252 the object stays open.
    short close();
    /// Moves to `offset` bytes from `origin`, a value of `fseek`. 253, also when what was written in front of
    /// it finds no room; 255 when not open.
    short seek(long offset, int origin);
    /// Reads the next line, without its line end. Not 0 when there was one; 0 at the end of the file and when
    /// not open, with `line` as it was. Allocates only when a line is longer than all that `line` has held.
    int get_line(ustring & line);
    /// Writes the text's multi-byte form, without a line end. 251, or 255 when not open. What still waits in
    /// the stream's buffer then is answered for by `close`, or by a `seek`.
    short write(const ustring & text);
    /// Writes `size` bytes. 251, or 255 when not open.
    short write(const void * buffer, unsigned int size);
    /// Gives the stream's position in bytes. 255 when not open, with `*position` as it was; 256 with a
    /// negative `*position`.
    short get_pos(long * position);
    /// Reads `count` items of `size` bytes. 254 when there are fewer, with what there was in `buffer`; 255
    /// when not open.
    short read(void * buffer, unsigned int size, unsigned int count);
    /// Reads up to `size` bytes and gives how many there were; 0 when not open.
    unsigned int read(void * buffer, unsigned int size);
    /// Moves the file to `target` by a rename, replacing a file that is there; close it first. The object
    /// keeps its name. 6 when the rename fails: a former `target` is gone then, the file is still here.
    short copy_to(const pathname & target);
    /// Removes the file; close it first. 0 also when it is already gone; 257.
    short removef();

    /// Bytes of the file when it was opened; 0 when closed.
    long file_size() const { return size_; }
    /// The name as it was given; what the constructor from a `ustring` makes of it has its directory.
    const pathname & file_name() const { return file_path_; }
    /// Takes effect with the next `open`.
    void set_file_name(ustring name) { file_path_ = name; }

    // Sectioned files. A section's head is passed whole, with its brackets, and has to fill its line exactly.
    // All navigation runs forward from where the stream stands.

    /// Moves to the line behind the head `section`; -1 when it is not in the rest of the file, which is no
    /// error.
    short find_section(const ustring & section);
    /// The same, where a missing section is an error: 260. With a non-zero `read_count` the next line gives
    /// `*count` and is passed as well, 258 when it is no key/value line; else `count` may be null.
    short seek_section(const ustring & section, int * count, int read_count);
    /// Reads a line and splits it at the first " = ". 258 when there is none. At the end of the file it gives
    /// 0 and leaves both texts as they were.
    short get_keyval(ustring & key, ustring & value);

    // Scan result files.

    /// Loads the topology section, from the line behind its head on: a `top_entry` a domain into `topv`,
    /// which is empty at the call, and the server's name into `server`. Domains that depend on one that isn't
    /// there are told to the log and left out. 259 for a bad count line, with nothing touched; 258 for a bad
    /// domain line, with the domains in front of it in `topv`, unchecked.
    short load_top(ustring & server, vector & topv);
    /// Fills in where the target section of each domain begins and how many entries it has, then sorts `topv`
    /// with `sort_on_dep_len`, equal ones in the order of the file. A code of `seek_section` or `get_pos`
    /// ends it, unsorted.
    short load_offsets(vector & topv);

private:
    friend class file_input_parms;

    /// In this order: without a stream, since the file is closed, or `fclose` has failed and the object
    /// counts as open; with one, which is just opened, or was last used for reading or writing.
    enum class state { closed, close_failed, opened, reading, writing };

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

} // namespace orvet

#endif
