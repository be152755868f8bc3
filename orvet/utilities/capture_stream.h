#ifndef ORVET_UTILITIES_CAPTURE_STREAM_H
#define ORVET_UTILITIES_CAPTURE_STREAM_H

#include "orvet/foundation/base/vector.h"
#include "orvet/foundation/trace.h"

namespace orvet {

/// Keeps the lines of a channel in memory, for the tests of tools.
///
///     auto * const said = new capture_stream; // the channel deletes it
///     trace::set_stream(log::wa(), said);
///     ...
///     if (said->count(severity::error) == 0) ...
///
/// A line that finds no memory is reported to the channel as not written, and is not counted.
class ORVET_API capture_stream : public trace_stream {
public:
    int writeline(const char * line) override;

    /// The lines so far as `ustring`s, without time stamp and line feed: "[C] name text" from the trace,
    /// "MSG0020 [F] text" from the log. A text that no channel has made stays whole.
    const vector & lines() const { return lines_; }
    /// How many of the lines bear the letter of that severity.
    unsigned count(severity s) const { return counts_[static_cast<int>(s)]; }
    /// Forgets the lines and the counts.
    void clear();

private:
    vector lines_;
    unsigned counts_[5] = {};
};

} // namespace orvet

#endif
