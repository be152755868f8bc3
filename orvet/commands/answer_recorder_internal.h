#ifndef ORVET_COMMANDS_ANSWER_RECORDER_INTERNAL_H
#define ORVET_COMMANDS_ANSWER_RECORDER_INTERNAL_H

#include "orvet/foundation/base/pathname.h"
#include "orvet/foundation/base/vector.h"

namespace orvet {

/// The state of `brod_base::record_answers`, one for the process.
class answer_recorder {
public:
    static answer_recorder & get();

    /// An empty directory switches it off; any other begins a new list.
    void record_to(const pathname & directory);
    const vector & answers() const { return answers_; }

    /// Records the answer to a command that ran, if recording is on: the file `output`, if the command wrote
    /// to it. Changes neither `errno` nor the count of failed allocations.
    void add(const ustring & command, int result, bool to_output, const pathname & output);

private:
    ustring reason_against(const ustring & command, const pathname & file, const ustring & name) const;
    class recorded_answer * add_entry(const ustring & command, const pathname & file);
    bool copy(const pathname & output, const pathname & file, ustring & reason) const;
    void drop_repetition();

    pathname directory_;
    vector answers_; // of `recorded_answer`, no two alike
};

} // namespace orvet

#endif
