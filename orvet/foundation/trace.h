#ifndef ORVET_FOUNDATION_TRACE_H
#define ORVET_FOUNDATION_TRACE_H

#include <cstddef>
#include <cstdio>
#include <string_view>

#include "orvet/foundation/base/pathname.h"

namespace orvet {

/// Severities of a trace line, by their numbers; [C], [I], [W], [E] and [F] in the trace.
enum class severity { call = 0, info = 1, warning = 2, error = 3, fatal = 4 };

/// Where finished lines go. A channel deletes the stream that it was given.
class ORVET_API trace_stream {
public:
    virtual ~trace_stream() = default;
    /// Takes one whole line, its line feed included. Gives the bytes written, negative after a failure. Calls
    /// nothing of the library that writes on the same channel: that would come back here without end.
    virtual int writeline(const char * line) = 0;
};

/// Writes lines to a file of the standard library; each has left the process when `writeline` returns. The
/// first line that is lost is reported on standard error, once.
class ORVET_API stdio_trace_stream : public trace_stream {
public:
    /// Takes over an open stream, and changes nothing of it. Standard output and standard error are never
    /// closed.
    explicit stdio_trace_stream(std::FILE * stream) : stream_(stream) {}
    /// Appends to the file of that name in the Ketrix installation directory, or in the current one if that
    /// is not set. Several processes may append to one file: their lines stay whole. If the file can't be
    /// opened, standard error takes its place and says so.
    explicit stdio_trace_stream(const char * file_name);
    stdio_trace_stream(const stdio_trace_stream &) = delete;
    stdio_trace_stream & operator=(const stdio_trace_stream &) = delete;
    ~stdio_trace_stream() override;

    /// Writes the line. Negative if a stream that was opened by name could not write all of it to the file: a
    /// part of it may be there, and the next line then begins with a line feed. On a tool's own stream the
    /// result is that of `fprintf`, which may only have filled a buffer.
    int writeline(const char * line) override;

private:
    bool append(const char * line, std::size_t length);
    void report_loss(int error);

    std::FILE * stream_;
    pathname path_; // of a stream that was opened by name
    bool by_name_ = false;
    bool is_torn_ = false; // a part of a line is at the end of the file
    bool loss_reported_ = false;
};

/// The state of one channel. Lives as long as the process.
struct work_area {
    int level;             ///< a line passes when this is at most the number of its severity
    trace_stream * stream; ///< where finished lines go; owned; null drops them
    char line[1024];       ///< the line under assembly, closed by a zero
    long max_size;         ///< limit of the channel's file in bytes; nothing acts on it
    long current_size;     ///< the sum of what `writeline` returned, negative results too
    pathname * file_name;  ///< the file's bare name; owned
};

/// The engine of both channels. A line is made by `write_header`, `internal_write_text` and `write_text`, in
/// this order, with nothing else written on the channel in between; `write_line` does that.
/// What does not fit into a line is cut at a character's end. No operation reports a failure.
class ORVET_API trace {
public:
    /// 6 asks for silence, unless the variable `ostrel_trace_level` says otherwise at that moment.
    static void set_level(work_area & wa, int level);
    /// The channel's level.
    static int level(const work_area & wa) { return wa.level; }
    /// The size limit of the channel's file in bytes; kept, and acted on by nothing.
    static void set_max_size(work_area & wa, long bytes) { wa.max_size = bytes; }
    /// @copydoc set_max_size
    static long max_size(const work_area & wa) { return wa.max_size; }
    /// Deletes the present stream and takes over the new one; null closes the channel without a word.
    static void set_stream(work_area & wa, trace_stream * stream);

    /// Begins a line: the local time, the severity's text, the name.
    static void write_header(work_area & wa, const char * severity, const char * name);
    /// Formats by the rules of `printf` into one buffer of 1024 bytes that all messages of the process share;
    /// the result is valid up to the next call. A bare "%l" counts as "%ld".
    static char * internal_write_text(const char * format, ...);
    /// Ends the line with `text`, which is no format, and writes it; further arguments are ignored.
    static void write_text(work_area & wa, const char * text, ...);
    /// The three in one, with the rules of `format_message`; `name` may be null. Behind a header that does
    /// not fit there is no text.
    static void write_line(work_area & wa, std::string_view severity, const char * name,
                           std::string_view format, const class argument * arguments, std::size_t count);

    ///@{
    /// The text of the operating system's last error, or of `code`, in one buffer of 128 bytes.
    static char * last_system_error_to_string(work_area & wa);
    static char * system_error_to_string(work_area & wa, unsigned long code);
    ///@}

protected:
    /// Begins the line anew with the local time.
    static void write_current_time(work_area & wa);

private:
    static void change_trace_file(work_area & wa);
};

/// The developers' trace, "ktx1.trc". An object of the class is only needed to close the channel for good.
class ORVET_API system_trace : public trace {
public:
    ~system_trace();
    /// The channel; its file is opened by the first call.
    static work_area & wa()
    {
        if (!open_)
            open();
        return area_;
    }
    /// True when a line of that severity is to be written. Costs a load and a compare while the gate is shut.
    static bool passes(severity s)
    {
        const int number = static_cast<int>(s);
        if (area_.level > number) [[likely]]
            return false;
        return level(wa()) <= number;
    }

private:
    static void open();

    static work_area area_;
    static bool open_;
};

/// The operators' log, "ktx1.log". An object of the class is only needed to close the channel for good.
class ORVET_API log : public trace {
public:
    ~log();
    /// The channel; its file is opened by the first call.
    static work_area & wa()
    {
        if (!open_)
            open();
        return area_;
    }
    /// True when messages are written.
    static bool passes() { return area_.level <= 0 && level(wa()) <= 0; }

private:
    static void open();

    static work_area area_;
    static bool open_;
};

} // namespace orvet

#endif
