#ifndef ORVET_INPUTFILES_RECORD_H
#define ORVET_INPUTFILES_RECORD_H

#include "orvet/foundation/base/ustring.h"
#include "orvet/foundation/call_trace.h"
#include "orvet/inputfiles/keywords.h"

// What the records of input files have in common. Each class is a table of its keywords with these functions.
namespace orvet {

/// One keyword of a record. All but the default is for the few that are special.
struct record_field {
    const char * fallback;                     ///< the field's default
    const char * const * beginnings = nullptr; ///< what a value has to begin with; null for anything
    const char * emptied_by = nullptr;         ///< the value that leaves the field empty
    void (*announce)(const call_trace & trace,
                     const ustring & value) = nullptr;   ///< traces a value to be stored
    void (*confirm)(const call_trace & trace) = nullptr; ///< traces that it is stored
    bool detail = false;                                 ///< a setting that `toString` leaves out
};

struct record_kind {
    int first_row; ///< in `fip_names`, of the first of `count` keywords
    int count;
    const record_field * fields;
    char16_t shown_up_to;            ///< where the messages on an invalid line cut it
    bool strips_key = false;         ///< blanks around the keyword are removed
    const char * unstored = nullptr; ///< a keyword that is accepted and stored nowhere
};

/// The inside of one record.
struct record_parts {
    const record_kind & kind;
    ustring * texts; ///< `kind.count` of them
    fip_marks & marks;
};

/// `announce` for a keyword whose value is traced.
void announce_value(const call_trace & trace, const ustring & value);

/// Puts every field at its default and takes all marks back.
void clear_record(const record_parts & record);
/// Stores a copy in field `index` and marks its keyword. Where memory is short, both stay as they were.
void set_field(const record_parts & record, int index, const ustring & value);
/// Takes one line, and traces it as the function that `trace` stands for: 0, 100 or 101. The record stays as
/// it was unless the result is 0.
short set_line(const call_trace & trace, const record_parts & record, const ustring & line);
/// 0, told to the log, when a mandatory keyword has no mark, else 1; marks outside both lists are logged.
int weigh_marks(const fip_marks & marks, const fip_row * mandatory, const fip_row * allowed);

/// True when `text` begins with an entry of the list, case respected.
bool begins_with_one_of(const ustring & text, const char * const * list);
/// The line with the part in front of its first "=", or all of it without one, in upper case: `line` itself
/// where that changes nothing, else a copy in `room`, which may be the line. Null when memory is short.
const ustring * with_upper_key(const ustring & line, ustring & room);

} // namespace orvet

#endif
